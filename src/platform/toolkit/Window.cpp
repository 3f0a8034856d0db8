#include "platform/toolkit/Window.h"

#include "platform/toolkit/Application.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/TextField.h"

#include <utility>

namespace specialpages::platform {

Window::~Window() {
    Application::shared().forget(*this);
}

void Window::setTitle(std::string title) {
    if (title_ != title) {
        title_ = std::move(title);
        announce(ViewChange::title);
    }
}

void Window::open() {
    if (!open_) {
        open_ = true;
        announce(ViewChange::open);
    }
}

void Window::close() {
    if (open_) {
        open_ = false;
        announce(ViewChange::open);
    }
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

bool Window::performCancel() {
    return cancelButton_ != nullptr && cancelButton_->click();
}

bool Window::performDefault() {
    return defaultButton_ != nullptr && defaultButton_->click();
}

} // namespace specialpages::platform
