// What the user is doing with the list of special pages. The dialogs tell an add from an edit by it.
#pragma once

#include <cstdint>

namespace specialpages {

enum : std::int64_t { kSummaryIdle = 0, kSummaryAdding = 1, kSummaryEditing = 2 };

} // namespace specialpages
