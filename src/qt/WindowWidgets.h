// What a face needs of the pane that is shown: the widgets of its windows.
#pragma once

namespace specialpages::platform {
class Window;
}

namespace specialpages::qt {

class DialogWidget;

class WindowWidgets {
  public:
    WindowWidgets() = default;
    WindowWidgets(const WindowWidgets&) = delete;
    WindowWidgets& operator=(const WindowWidgets&) = delete;
    virtual ~WindowWidgets() = default;

    /// The widget that shows the window, in line with it; null when the window is none of this pane's or
    /// cannot be shown.
    virtual DialogWidget* widgetsOf(platform::Window& window) = 0;
    /// Moves the keyboard to where the window has it.
    virtual void showFocus(const platform::Window& window) = 0;
};

} // namespace specialpages::qt
