// The application: modal runs, the front window, alerts and beeps. A face supplies the events.
#pragma once

#include "platform/export.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace specialpages::platform {

class Window;

/// A message with one button.
struct Alert {
    std::string messageText;
    std::string informativeText;
    std::string buttonTitle;
};

/// What runs events and shows what is not a view. Borrowed by the application.
class SPECIALPAGES_PLATFORM_API ApplicationFace {
  public:
    virtual ~ApplicationFace();
    /// Handles events until `stopped` answers true, asked after each event. Returning earlier gives the run
    /// up: the application then presses the window's Cancel button and ends the run whatever that did.
    virtual void runEvents(Window& window, const std::function<bool()>& stopped) = 0;
    virtual void showAlert(const Alert& alert) = 0;
    virtual void beep() = 0;
};

class SPECIALPAGES_PLATFORM_API Application {
  public:
    static Application& shared();

    /// Opens the window, makes it the front window and returns when stopModal ended this run. Runs nest. A
    /// window that is in a modal run already is not run again: the call returns at once. Without a face the
    /// run is given up at once.
    void runModalForWindow(Window& window);
    /// Ends the innermost run at the end of the current event; nothing without a run.
    void stopModal();
    /// The window of the innermost run, else the main window; null when there is neither.
    Window* frontWindow() const;
    /// The window that is in front when no modal run is on; borrowed, null for none.
    void setMainWindow(Window* window) { mainWindow_ = window; }
    std::size_t modalDepth() const { return runs_.size(); }

    void NSBeep();
    void runAlert(const Alert& alert);

    /// Sets the face (null: none) and answers the one before.
    ApplicationFace* setFace(ApplicationFace* face);

  private:
    friend class Window;
    /// A window that is destroyed is in front no more, and its run is over.
    void forget(const Window& window);
    bool isRunning(const Window& window) const;
    struct Run {
        Window* window = nullptr;
        bool stopped = false;
    };
    std::vector<Run> runs_;
    Window* mainWindow_ = nullptr;
    ApplicationFace* face_ = nullptr;
};

} // namespace specialpages::platform
