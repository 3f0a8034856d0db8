#include "qt/mnemonics.h"
#include "qt/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <clocale>
#include <set>

namespace specialpages::qt::testing {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> marked(const std::vector<LabelText>& texts, const char* reserved = "") {
    std::vector<std::string> labels;
    for (const QString& label : with_mnemonics(texts, QString::fromUtf8(reserved))) {
        labels.push_back(label.toStdString());
    }
    return labels;
}

std::vector<std::string> marked(std::initializer_list<const char*> texts, const char* reserved = "") {
    std::vector<LabelText> all;
    for (const char* const text : texts) {
        all.push_back({QString::fromUtf8(text), {}, false});
    }
    return marked(all, reserved);
}

LabelText japanese(const char* text, const char* latin, bool last = false) {
    return {QString::fromUtf8(text), QString::fromUtf8(latin), last};
}

TEST(Mnemonics, TakeTheFirstLetterThatIsFreeAtTheBeginningOfAWord) {
    EXPECT_THAT(marked({"Print on cover", "Page list", "Edit…"}),
                ElementsAre("&Print on cover", "Page &list", "&Edit…"));
}

TEST(Mnemonics, PreferTheWordsThatTellTheTextsApart) {
    EXPECT_THAT(marked({"Move Up", "move Down"}), ElementsAre("Move &Up", "move &Down"));
    EXPECT_THAT(marked({"Add", "Add Covers"}), ElementsAre("&Add", "Add &Covers"));
    EXPECT_THAT(marked({"Front page one", "Back page two"}, "f"),
                ElementsAre("Front page &one", "&Back page two"))
        << "a word in the middle";
    EXPECT_THAT(marked({japanese("表紙を追加", "Add Covers"), japanese("挿入紙を追加", "Add Inserts")}),
                ElementsAre("表紙を追加(&C)", "挿入紙を追加(&I)"));
}

TEST(Mnemonics, AreTheSameLetterInEitherCase) {
    EXPECT_THAT(marked({"width", "Width"}), ElementsAre("&width", "W&idth"));
}

TEST(Mnemonics, GoIntoAWordWhenNoBeginningIsFree) {
    EXPECT_THAT(marked({"Size", "Sides"}), ElementsAre("&Size", "S&ides"));
}

TEST(Mnemonics, MoveAnEarlierTextToItsOtherWordForOneThatHasNone) {
    EXPECT_THAT(marked({"Paper Size", "Paper"}), ElementsAre("Paper &Size", "&Paper"));
    EXPECT_THAT(marked({"Page Size", "Pack"}), ElementsAre("Page &Size", "&Pack"))
        << "before that one looks into its word";
}

TEST(Mnemonics, MoveAnEarlierTextIntoAWordOnlyForOneThatWouldGoWithout) {
    EXPECT_THAT(marked({"abc", "a"}), ElementsAre("a&bc", "&a"));
    EXPECT_THAT(marked({"a", "bd", "ce", "ab c"}), ElementsAre("&a", "&bd", "c&e", "ab &c"))
        << "for the beginning of a word rather than a letter in one";
    EXPECT_THAT(marked({"ab", "bc", "c", "a"}), ElementsAre("&ab", "&bc", "&c", "a"));
    EXPECT_THAT(marked({"ab", "bc", "cd", "a"}), ElementsAre("a&b", "b&c", "c&d", "&a"));
}

TEST(Mnemonics, GiveNoneWhenEveryLetterIsTaken) {
    EXPECT_THAT(marked({"a", "a", "aa"}), ElementsAre("&a", "a", "aa"));
}

TEST(Mnemonics, LeaveOutReservedLettersInEitherCase) {
    EXPECT_THAT(marked({"Print", "Options"}, "pO"), ElementsAre("P&rint", "Op&tions"));
    EXPECT_THAT(marked({"Print"}, "print"), ElementsAre("Print"));
}

TEST(Mnemonics, ShowAnAmpersandOfTheTextAndNeverMarkIt) {
    EXPECT_THAT(marked({"R&D", "&", "&&x"}), ElementsAre("&R&&D", "&&", "&&&&&x"));
    EXPECT_THAT(marked({"A & B", "A"}), ElementsAre("A && &B", "&A"));
}

TEST(Mnemonics, OfButtonsWithAKeyOfTheirOwnAreWhatTheOthersLeave) {
    EXPECT_THAT(marked({{"Cancel", {}, true}, {"OK", {}, true}, {"Covers", {}, false}, {"O", {}, false}}),
                ElementsAre("C&ancel", "O&K", "&Covers", "&O"));
    EXPECT_THAT(marked({{"OK", {}, true}, {"Ok", {}, false}, {"Ko", {}, false}}),
                ElementsAre("OK", "&Ok", "&Ko"))
        << "nobody gives way to them";
}

TEST(Mnemonics, AreAddedInBracketsToATextInAnotherScript) {
    EXPECT_THAT(marked({japanese("表紙を追加…", "Add Covers…"), japanese("挿入紙を追加...", "Add Inserts…"),
                        japanese("用紙：", "Paper:"), japanese("枚数", "")}),
                ElementsAre("表紙を追加(&C)…", "挿入紙を追加(&I)...", "用紙(&P)：", "枚数(&A)"));
}

TEST(Mnemonics, AreFoundInTheLatinLettersOfAnotherScriptsText) {
    EXPECT_THAT(marked({japanese("PPDの用紙", "Zebra")}), ElementsAre("&PPDの用紙"));
}

TEST(Mnemonics, AreNotAddedForThoseThatHaveTheLastChoice) {
    EXPECT_THAT(marked({japanese("キャンセル", "Cancel", true), japanese("OK", "OK", true)}),
                ElementsAre("キャンセル", "&OK"));
}

TEST(Mnemonics, AreNotAddedToATextWithoutAnyLetter) {
    EXPECT_THAT(marked({"?", "", "12", "…", "(1)"}), ElementsAre("?", "", "12", "…", "(1)"));
}

TEST(Mnemonics, TakeAnyLetterForAnotherScriptWhenTheLatinTextsAreTaken) {
    EXPECT_THAT(marked({japanese("削除", "D"), japanese("戻す", "D")}), ElementsAre("削除(&D)", "戻す(&A)"));
    EXPECT_THAT(marked({japanese("削除", "D")}, "abcdefghijklmnopqrstuvwxyz"), ElementsAre("削除"));
}

TEST(Mnemonics, AreLettersThatEveryLatinKeyboardHas) {
    EXPECT_THAT(marked({"Überschrift", "Éditer", "ößé", "Ａ"}),
                ElementsAre("Ü&berschrift", "É&diter", "ößé(&A)", "Ａ(&C)"));
    EXPECT_THAT(marked({"zoom", "Z", "zz"}), ElementsAre("z&oom", "&Z", "zz")) << "from A to Z";
    EXPECT_THAT(marked({"\u212A"}), ElementsAre("\u212A(&A)")) << "the sign of kelvins is no K";
    // "é" in two parts: the letter is not split from its accent.
    EXPECT_THAT(marked({"e\u0301diter"}), ElementsAre("e\u0301&diter"));
}

TEST(Mnemonics, DoNotTakeALetterInBracketsOfItsOwn) {
    EXPECT_THAT(marked({"(A) tray", "(a)"}), ElementsAre("(A) &tray", "(a)(&A)"));
}

TEST(Mnemonics, TakeALetterOfAWordInBrackets) {
    EXPECT_THAT(marked({"(Add) tray", "(on) b)"}), ElementsAre("(&Add) tray", "(&on) b)"));
    EXPECT_THAT(marked({"t(a", "(b", "a)", "b)"}), ElementsAre("&t(a", "(&b", "&a)", "b)"));
}

TEST(Mnemonics, SkipTheLettersAfterAnApostropheAsBeginnings) {
    EXPECT_THAT(marked({"job's", "j"}), ElementsAre("j&ob's", "&j"));
    EXPECT_THAT(marked({"l’impression", "l"}), ElementsAre("l’&impression", "&l"));
}

TEST(Mnemonics, BeginWordsAfterHyphensButNotAfterDigits) {
    EXPECT_THAT(marked({"2-sided printing:", "s"}), ElementsAre("2-sided &printing:", "&s"));
    EXPECT_THAT(marked({"A4b", "A"}), ElementsAre("A4&b", "&A"));
}

TEST(Mnemonics, OfNothingAreNothing) {
    EXPECT_TRUE(with_mnemonics({}, QStringLiteral("abc")).isEmpty());
}

TEST(Mnemonics, DoNotDependOnTheLocale) {
    const char* const before = std::setlocale(LC_ALL, nullptr);
    const std::string kept = before == nullptr ? "C" : before;
    std::setlocale(LC_ALL, "tr_TR.UTF-8"); // where there is one: "I" and "i" are two letters in it
    EXPECT_THAT(marked({"Insert", "I"}), ElementsAre("I&nsert", "&I"));
    std::setlocale(LC_ALL, kept.c_str());
}

TEST(Mnemonics, AreReadBackFromALabel) {
    EXPECT_EQ(mnemonic_of("A && &Bc"), QChar('b'));
    EXPECT_EQ(mnemonic_of("用紙(&P)："), QChar('p'));
    EXPECT_TRUE(mnemonic_of("A && B").isNull());
    EXPECT_TRUE(mnemonic_of("&").isNull());
    EXPECT_TRUE(mnemonic_of("").isNull());
}

TEST(PlainLabel, LosesTheMarkAndAnAddedLetter) {
    EXPECT_EQ(plain_label("R&&D &Page"), "R&D Page");
    EXPECT_EQ(plain_label("表紙(&A)…").toStdString(), "表紙…");
    EXPECT_EQ(plain_label("(&&)"), "(&)");
    EXPECT_EQ(plain_label("(&A"), "(A");
    EXPECT_EQ(plain_label("&"), "&");
}

/// Texts of the kinds of characters that matter here, often the same.
rc::Gen<QString> any_text() {
    return rc::gen::map(rc::gen::container<std::u32string>(
                            rc::gen::elementOf(std::u32string(U"abABxyXY &()：…'’é\u0301ß用紙4-\U0001F600"))),
                        [](const std::u32string& text) { return QString::fromStdU32String(text); });
}

RC_GTEST_PROP(Mnemonics, LeaveTheTextsAsTheyWereAndAreUnique, ()) {
    const auto size = *rc::gen::inRange(0, 40);
    std::vector<LabelText> texts;
    for (int i = 0; i < size; ++i) {
        texts.push_back({*any_text(), *any_text(), *rc::gen::arbitrary<bool>()});
    }
    const QString reserved = QStringLiteral("aQ");
    const QStringList labels = with_mnemonics(texts, reserved);
    RC_ASSERT(labels.size() == size);
    std::set<QChar> letters{u'a', u'q'};
    for (int i = 0; i < size; ++i) {
        RC_ASSERT(plain_label(labels[i]) == texts[static_cast<std::size_t>(i)].text);
        if (const QChar letter = mnemonic_of(labels[i]); !letter.isNull()) {
            RC_ASSERT(letter >= u'a' && letter <= u'z');
            RC_ASSERT(letters.insert(letter).second);
        }
    }
}

RC_GTEST_PROP(Mnemonics, LeaveNoTextWithoutALetterThatIsFree, ()) {
    const auto size = *rc::gen::inRange(0, 12);
    std::vector<LabelText> texts;
    for (int i = 0; i < size; ++i) {
        texts.push_back({*any_text(), {}, false});
    }
    const QStringList labels = with_mnemonics(texts, {});
    std::set<QChar> letters;
    for (const QString& label : labels) {
        letters.insert(mnemonic_of(label));
    }
    for (const QString& label : labels) {
        if (mnemonic_of(label).isNull()) {
            // Alone it would take any of its letters, so each of them is another's.
            for (QChar letter = u'a'; letter <= u'z';
                 letter = QChar(static_cast<char16_t>(letter.unicode() + 1))) {
                QString others = QStringLiteral("abcdefghijklmnopqrstuvwxyz");
                others.remove(letter);
                const QStringList alone = with_mnemonics({{plain_label(label), {}, false}}, others);
                RC_ASSERT(mnemonic_of(alone[0]).isNull() || letters.contains(letter));
            }
        }
    }
}

} // namespace
} // namespace specialpages::qt::testing
