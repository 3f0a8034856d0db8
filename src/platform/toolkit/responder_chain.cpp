// How views, their window, the field that is being edited and the application find each other. These few
// operations need all four and stand together here, so that no class of the toolkit has to include one that
// includes it.
#include "platform/toolkit/Application.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/View.h"
#include "platform/toolkit/Window.h"

#include <cassert>
#include <utility>

namespace specialpages::platform {

namespace {

bool stands_in(const View* view, const View& tree) {
    while (view != nullptr && view != &tree) {
        view = view->superview();
    }
    return view != nullptr;
}

} // namespace

View& View::addSubview(std::shared_ptr<View> subview) {
    assert(subview != nullptr);
    View& added = *subview;
    if (added.superview_ == this || stands_in(this, added)) {
        return added;
    }
    if (added.superview_ != nullptr) {
        Window* left = added.window();
        if (left != nullptr && left != &added && stands_in(left->firstResponder(), added)) {
            left->makeFirstResponder(nullptr);
        }
        std::erase(added.superview_->subviews_, subview);
    }
    added.superview_ = this;
    subviews_.push_back(std::move(subview));
    return added;
}

Window* View::window() {
    for (View* view = this; view != nullptr; view = view->superview_) {
        if (auto* window = dynamic_cast<Window*>(view)) {
            return window;
        }
    }
    return nullptr;
}

bool View::acceptsEvents() {
    Window* mine = window();
    return enabled_ && isVisible() && (mine == nullptr || mine == Application::shared().frontWindow());
}

Window::~Window() {
    Application::shared().forget(*this);
}

bool Window::makeFirstResponder(View* view) {
    if (view == firstResponder_) {
        return true;
    }
    if (view != nullptr && (view->window() != this || !view->isEnabled() || !view->isVisible())) {
        return false;
    }
    auto* left = dynamic_cast<TextField*>(std::exchange(firstResponder_, view));
    announce(ViewChange::focus);
    if (left != nullptr) {
        left->endEditing();
    }
    return firstResponder_ == view;
}

bool TextField::beginEditing() {
    if (!editable() || !acceptsEvents()) {
        return false;
    }
    if (editing_) {
        return true;
    }
    // The action of the field that is left may do anything to this one.
    if (Window* mine = window(); mine != nullptr && (!mine->makeFirstResponder(this) || !acceptsEvents())) {
        return false;
    }
    editing_ = true;
    valueAtStart_ = value_;
    announce(ViewChange::focus);
    return true;
}

void TextField::endEditing() {
    if (!editing_) {
        return;
    }
    editing_ = false;
    commit();
    const bool changed = value_ != valueAtStart_;
    if (Window* mine = window(); mine != nullptr && mine->firstResponder() == this) {
        mine->makeFirstResponder(nullptr);
    }
    announce(ViewChange::focus);
    if (changed) {
        sendAction();
    }
}

} // namespace specialpages::platform
