#include "platform/foundation/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <system_error>

namespace specialpages::platform {

namespace {

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

/// The text after its leading blanks, those of the C locale.
std::string_view skip_blanks(std::string_view text) {
    const auto start = text.find_first_not_of(" \t\n\v\f\r");
    return start == std::string_view::npos ? std::string_view{} : text.substr(start);
}

/// Takes one "+" or "-" from the head; true for "-".
bool take_sign(std::string_view& text) {
    if (text.empty() || (text.front() != '+' && text.front() != '-')) {
        return false;
    }
    const bool negative = text.front() == '-';
    text.remove_prefix(1);
    return negative;
}

/// Whether a decimal number without a sign starts here. Keeps "inf" and "nan" away from std::from_chars.
bool starts_decimal(std::string_view text) {
    return !text.empty() &&
           (is_digit(text.front()) || (text.front() == '.' && text.size() > 1 && is_digit(text[1])));
}

/// The power of ten of the first digit that is not 0, for a number that a double cannot hold.
std::int64_t decimal_magnitude(std::string_view number) {
    const std::size_t exponent_at = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, exponent_at);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    const std::int64_t place = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
    return place + (exponent_at < number.size() ? int_value(number.substr(exponent_at + 1)) : 0);
}

} // namespace

std::int32_t int_value(std::string_view text) {
    text = skip_blanks(text);
    const bool negative = take_sign(text);
    if (text.empty() || !is_digit(text.front())) {
        return 0;
    }
    constexpr std::int64_t kLowest = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t kHighest = std::numeric_limits<std::int32_t>::max();
    std::int64_t value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        value = std::numeric_limits<std::int64_t>::max();
    }
    return static_cast<std::int32_t>(std::clamp(negative ? -value : value, kLowest, kHighest));
}

double double_value(std::string_view text) {
    text = skip_blanks(text);
    const bool negative = take_sign(text);
    if (!starts_decimal(text)) {
        return 0.0;
    }
    double value = 0.0;
    const auto result =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::general);
    if (result.ec == std::errc::result_out_of_range) {
        const std::string_view number(text.data(), static_cast<std::size_t>(result.ptr - text.data()));
        value = decimal_magnitude(number) > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return negative ? -value : value;
}

std::string decimal_text(std::int64_t value) {
    std::array<char, 24> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), result.ptr};
}

} // namespace specialpages::platform
