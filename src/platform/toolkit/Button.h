// Push buttons and radio buttons.
#pragma once

#include "platform/toolkit/View.h"

namespace specialpages::platform {

/// A push button (kind button) or a radio button (kind radio, whose intValue is its state, 0 or 1).
class SPECIALPAGES_PLATFORM_API Button : public View {
  public:
    explicit Button(ViewKind kind = ViewKind::button) : View(kind) {}

    const std::string& title() const { return title_; }
    void setTitle(std::string title);
    std::int32_t intValue() const { return value_; }
    /// By program: no action fires. A radio button holds 0 or 1, any other number counting as 1.
    void setIntValue(std::int32_t value);

    /// The user's click: a radio button goes on first, then the action fires. False, and nothing happens,
    /// when the button does not accept events.
    bool click();

  private:
    std::string title_;
    std::int32_t value_ = 0;
};

} // namespace specialpages::platform
