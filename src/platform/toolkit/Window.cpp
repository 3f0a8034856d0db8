#include "platform/toolkit/Window.h"

#include "platform/toolkit/Button.h"

#include <utility>

namespace specialpages::platform {

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

bool Window::performCancel() {
    return cancelButton_ != nullptr && cancelButton_->click();
}

bool Window::performDefault() {
    return defaultButton_ != nullptr && defaultButton_->click();
}

} // namespace specialpages::platform
