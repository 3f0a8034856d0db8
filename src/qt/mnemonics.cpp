#include "qt/mnemonics.h"

#include "qt/text.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

namespace specialpages::qt {

namespace {

constexpr auto kAlphabet = "abcdefghijklmnopqrstuvwxyz";

bool is_latin(QChar character) {
    const char16_t folded = character.toCaseFolded().unicode();
    return folded >= u'a' && folded <= u'z' && character.unicode() < 0x80;
}

QChar at(const QString& text, qsizetype place) {
    return place >= 0 && place < text.size() ? text[place] : QChar();
}

/// Whether the letter there may be marked: one that is whole, and none in brackets of its own, which would
/// look as if it had been added.
bool may_be_marked(const QString& text, qsizetype place) {
    const bool bracketed = at(text, place - 1) == u'(' && at(text, place + 1) == u')';
    return is_latin(text[place]) && !at(text, place + 1).isMark() && !bracketed;
}

bool begins_word(const QString& text, qsizetype place) {
    const QChar before = at(text, place - 1);
    return !before.isLetterOrNumber() && !before.isMark() && before != u'\'' && before != u'\u2019' &&
           !before.isLowSurrogate();
}

/// The word that begins there, small.
QString word_at(const QString& text, qsizetype place) {
    qsizetype end = place;
    while (at(text, end).isLetter() || at(text, end).isMark()) {
        ++end;
    }
    return text.mid(place, end - place).toCaseFolded();
}

/// Where the words begin whose first letter may be marked.
std::vector<qsizetype> beginnings_of(const QString& text) {
    std::vector<qsizetype> places;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (may_be_marked(text, i) && begins_word(text, i)) {
            places.push_back(i);
        }
    }
    return places;
}

bool has_letter(const QString& text) {
    const auto characters = text.toUcs4();
    return std::any_of(characters.begin(), characters.end(),
                       [](char32_t character) { return QChar::isLetter(character); });
}

/// The letters that a text may be reached by, best first, each once.
struct Choices {
    std::vector<QChar> beginnings;
    std::vector<QChar> all;
};

void add_once(std::vector<QChar>& letters, QChar letter) {
    if (std::find(letters.begin(), letters.end(), letter) == letters.end()) {
        letters.push_back(letter);
    }
}

/// Words that are shared with other texts come after those that tell a text from them.
Choices letters_of(const QString& text, const std::set<QString>& shared = {}) {
    Choices choices;
    for (const bool isShared : {false, true}) {
        for (const qsizetype place : beginnings_of(text)) {
            if (shared.contains(word_at(text, place)) == isShared) {
                add_once(choices.beginnings, text[place].toCaseFolded());
            }
        }
    }
    choices.all = choices.beginnings;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (may_be_marked(text, i)) {
            add_once(choices.all, text[i].toCaseFolded());
        }
    }
    return choices;
}

/// Whether the letter is added to the text rather than found in it.
bool takes_added_letter(const LabelText& label) {
    for (qsizetype i = 0; i < label.text.size(); ++i) {
        if (may_be_marked(label.text, i)) {
            return false;
        }
    }
    return has_letter(label.text);
}

/// The words that stand in more than one of the texts ("Move" of "Move Up" and "Move Down").
std::set<QString> shared_words(const std::vector<LabelText>& texts) {
    std::set<QString> seen;
    std::set<QString> shared;
    for (const LabelText& label : texts) {
        const QString& text = takes_added_letter(label) ? label.latin : label.text;
        std::set<QString> words;
        for (const qsizetype place : beginnings_of(text)) {
            words.insert(word_at(text, place));
        }
        for (const QString& word : words) {
            if (!seen.insert(word).second) {
                shared.insert(word);
            }
        }
    }
    return shared;
}

Choices choices_of(const LabelText& label, const std::set<QString>& shared) {
    if (!takes_added_letter(label)) {
        return letters_of(label.text, shared);
    }
    if (label.lastChoice) {
        return {};
    }
    Choices choices = letters_of(label.latin, shared);
    for (const char* letter = kAlphabet; *letter != '\0'; ++letter) {
        add_once(choices.all, QLatin1Char(*letter));
    }
    return choices;
}

