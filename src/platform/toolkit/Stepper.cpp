#include "platform/toolkit/Stepper.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace specialpages::platform {

std::int32_t Stepper::held(std::int32_t value) const {
    constexpr double lowest = std::numeric_limits<std::int32_t>::min();
    constexpr double highest = std::numeric_limits<std::int32_t>::max();
    const double low = std::clamp(std::ceil(min_), lowest, highest);
    const double high = std::clamp(std::floor(max_), lowest, highest);
    // A range between two whole numbers holds none; its lower end is then rounded up.
    return static_cast<std::int32_t>(std::max(low, std::min(high, static_cast<double>(value))));
}

void Stepper::setIntValue(std::int32_t value) {
    const std::int32_t next = held(value);
    if (value_ != next) {
        value_ = next;
        announce(ViewChange::value);
    }
}

void Stepper::setRange(double min, double max) {
    if (std::isnan(min) || std::isnan(max)) {
        return;
    }
    const auto [low, high] = std::minmax({min, max});
    if (min_ == low && max_ == high) {
        return;
    }
    min_ = low;
    max_ = high;
    announce(ViewChange::range);
    setIntValue(value_);
}

void Stepper::setIncrement(std::int32_t increment) {
    if (increment_ != increment) {
        increment_ = increment;
        announce(ViewChange::range);
    }
}

bool Stepper::step(std::int32_t value) {
    if (!acceptsEvents()) {
        return false;
    }
    setIntValue(value);
    sendAction();
    return true;
}

} // namespace specialpages::platform
