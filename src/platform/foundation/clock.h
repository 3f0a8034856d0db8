// The time that it is, with a seam for tests.
#pragma once

#include "platform/export.h"

#include <chrono>
#include <optional>

namespace specialpages::platform {

/// The system's time, or the moment that was set.
SPECIALPAGES_PLATFORM_API std::chrono::system_clock::time_point now();

/// Lets the clock stand still at that moment; empty optional brings the system's clock back.
SPECIALPAGES_PLATFORM_API void set_clock(std::optional<std::chrono::system_clock::time_point> moment);

} // namespace specialpages::platform
