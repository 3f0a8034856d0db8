#include "platform/foundation/time_zone.h"

#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <memory>
#include <utility>

namespace specialpages::platform {

namespace {

std::optional<std::string>& fixed_zone() {
    static std::optional<std::string> name;
    return name;
}

/// Detected anew each time: a change of $TZ holds from the next question on.
std::unique_ptr<icu::TimeZone> local_zone() {
    if (const auto& name = fixed_zone(); name) {
        return std::unique_ptr<icu::TimeZone>(
            icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(*name)));
    }
    return std::unique_ptr<icu::TimeZone>(icu::TimeZone::detectHostTimeZone());
}

/// Milliseconds that local time is ahead of UTC: the zone's own, and what daylight saving adds.
struct Offsets {
    std::int32_t raw = 0;
    std::int32_t daylight = 0;
};

Offsets local_offsets(std::chrono::system_clock::time_point moment) {
    const auto milliseconds =
        std::chrono::floor<std::chrono::milliseconds>(moment.time_since_epoch()).count();
    Offsets offsets;
    UErrorCode status = U_ZERO_ERROR;
    local_zone()->getOffset(static_cast<UDate>(milliseconds), false, offsets.raw, offsets.daylight, status);
    return U_FAILURE(status) ? Offsets{} : offsets;
}

} // namespace

std::string local_time_zone_name() {
    icu::UnicodeString identifier;
    local_zone()->getID(identifier);
    std::string name;
    return identifier.toUTF8String(name);
}

std::int32_t seconds_from_gmt(std::chrono::system_clock::time_point moment) {
    const Offsets offsets = local_offsets(moment);
    return (offsets.raw + offsets.daylight) / 1000;
}

bool is_daylight_saving_time(std::chrono::system_clock::time_point moment) {
    return local_offsets(moment).daylight != 0;
}

void set_local_time_zone(std::optional<std::string> name) {
    fixed_zone() = std::move(name);
}

} // namespace specialpages::platform
