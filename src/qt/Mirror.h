// The mirror between a pane's views and the widgets of its nib: every view below a top-level view is bound to
// the widget of its name.
#pragma once

#include "qt/ViewBinding.h"

#include <map>
#include <memory>
#include <string>

namespace specialpages::platform {
class Window;
}

namespace specialpages::qt {

class NibWidgets;

class Mirror {
  public:
    /// Borrowed; it outlives the mirror.
    explicit Mirror(const NibWidgets& nib) : nib_(nib) {}
    ~Mirror();
    Mirror(const Mirror&) = delete;
    Mirror& operator=(const Mirror&) = delete;

    /// Binds the view and all below it, and shows how they stand; nothing for a view that is bound. A widget
    /// whose nib says `nameFrom` bears the text of the label of that name for assistive tools. The views
    /// outlive the mirror. Buttons and labels get their letters (window_mnemonics.h), now and whenever a text
    /// or what is shown has changed. HostError (other) for a view with a name that has no widget; views
    /// without one (made in code) are not shown.
    void bind(platform::View& view);
    /// Null for a view that is not bound.
    QWidget* widgetOf(const platform::View& view) const;
    /// Moves the keyboard to the window's first responder, a field's text being selected; nothing without
    /// one.
    void showFocus(const platform::Window& window) const;

    /// Moves the keyboard along with the window's first responder from now on. The window outlives the
    /// mirror.
    void followFocus(platform::Window& window);

    /// Hears of every change of a widget from now on; null: nobody.
    void setTouchObserver(TouchObserver observer) { touched_ = std::move(observer); }

  private:
    void bindBelow(platform::View& view, QWidget& scope);
    void changed(platform::View& view, QWidget& touched, platform::ViewChange change, QWidget& scope);
    void giveLetters(QWidget& scope);
    void nameAfter(const std::string& label);

    const NibWidgets& nib_;
    TouchObserver touched_;
    std::map<const platform::View*, std::unique_ptr<ViewBinding>> bindings_;
    std::map<platform::Window*, int> focusObservers_;
};

} // namespace specialpages::qt
