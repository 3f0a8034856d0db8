#include "platform/foundation/clock.h"

namespace specialpages::platform {

namespace {

std::optional<std::chrono::system_clock::time_point>& fixed_moment() {
    static std::optional<std::chrono::system_clock::time_point> moment;
    return moment;
}

} // namespace

std::chrono::system_clock::time_point now() {
    return fixed_moment().value_or(std::chrono::system_clock::now());
}

void set_clock(std::optional<std::chrono::system_clock::time_point> moment) {
    fixed_moment() = moment;
}

} // namespace specialpages::platform
