// The letters that reach a window's controls together with Alt. They are found in the texts as translated, so
// that no translator has to mark any, and no two of a window are the same.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace specialpages::qt {

/// What a control says.
struct LabelText {
    QString text; ///< as people read it: an "&" in it is one
    /// The same in Latin letters, of which the letter is taken when `text` has none; may be empty.
    QString latin;
    /// The control has a key of its own (Return, Escape), so it takes what the others leave.
    bool lastChoice = false;
};

/// The texts, in their order, as buttons and labels take them: "&" stands before the letter, and an "&" of
/// the text itself is doubled. Of the letters A to Z each is given once, in whatever case it is written;
/// those in `reserved` are not. Whoever comes first has the first choice: the beginnings of words, from left
/// to right, words that other texts have too after those that they have not, then any letter; but nobody goes
/// without a letter for another's better choice. A text in another script gets a letter in brackets at its
/// end, as is the custom there: before the dots or the colon that end it, and not when it is the last to
/// choose. A text without any letter gets none, nor does one whose every letter is taken.
QStringList with_mnemonics(const std::vector<LabelText>& texts, const QString& reserved);

/// The letter of such a text, small; null when none is marked.
QChar mnemonic_of(const QString& label);

} // namespace specialpages::qt
