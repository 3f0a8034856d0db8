#include "support/units.h"

#include "platform/foundation/numbers.h"
#include "platform/foundation/text.h"
#include "support/leading_number.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

namespace specialpages {

namespace {

using platform::decimal_text;
using platform::double_value;
using platform::int_value;

/// A point in the last two bytes of a fixed form is not looked for.
constexpr std::size_t kPointSearchBytes = 30;
/// Deleting the point moves the bytes up to this index down one place; the byte there stays as well.
constexpr std::size_t kLastMovedByte = 30;

/// Units per inch in tenths of a millimetre by hundredths of an inch: 2.54 as a 32-bit float, widened.
constexpr double kTenthsPerHundredth = 2.54F;
static_assert(kTenthsPerHundredth == 2.5399999618530273);

/// What a reader of zero-terminated text sees.
std::string_view up_to_terminator(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

std::int32_t times_ten(std::int32_t value) {
    return saturated(std::int64_t{value} * 10);
}

/// A decimal text in its 32 bytes, with the point taken out where it was found.
struct FixedForm {
    std::array<char, kFixedFormBytes> bytes{};
    bool hadPoint = false;

    explicit FixedForm(std::string_view text) {
        const std::string_view head = up_to_terminator(text).substr(0, bytes.size());
        std::copy(head.begin(), head.end(), bytes.begin());
        const auto searchEnd = bytes.begin() + kPointSearchBytes;
        const auto point = std::find(bytes.begin(), searchEnd, '.');
        hadPoint = point != searchEnd;
        if (hadPoint) {
            std::copy(point + 1, bytes.begin() + kLastMovedByte + 1, point);
        }
    }
    std::string_view digits() const { return up_to_terminator({bytes.data(), bytes.size()}); }
};

/// Nearest integer of a magnitude, ties to even, whatever rounding mode is set: the fraction of a
/// non-negative double is exact.
double round_half_even(double magnitude) {
    const double whole = std::floor(magnitude);
    const double fraction = magnitude - whole;
    const bool up = fraction > 0.5 || (fraction == 0.5 && std::fmod(whole, 2.0) != 0.0);
    return up ? whole + 1.0 : whole;
}

/// The text's UTF-16 units; none for ill-formed UTF-8.
std::u16string units_of(std::string_view text) {
    return platform::utf16_from_utf8(text).value_or(std::u16string{});
}

constexpr std::int32_t columns_of(char16_t unit, char16_t firstWide) {
    return unit < firstWide ? 1 : 2;
}

std::int32_t columns_of(const std::u16string& units, char16_t firstWide) {
    std::int64_t columns = 0;
    for (const char16_t unit : units) {
        columns += columns_of(unit, firstWide);
    }
    return saturated(columns);
}

constexpr char16_t kFirstUnitBeyondASCII = 0x80;
constexpr char16_t kFirstUnitBeyondLatin1 = 0x100;

} // namespace

std::string ConvertIntToFloatStr(std::int32_t value) {
    std::string text = decimal_text(value);
    if (text.size() == 1) {
        return "0." + text;
    }
    text.insert(text.size() - 1, 1, '.');
    return text;
}

std::int32_t ConvertFloatStrToInt(std::string_view text) {
    text = up_to_terminator(text);
    if (text.size() < 2) {
        return times_ten(int_value(text));
    }
    const std::size_t point = text.find('.');
    if (point != std::string_view::npos) {
        std::string digits(text);
        digits.erase(point, 1);
        return int_value(digits);
    }
    text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
    return times_ten(int_value(text));
}

std::int32_t GetMillimetreFromStr(std::optional<std::string_view> text) {
    if (!text) {
        return 0;
    }
    const FixedForm form(*text);
    const std::int32_t value = int_value(form.digits());
    return form.hadPoint ? value : times_ten(value);
}

std::optional<std::string> TransformMillimetreToInchs(std::optional<std::string_view> text) {
    if (!text) {
        return std::nullopt;
    }
    const FixedForm form(*text);
    const double value = double_value(form.digits());
    const double tenths = std::fabs(form.hadPoint ? value : value * 10.0);
    constexpr double largest = std::numeric_limits<std::int32_t>::max();
    const double rounded = std::min(round_half_even(tenths / kTenthsPerHundredth), largest);
    const auto hundredths = static_cast<std::int32_t>(rounded);
    return decimal_text(hundredths / 100) + "." + decimal_text(hundredths % 100 / 10) +
           decimal_text(hundredths % 10);
}

std::int32_t TransformPointByType(std::string* out, std::int32_t points, std::int32_t decimals,
                                  std::int32_t type) {
    // Ten to the 32nd is a multiple of 2 to the 32nd: more steps leave the zero that is there by then.
    constexpr std::int32_t stepsToZero = 32;
    auto wrapped = static_cast<std::uint32_t>(points);
    for (std::int32_t step = 0; step < std::min(decimals, stepsToZero); ++step) {
        wrapped *= 10U;
    }
    const auto scaled = static_cast<std::int32_t>(wrapped);

    // Both quotients are smaller than the scaled value, so that they fit in 32 bits again.
    std::int32_t result = -1;
    if (type == kTransformInches) {
        // The fraction is dropped towards zero, for negative values too.
        // NOLINTNEXTLINE(bugprone-incorrect-roundings)
        result = static_cast<std::int32_t>(scaled / 72.0 + 0.5);
    } else if (type == kTransformMillimetres) {
        result = static_cast<std::int32_t>(scaled * 25.4 / 72.0 + 5.0) / 10 * 10;
    } else {
        return -1;
    }
    if (out != nullptr) {
        *out = decimal_text(result);
        if (decimals > 0) {
            const auto places = static_cast<std::size_t>(decimals);
            out->insert(out->size() > places ? out->size() - places : 0, 1, '.');
        }
    }
    return result;
}

std::int32_t GetStringPointCount(std::string_view text) {
    return saturated(std::count(text.begin(), text.end(), '.'));
}

std::int32_t GetStringPointIndex(std::string_view text) {
    const std::u16string units = units_of(text);
    return saturated(static_cast<std::int64_t>(std::min(units.find(u'.'), units.size())) + 1);
}

void filterHeadZero(std::string& text) {
    text.erase(0, std::min(text.find_first_not_of('0'), text.size()));
}

void numstrtochar(std::string& text, std::int32_t limit) {
    const std::string source(up_to_terminator(text));
    if (source.size() < 2 || source.front() != '/') {
        return;
    }
    const std::size_t separated = std::min(static_cast<std::size_t>(std::max(limit, 0)), source.size());
    std::string decoded;
    for (std::size_t start = 1; start <= source.size();) {
        std::size_t end = source.find('/', start);
        if (end == std::string::npos || end >= separated) {
            end = source.size();
        }
        // A negative number counts from the top of the byte, as it does when it is stored into one.
        const std::int32_t value = int_value(std::string_view(source).substr(start, end - start));
        const auto byte = static_cast<unsigned char>(value >= 256 ? 0 : value);
        if (byte == 0) {
            break;
        }
        decoded.push_back(static_cast<char>(byte));
        start = end + 1;
    }
    text = decoded;
}

std::string itoa(std::int32_t value) {
    if (value == 0) {
        return {};
    }
    return decimal_text(std::abs(std::int64_t{value}));
}

std::int32_t GetIntegerLength(std::int32_t value) {
    return static_cast<std::int32_t>(decimal_text(value).size());
}

std::string GetShortenString(std::string_view text, std::int32_t columns) {
    const std::u16string units = units_of(text);
    std::size_t kept = 0;
    std::int64_t running = 0;
    for (; kept < units.size(); ++kept) {
        running += columns_of(units[kept], kFirstUnitBeyondASCII);
        if (running > columns) {
            break;
        }
    }
    // The first half of a surrogate pair is no character: it is not kept without the second.
    if (kept > 0 && kept < units.size() && (units[kept - 1] & 0xFC00) == 0xD800) {
        --kept;
    }
    return platform::utf8_from_utf16(std::u16string_view(units).substr(0, kept));
}

std::int32_t GetStringLength(std::string_view text) {
    return columns_of(units_of(text), kFirstUnitBeyondASCII);
}

std::int32_t GetUTF8StringLength(std::string_view text) {
    return columns_of(units_of(up_to_terminator(text)), kFirstUnitBeyondLatin1);
}

void getStringBySeparator(std::vector<std::string>& out, std::string_view text, char separator) {
    const std::optional<std::size_t> length = platform::utf16_length(text);
    if (!length) {
        return;
    }
    // A character that the cut goes through is lost whole, so that the last piece is text still.
    std::string_view rest = platform::utf8_prefix(text, *length);
    for (;;) {
        const std::size_t end = rest.find_first_of(std::string{separator, '\n'});
        out.emplace_back(up_to_terminator(rest.substr(0, end)));
        if (end == std::string_view::npos) {
            return;
        }
        rest.remove_prefix(end + 1);
    }
}

} // namespace specialpages
