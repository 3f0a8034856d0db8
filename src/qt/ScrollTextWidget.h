// A scrolling text that is read, not edited: as wide and high as a paper's description asks for in the user's
// font.
#pragma once

#include <QPlainTextEdit>

namespace specialpages::qt {

class ScrollTextWidget : public QPlainTextEdit {
  public:
    explicit ScrollTextWidget(QWidget* parent);
    QSize sizeHint() const override;
};

} // namespace specialpages::qt
