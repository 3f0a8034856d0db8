#include "paper/conflict_tips.h"

#include "paper/paper_texts.h"
#include "platform/foundation/Bundle.h"
#include "platform/toolkit/PopUpButton.h"

namespace specialpages {

void ConflictTips::show(platform::MenuItem& item, const ConflictingChoice& reason) {
    show(item, reason.choice == nullptr, reason);
}

void ConflictTips::show(platform::MenuItem& item, bool enabled, const ConflictingChoice& reason) {
    if (enabled || reason.choice == nullptr) {
        if (!item.toolTip().empty()) {
            item.setToolTip({});
        }
    } else if (item.toolTip() != words_for(reason)) {
        item.setToolTip(words_);
    }
    if (item.isEnabled() != enabled) {
        item.setEnabled(enabled);
    }
}

const std::string& ConflictTips::words_for(const ConflictingChoice& reason) {
    if (reason.choice == worded_) {
        return words_;
    }
    if (!format_) {
        constexpr const char* kBareFormat = "%@: %@";
        format_ = bundle_ == nullptr ? kBareFormat
                                     : bundle_->localizedStringForKey(kConflictToolTipKey, kBareFormat, {});
    }
    worded_ = reason.choice;
    words_ = conflict_text(*format_, reason);
    return words_;
}

} // namespace specialpages
