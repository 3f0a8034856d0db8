// A window: a title, a tree of views, a first responder, and the buttons that Return and Escape press.
#pragma once

#include "platform/toolkit/View.h"

namespace specialpages::platform {

class Button;

class SPECIALPAGES_PLATFORM_API Window : public View {
  public:
    Window() : View(ViewKind::window) {}
    ~Window() override;

    const std::string& title() const { return title_; }
    void setTitle(std::string title);

    bool isOpen() const { return open_; }
    /// Opening a window that is open, or closing a closed one, does nothing.
    void open();
    void close();

    /// The view that has the keyboard; null when none has. Leaving a text field ends its editing.
    View* firstResponder() const { return firstResponder_; }
    /// Announced as ViewChange::focus of the window; null takes the keyboard away. False, and nothing
    /// happens, when the view stands in another window, is disabled or not shown. False too when the action
    /// of the field that was left moved the keyboard elsewhere.
    bool makeFirstResponder(View* view);

    /// The buttons that Return and Escape stand for; borrowed, null for none.
    void setDefaultButton(Button* button) { defaultButton_ = button; }
    void setCancelButton(Button* button) { cancelButton_ = button; }
    Button* defaultButton() const { return defaultButton_; }
    Button* cancelButton() const { return cancelButton_; }

    /// Escape and the close box: the Cancel button's click. A window without one ignores them. False when
    /// nothing was pressed.
    bool performCancel();
    bool performDefault();

  private:
    std::string title_;
    bool open_ = false;
    View* firstResponder_ = nullptr;
    Button* defaultButton_ = nullptr;
    Button* cancelButton_ = nullptr;
};

} // namespace specialpages::platform
