#include "support/leading_number.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace specialpages {

LeadingInteger leading_integer(std::string_view text) {
    const std::size_t blanks = std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size());
    std::string_view number = text.substr(blanks);
    const bool negative = number.starts_with('-');
    const std::size_t sign = negative || number.starts_with('+') ? 1 : 0;
    number.remove_prefix(sign);
    if (number.empty() || number.front() < '0' || number.front() > '9') {
        return {};
    }
    // The sign is read here, since from_chars knows no "+"; the magnitude is read without one, so that the
    // smallest value too saturates rather than wraps.
    std::uint64_t magnitude = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), magnitude);
    constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    LeadingInteger result;
    result.consumed = blanks + sign + static_cast<std::size_t>(end - number.data());
    if (error == std::errc::result_out_of_range || magnitude > largest) {
        result.value =
            negative ? std::numeric_limits<std::int64_t>::min() : std::numeric_limits<std::int64_t>::max();
    } else {
        result.value =
            negative ? -static_cast<std::int64_t>(magnitude) : static_cast<std::int64_t>(magnitude);
    }
    return result;
}

std::int32_t saturated(std::int64_t value) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, std::numeric_limits<std::int32_t>::min(),
                                                              std::numeric_limits<std::int32_t>::max()));
}

} // namespace specialpages
