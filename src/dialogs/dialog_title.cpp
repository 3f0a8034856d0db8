#include "dialogs/dialog_title.h"

#include "platform/foundation/Bundle.h"
#include "platform/toolkit/Window.h"
#include "records/summary_status.h"
#include "support/identifiers.h"

namespace specialpages {

void set_title_for_status(platform::Window* window, platform::Bundle* bundle, std::int64_t status,
                          const char* addingKey, const char* editingKey) {
    const char* key = status == kSummaryAdding ? addingKey : status == kSummaryEditing ? editingKey : nullptr;
    if (key != nullptr && window != nullptr && bundle != nullptr) {
        window->setTitle(bundle->localizedStringForKey(key, kNoTranslation, {}));
    }
}

} // namespace specialpages
