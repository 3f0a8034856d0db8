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
        item.setToolTip({});
    } else {
        if (!format_) {
            constexpr const char* kBareFormat = "%@: %@";
            format_ = bundle_ == nullptr
                          ? kBareFormat
                          : bundle_->localizedStringForKey(kConflictToolTipKey, kBareFormat, {});
        }
        item.setToolTip(conflict_text(*format_, reason));
    }
    item.setEnabled(enabled);
}

} // namespace specialpages
