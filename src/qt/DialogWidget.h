// A window of the pane. It never closes itself: Return, Escape and the close box are events that the window's
// model answers by closing it, or does not.
#pragma once

#include <QDialog>
#include <functional>

namespace specialpages::qt {

class DialogWidget : public QDialog {
  public:
    explicit DialogWidget(QWidget* parent);

    /// What Return and Escape (or the close box) do.
    void setHandlers(std::function<void()> accepted, std::function<void()> cancelled);

    void accept() override;
    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    std::function<void()> accepted_;
    std::function<void()> cancelled_;
};

} // namespace specialpages::qt
