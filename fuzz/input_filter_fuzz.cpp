// A set of ranges and any bytes as the text of a field: the checks against simple models of them, and what
// holds between them.
//
// Input: the number of ranges, four bytes a range (low and high code, most significant byte first), the text.

#include "platform/foundation/text.h"
#include "support/input_filter.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace specialpages;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// Takes the ranges off the front of the input.
std::vector<CodeRange> take_ranges(std::span<const std::uint8_t>& input) {
    std::vector<CodeRange> ranges;
    if (input.empty()) {
        return ranges;
    }
    const std::size_t count = input.front() % (kMaxFilterRanges + 1);
    input = input.subspan(1);
    while (ranges.size() < count && input.size() >= 4) {
        ranges.push_back({input[0] << 8 | input[1], input[2] << 8 | input[3]});
        input = input.subspan(4);
    }
    return ranges;
}

void check_bytes(std::string_view text, const TextEditFilterData& filter) {
    const bool valid = std::all_of(text.begin(), text.end(), [&filter](char byte) {
        return ISByteValid(static_cast<unsigned char>(byte), filter.byteSet);
    });
    require(validateDensityInput(text, filter) == valid);
}

void check_ill_formed(std::string_view text, const TextEditFilterData& filter) {
    require(!validateInput(text, filter) && !validateInputForUTF8(text, filter));
    require(!IsAllSpace(text) && !ExistNumericString(text) && RemoveAllSpaces(text).empty());
    require(getOldLocationlength(text, 1) == 0);
}

void check_units(const std::u16string& units, std::string_view text, const TextEditFilterData& filter) {
    const auto accepted = [&filter](char16_t unit) {
        require(ISWordValid(unit, filter.characterSet) == ISWordSpace(unit, filter.characterSet));
        return ISWordValid(unit, filter.characterSet);
    };
    require(validateInputForUTF8(text, filter) == std::all_of(units.begin(), units.end(), accepted));
    const bool single = platform::composed_character_ends(units).size() == units.size();
    if (single) {
        require(validateInput(text, filter) == validateInputForUTF8(text, filter));
    }
    if (validateInput(text, filter)) {
        // What is accepted though a unit of it is not holds a half-width mark.
        require(std::all_of(units.begin(), units.end(), [&accepted](char16_t unit) {
            return accepted(unit) || unit == 0xFF9E || unit == 0xFF9F;
        }));
    }
}

void check_spaces(const std::u16string& units, std::string_view text) {
    const std::u16string kept = RemoveAllSpaces(text);
    require(kept.find(u' ') == std::u16string::npos);
    std::size_t next = 0;
    for (const char16_t unit : units) {
        if (unit != u' ') {
            require(next < kept.size() && kept[next] == unit);
            ++next;
        }
    }
    require(next == kept.size());
    require(IsAllSpace(text) == (kept.find_first_not_of(u'\u3000') == std::u16string::npos));
    require(ExistNumericString(text) == (kept.find_first_of(u"123456789") != std::u16string::npos));
}

void check_locations(const std::u16string& units, std::string_view text) {
    const std::vector<std::size_t> ends = platform::composed_character_ends(units);
    require(getOldLocationlength(text, 0) == 0);
    const std::size_t step = 1 + units.size() / 64;
    for (std::size_t location = 1; location <= units.size() + 1; location += step) {
        const auto found =
            static_cast<std::size_t>(getOldLocationlength(text, static_cast<std::int32_t>(location)));
        const bool at_boundary = std::binary_search(ends.begin(), ends.end(), location);
        require(found <= units.size() && (found == 0 || std::binary_search(ends.begin(), ends.end(), found)));
        require(at_boundary ? found == location : found > location || found == units.size());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::span<const std::uint8_t> input(data, size);
    const std::vector<CodeRange> ranges = take_ranges(input);
    const TextEditFilterData filter{ranges, ranges, "key"};
    const std::string_view text(reinterpret_cast<const char*>(input.data()), input.size());
    check_bytes(text, filter);
    const auto units = platform::utf16_from_utf8(text);
    if (!units) {
        check_ill_formed(text, filter);
        return 0;
    }
    check_units(*units, text, filter);
    check_spaces(*units, text);
    check_locations(*units, text);
    return 0;
}
