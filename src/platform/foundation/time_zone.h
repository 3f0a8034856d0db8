// The user's time zone (ICU), with a seam for tests.
#pragma once

#include "platform/export.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace specialpages::platform {

/// IANA name of the local zone ("Europe/Berlin"): $TZ or the system's setting, "Etc/Unknown" when nothing
/// tells.
SPECIALPAGES_PLATFORM_API std::string local_time_zone_name();

/// Seconds that local time is ahead of UTC at that moment, daylight saving included; east is positive.
SPECIALPAGES_PLATFORM_API std::int32_t seconds_from_gmt(std::chrono::system_clock::time_point moment);

/// Whether daylight saving is on at that moment. False when nothing tells the zone.
SPECIALPAGES_PLATFORM_API bool is_daylight_saving_time(std::chrono::system_clock::time_point moment);

/// Puts a fixed IANA zone in place of the system's; empty optional brings the system's back.
SPECIALPAGES_PLATFORM_API void set_local_time_zone(std::optional<std::string> name);

} // namespace specialpages::platform
