#include "dialogs/custom_size_values.h"

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
/// The doubles that the floats 25.4 and 2.54 have, not the exact factors.
constexpr double kMillimetresInInch = static_cast<double>(25.4F);
constexpr double kTenthsInHundredth = static_cast<double>(2.54F);

bool in_inches(std::int32_t longMeasure) {
    return longMeasure == kLongMeasureInches;
}

double scale_of(std::int32_t longMeasure) {
    return in_inches(longMeasure) ? kHundredthsOfInch : kTenthsOfMillimetre;
}

std::int32_t decimals_of(std::int32_t longMeasure) {
    return in_inches(longMeasure) ? 2 : 1;
}

/// `number` has no fraction and is no NaN.
template <typename Real>
std::int32_t saturated_whole(Real number) {
    constexpr auto kLowest = std::numeric_limits<std::int32_t>::min();
    constexpr auto kHighest = std::numeric_limits<std::int32_t>::max();
    if (number <= static_cast<Real>(kLowest)) {
        return kLowest;
    }
    return number >= static_cast<Real>(kHighest) ? kHighest : static_cast<std::int32_t>(number);
}

std::int32_t rounded(double number) {
    return saturated_whole(std::nearbyint(number));
}

} // namespace

std::int32_t custom_size_value(std::string_view text, std::int32_t longMeasure) {
    return rounded(platform::double_value(text) * scale_of(longMeasure));
}

std::int32_t custom_size_stepper_value(std::string_view text, std::int32_t longMeasure) {
    if (!in_inches(longMeasure)) {
        return custom_size_value(text, longMeasure);
    }
    constexpr float kThousandths = 1000.0F;
    constexpr float kHalfHundredth = 5.0F;
    const auto inches = static_cast<float>(platform::double_value(text));
    return saturated_whole(std::trunc(inches * kThousandths + kHalfHundredth)) / 10;
}

std::string custom_size_text(std::int32_t value, std::int32_t longMeasure) {
    const std::int32_t decimals = decimals_of(longMeasure);
    std::string digits = platform::decimal_text(std::abs(std::int64_t{value}));
    const auto least = static_cast<std::size_t>(decimals) + 1;
    if (digits.size() < least) {
        digits.insert(0, least - digits.size(), '0');
    }
    digits.insert(digits.size() - static_cast<std::size_t>(decimals), 1, '.');
    return value < 0 ? "-" + digits : digits;
}

bool is_custom_size(std::string_view text, std::int32_t longMeasure, const EditValueRangeData& range) {
    if (text.empty() || text.front() == '.' || text.back() == '.') {
        return false;
    }
    const std::int32_t points = GetStringPointCount(text);
    const auto length = static_cast<std::int32_t>(text.size());
    if (points > 1 || (points == 1 && GetStringPointIndex(text) != length - decimals_of(longMeasure))) {
        return false;
    }
    const std::int32_t value = custom_size_value(text, longMeasure);
    return value >= range.minimum && value <= range.maximum;
}

std::int32_t held_to(const EditValueRangeData& range, std::int32_t value) {
    return std::max(std::min(value, range.maximum), range.minimum);
}

std::int32_t custom_size_from_twin(std::string_view twinText, const EditValueRangeData& twinRange,
                                   std::int32_t longMeasure, const EditValueRangeData& range) {
    const std::int32_t twinMeasure = in_inches(longMeasure) ? kLongMeasureMillimetres : kLongMeasureInches;
    const std::int32_t twinValue = custom_size_value(twinText, twinMeasure);
    if (twinValue == twinRange.minimum) {
        return range.minimum;
    }
    const double number = platform::double_value(twinText);
    const std::int32_t converted = twinValue == twinRange.maximum ? range.maximum
                                   : in_inches(longMeasure)
                                       ? rounded(number * kTenthsOfMillimetre / kTenthsInHundredth)
                                       : rounded(number * kMillimetresInInch * kTenthsOfMillimetre);
    return held_to(range, converted);
}

std::int32_t custom_size_stepper_from_stored(std::string_view stored, std::int32_t longMeasure) {
    const std::int32_t tenths = GetMillimetreFromStr(stored);
    if (!in_inches(longMeasure)) {
        return tenths;
    }
    constexpr float kHalf = 0.5F;
    return saturated_whole(std::trunc(static_cast<float>(tenths) / 2.54F + kHalf));
}

} // namespace specialpages
