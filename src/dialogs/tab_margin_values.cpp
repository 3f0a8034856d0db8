#include "dialogs/tab_margin_values.h"

#include "platform/foundation/numbers.h"
#include "support/units.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace specialpages {

namespace {

constexpr double kTenthsOfMillimetre = 10.0;
constexpr double kHundredthsOfInch = 100.0;
/// The double that the float 25.4 has, not the exact factor.
constexpr double kMillimetresInInch = static_cast<double>(25.4F);
constexpr float kTenthsInHundredth = 2.54F;

bool in_inches(std::int32_t longMeasure) {
    return longMeasure == kLongMeasureInches;
}

/// The number without its fraction; saturated.
template <typename Real>
std::int32_t truncated(Real number) {
    constexpr auto kLowest = std::numeric_limits<std::int32_t>::min();
    constexpr auto kHighest = std::numeric_limits<std::int32_t>::max();
    if (number <= static_cast<Real>(kLowest)) {
        return kLowest;
    }
    return number >= static_cast<Real>(kHighest) ? kHighest : static_cast<std::int32_t>(number);
}

std::int32_t value_of(std::string_view text, std::int32_t longMeasure) {
    return truncated(platform::double_value(text) *
                     (in_inches(longMeasure) ? kHundredthsOfInch : kTenthsOfMillimetre));
}

} // namespace

std::int32_t tab_margin_stepper_value(std::string_view text, std::int32_t longMeasure) {
    if (!in_inches(longMeasure)) {
        return value_of(text, longMeasure);
    }
    constexpr float kThousandths = 1000.0F;
    constexpr float kHalfHundredth = 5.0F;
    const auto inches = static_cast<float>(platform::double_value(text));
    return truncated(inches * kThousandths + kHalfHundredth) / 10;
}

std::string tab_margin_text(std::int32_t value, std::int32_t longMeasure) {
    const std::int64_t digits = std::abs(std::int64_t{value});
    const std::string sign = value < 0 ? "-" : "";
    const std::string head = platform::decimal_text(digits / 10);
    const std::string last = platform::decimal_text(digits % 10);
    return in_inches(longMeasure) ? sign + "0." + head + last : sign + head + "." + last;
}

bool is_tab_margin(std::string_view text, std::int32_t longMeasure, const EditValueRangeData& range) {
    if (text.empty() || text.front() == '.' || text.back() == '.') {
        return false;
    }
    const std::int32_t points = GetStringPointCount(text);
    const std::int32_t decimals = in_inches(longMeasure) ? 2 : 1;
    const auto length = static_cast<std::int32_t>(text.size());
    if (points > 1 || (points == 1 && GetStringPointIndex(text) != length - decimals)) {
        return false;
    }
    const std::int32_t value = value_of(text, longMeasure);
    return value >= range.minimum && value <= range.maximum;
}

std::int32_t tab_margin_from_twin(std::string_view twinText, std::int32_t longMeasure,
                                  const EditValueRangeData& range) {
    constexpr float kHalf = 0.5F;
    const double number = platform::double_value(twinText);
    const float converted = in_inches(longMeasure)
                                ? static_cast<float>(number * kTenthsOfMillimetre) / kTenthsInHundredth
                                : static_cast<float>(number * kMillimetresInInch * kTenthsOfMillimetre);
    return twinText.starts_with('-') ? std::max(truncated(converted - kHalf), range.minimum)
                                     : std::min(truncated(converted + kHalf), range.maximum);
}

} // namespace specialpages
