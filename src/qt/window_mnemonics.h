// Gives the letters of mnemonics.h to the controls of a window, and what else hangs on their texts.
#pragma once

#include <vector>

class QWidget;
class QString;

namespace specialpages::qt {

/// Whether the widget is reached by a letter: a button, check box or radio button, or a label with a buddy.
bool takes_letter(const QWidget& widget);

/// Gives a letter to each of these that is shown in `scope` (itself included, windows below it not), in the
/// order in which they were made. Letters that something shown in the rest of its window has are left out, so
/// that the parts of a window may be done one by one, each again when it changed. Controls that are hidden
/// keep what they have. Answers the widgets whose text changed. What a screen reader says of them stays free
/// of letters in brackets.
std::vector<QWidget*> give_mnemonics(QWidget& scope);

/// Makes the push buttons shown in `scope` equally high, as high as the highest of their texts asks for:
/// those in another script than the rest of a row may need more.
void level_buttons(QWidget& scope);

/// What the widget says in Latin letters, for texts in other scripts (LabelText::latin).
void set_latin_text(QWidget& widget, const QString& text);

} // namespace specialpages::qt
