#include "platform/toolkit/Button.h"

namespace specialpages::platform {

void Button::setTitle(std::string title) {
    if (title_ != title) {
        title_ = std::move(title);
        announce(ViewChange::title);
    }
}

void Button::setIntValue(std::int32_t value) {
    const std::int32_t held = kind() == ViewKind::radio && value != 0 ? 1 : value;
    if (value_ != held) {
        value_ = held;
        announce(ViewChange::value);
    }
}

bool Button::click() {
    if (!acceptsEvents()) {
        return false;
    }
    if (kind() == ViewKind::radio) {
        setIntValue(1);
    }
    sendAction();
    return true;
}

} // namespace specialpages::platform
