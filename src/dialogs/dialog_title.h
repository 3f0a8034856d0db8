// The title of a dialog that serves both adding and editing.
#pragma once

#include <cstdint>

namespace specialpages::platform {
class Bundle;
class Window;
} // namespace specialpages::platform

namespace specialpages {

/// Sets the localised title (default table) of the key for what the list is doing: kSummaryAdding or
/// kSummaryEditing. Any other status keeps the title; nothing without a window or a bundle.
void set_title_for_status(platform::Window* window, platform::Bundle* bundle, std::int64_t status,
                          const char* addingKey, const char* editingKey);

} // namespace specialpages
