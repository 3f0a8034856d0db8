// One view of the model and the widget that shows it. A change of the view changes the widget, and nothing is
// sent back; what a user does to the widget becomes one of the view's own events.
#pragma once

#include "platform/toolkit/View.h"

#include <functional>
#include <memory>

class QWidget;

namespace specialpages::qt {

/// Told of each change that is made to a widget, and of which of its view's changes made it.
using TouchObserver = std::function<void(QWidget& widget, platform::ViewChange change)>;

class ViewBinding {
  public:
    /// Both are borrowed and outlive the binding.
    ViewBinding(platform::View& view, QWidget& widget);
    virtual ~ViewBinding();
    ViewBinding(const ViewBinding&) = delete;
    ViewBinding& operator=(const ViewBinding&) = delete;

    platform::View& view() const { return view_; }
    QWidget& widget() const { return widget_; }

    /// Brings the whole widget in line with the view and follows it from now on.
    void follow(const TouchObserver& touched);

  protected:
    /// Shows what changed, of the changes that the view's kind makes; false when nothing of the widget had to
    /// change.
    virtual bool show(platform::ViewChange change) = 0;
    /// Shows everything that the view's kind adds to a view.
    virtual void showAll() = 0;

  private:
    bool showCommon(platform::ViewChange change);
    void changed(platform::ViewChange change);

    platform::View& view_;
    QWidget& widget_;
    TouchObserver touched_;
    int observer_ = 0;
};

/// The binding for the view's kind. The widget is one that NibWidgets made for it.
std::unique_ptr<ViewBinding> make_binding(platform::View& view, QWidget& widget);

} // namespace specialpages::qt