/// Who has which letter.
class Letters {
  public:
    Letters(const std::vector<LabelText>& texts, const QString& reserved) {
        const std::set<QString> shared = shared_words(texts);
        for (const LabelText& text : texts) {
            choices_.push_back(choices_of(text, shared));
        }
        for (const QChar letter : reserved) {
            reserved_.insert(letter.toCaseFolded());
        }
        given_.resize(texts.size());
        hand_out(texts, false, &Choices::beginnings);
        hand_out(texts, false, &Choices::all);
        for (const auto wish : {&Choices::beginnings, &Choices::all}) {
            hand_out(texts, true, wish);
        }
    }

    std::optional<QChar> of(std::size_t who) const { return given_[who]; }

  private:
    using Wish = std::vector<QChar> Choices::*;

    void hand_out(const std::vector<LabelText>& texts, bool last, Wish wish) {
        for (std::size_t who = 0; who < texts.size(); ++who) {
            if (texts[who].lastChoice == last && !given_[who]) {
                std::set<QChar> tried = reserved_;
                give(who, wish, tried, !last);
            }
        }
    }

    /// Gives a free letter, or else (`moving`) one whose owner can be content with another.
    bool give(std::size_t who, Wish wish, std::set<QChar>& tried, bool moving) {
        for (const QChar letter : choices_[who].*wish) {
            if (!owner_.contains(letter) && !reserved_.contains(letter)) {
                take(who, letter);
                return true;
            }
        }
        for (const QChar letter : moving ? choices_[who].*wish : std::vector<QChar>()) {
            if (tried.insert(letter).second && give(owner_.at(letter), wish, tried, true)) {
                take(who, letter);
                return true;
            }
        }
        return false;
    }

    void take(std::size_t who, QChar letter) {
        owner_[letter] = who; // whoever had it has taken another by now
        given_[who] = letter;
    }

    std::vector<Choices> choices_;
    std::set<QChar> reserved_;
    std::map<QChar, std::size_t> owner_;
    std::vector<std::optional<QChar>> given_;
};

/// Where the letter stands in the text: at the beginning of a word if it can.
qsizetype place_of(const QString& text, QChar letter) {
    qsizetype inside = -1;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (may_be_marked(text, i) && text[i].toCaseFolded() == letter) {
            if (begins_word(text, i)) {
                return i;
            }
            inside = inside < 0 ? i : inside;
        }
    }
    return inside;
}

QString with_letter_in(const QString& text, QChar letter) {
    const qsizetype place = place_of(text, letter);
    return literal_label(text.left(place)) + QLatin1Char('&') + literal_label(text.mid(place));
}

QString with_letter_added(const QString& text, QChar letter) {
    static const QString kEnds = QStringLiteral(" .:\u2026\uff1a\u3002");
    qsizetype end = text.size();
    while (end > 0 && kEnds.contains(text[end - 1])) {
        --end;
    }
    return literal_label(text.left(end)) + QLatin1String("(&") + letter.toUpper() + QLatin1Char(')') +
           literal_label(text.mid(end));
}

} // namespace

QStringList with_mnemonics(const std::vector<LabelText>& texts, const QString& reserved) {
    const Letters letters(texts, reserved);
    QStringList labels;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const QString& text = texts[i].text;
        const auto letter = letters.of(i);
        if (!letter) {
            labels << literal_label(text);
        } else if (takes_added_letter(texts[i])) {
            labels << with_letter_added(text, *letter);
        } else {
            labels << with_letter_in(text, *letter);
        }
    }
    return labels;
}

QChar mnemonic_of(const QString& label) {
    for (qsizetype i = 0; i + 1 < label.size(); ++i) {
        if (label[i] == u'&') {
            if (label[i + 1] != u'&') {
                return label[i + 1].toCaseFolded();
            }
            ++i;
        }
    }
    return {};
}

} // namespace specialpages::qt
