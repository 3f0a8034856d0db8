#include "qt/ScrollTextWidget.h"

#include <QTextDocument>

namespace specialpages::qt {

namespace {

/// Room for the three parts of a paper, each in a line, and for one that is broken in two.
constexpr int kLines = 5;
constexpr int kCharacters = 36;

} // namespace

ScrollTextWidget::ScrollTextWidget(QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
    setTabChangesFocus(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

QSize ScrollTextWidget::sizeHint() const {
    const int around = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    return {kCharacters * fontMetrics().averageCharWidth() + around,
            kLines * fontMetrics().lineSpacing() + around};
}

} // namespace specialpages::qt
