// A window of the pane. It never closes itself: Return, Escape and the close box are events that the window's
// model answers by closing it, or does not.
#pragma once

#include <QDialog>
#include <functional>

namespace specialpages::qt {

class StatusLine;

class DialogWidget : public QDialog {
  public:
    explicit DialogWidget(QWidget* parent);

    /// What Return and Escape (or the close box) do.
    void setHandlers(std::function<void()> accepted, std::function<void()> cancelled);

    /// Makes the window of the dialog, so that it stands over `opener`, a window that has been shown. (Asking
    /// for the window's number would make windows of all widgets above and beside the dialog.)
    void standOver(QWidget& opener);

    /// Gives the dialog a status line at its foot, below the buttons, where a menu of a list rarely reaches;
    /// the dialog has its layout. Status tips of anything in it (QStatusTipEvent) are shown there from now
    /// on.
    void addStatusLine();
    /// Null without one; owned by the dialog.
    StatusLine* statusLine() const { return statusLine_; }

    void accept() override;
    void reject() override;

  protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    std::function<void()> accepted_;
    std::function<void()> cancelled_;
    StatusLine* statusLine_ = nullptr;
};

} // namespace specialpages::qt
