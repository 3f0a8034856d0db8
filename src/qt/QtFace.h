// The application's face in a window: modal runs are modal dialogs, alerts message boxes, beeps beeps.
#pragma once

#include "platform/toolkit/Application.h"

#include <QPointer>
#include <vector>

class QEventLoop;
class QWidget;

namespace specialpages::qt {

class WindowWidgets;

class QtFace : public platform::ApplicationFace {
  public:
    /// It is the application's face while it lives. Needs a QApplication.
    QtFace();
    ~QtFace() override;
    QtFace(const QtFace&) = delete;
    QtFace& operator=(const QtFace&) = delete;

    /// The pane whose windows are run from now on; borrowed, null for none.
    void setPane(WindowWidgets* pane) { pane_ = pane; }
    WindowWidgets* pane() const { return pane_; }

    /// Ends the innermost run, which the application then cancels; nothing without a run.
    void giveUp();

    /// Runs the dialog of the window until it is stopped. Given up when the window has no widgets, and when
    /// the application quits.
    void runEvents(platform::Window& window, const std::function<bool()>& stopped) override;
    void showAlert(const platform::Alert& alert) override;
    void beep() override;

  private:
    platform::ApplicationFace* before_;
    WindowWidgets* pane_ = nullptr;
    std::vector<QEventLoop*> loops_;
};

} // namespace specialpages::qt
