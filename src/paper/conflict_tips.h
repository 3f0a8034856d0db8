// Shows on a menu item whether it is allowed: a forbidden item is disabled, and its tool tip says which
// choice forbids it.
#pragma once

#include "ppd/choice_conflict.h"

#include <optional>
#include <string>

namespace specialpages::platform {
class Bundle;
class MenuItem;
} // namespace specialpages::platform

namespace specialpages {

/// One re-check of a menu. The words are looked up at the first forbidden item.
class ConflictTips {
  public:
    /// `bundle` may be null: the tool tip then has no words around the PPD's own.
    explicit ConflictTips(platform::Bundle* bundle) : bundle_(bundle) {}
    /// Both pointers of `reason` null: the item is allowed.
    void show(platform::MenuItem& item, const ConflictingChoice& reason);
    /// The same for an item whose state was decided by something else, with or without a reason.
    void show(platform::MenuItem& item, bool enabled, const ConflictingChoice& reason);

  private:
    const std::string& words_for(const ConflictingChoice& reason);

    platform::Bundle* bundle_;
    std::optional<std::string> format_;
    /// The reason that was put into words last: many items in a row have the same.
    const ppd_choice_t* worded_ = nullptr;
    std::string words_;
};

} // namespace specialpages
