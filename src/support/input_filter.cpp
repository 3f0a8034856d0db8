#include "support/input_filter.h"

#include "platform/foundation/text.h"

#include <algorithm>
#include <array>
#include <optional>

namespace specialpages {

namespace {

constexpr char16_t kVoicedSoundMark = 0xFF9E; // the semi-voiced one is the next code
constexpr char16_t kLowestBit = 1;

bool is_half_width_mark(char16_t unit) {
    return (unit & ~kLowestBit) == kVoicedSoundMark;
}

bool contains(InputFilterData set, char16_t code) {
    return std::any_of(set.begin(), set.end(),
                       [code](CodeRange range) { return range.low <= code && code <= range.high; });
}

bool contains_all(InputFilterData set, std::u16string_view units) {
    return std::all_of(units.begin(), units.end(), [set](char16_t unit) { return contains(set, unit); });
}

bool accepts_character(InputFilterData set, std::u16string_view character) {
    if (character.size() == 1) {
        return contains(set, character.front());
    }
    return is_half_width_mark(character.back()) &&
           contains_all(set, character.substr(0, character.size() - 1));
}

constexpr CodeRange one(char code) {
    return {code, code};
}

constexpr std::array kDigits{CodeRange{'0', '9'}};
constexpr std::array kDecimalDigits{one('.'), CodeRange{'0', '9'}};
constexpr std::array kPageDefine{one(' '), one(','), CodeRange{'0', '9'}, one('-')};
constexpr std::array kInsertPages{CodeRange{'0', '9'}, CodeRange{',', '-'}, one(' ')};

/// Every field of the pane accepts the same codes byte-wise and character-wise.
constexpr TextEditFilterData same_sets(InputFilterData set, const char* messageKey) {
    return {set, set, messageKey};
}

constexpr std::array kSpaces{one(' '), CodeRange{0x3000, 0x3000}};

} // namespace

bool validateInput(std::string_view text, const TextEditFilterData& filter) {
    const auto units = platform::utf16_from_utf8(text);
    if (!units) {
        return false;
    }
    std::size_t start = 0;
    for (const std::size_t end : platform::composed_character_ends(*units)) {
        const auto character = std::u16string_view(*units).substr(start, end - start);
        if (!accepts_character(filter.characterSet, character)) {
            return false;
        }
        start = end;
    }
    return true;
}

bool validateInputForUTF8(std::string_view text, const TextEditFilterData& filter) {
    const auto units = platform::utf16_from_utf8(text);
    return units && contains_all(filter.characterSet, *units);
}

bool validateDensityInput(std::string_view text, const TextEditFilterData& filter) {
    return std::all_of(text.begin(), text.end(), [&filter](char byte) {
        return ISByteValid(static_cast<unsigned char>(byte), filter.byteSet);
    });
}

bool ISWordValid(char16_t code, InputFilterData set) {
    return contains(set, code);
}

bool ISWordSpace(char16_t code, InputFilterData set) {
    return contains(set, code);
}

bool ISByteValid(unsigned char byte, InputFilterData set) {
    return std::any_of(set.begin(), set.end(), [byte](CodeRange range) {
        return static_cast<unsigned char>(range.low) <= byte &&
               byte <= static_cast<unsigned char>(range.high);
    });
}

bool IsAllSpace(std::string_view text) {
    const auto units = platform::utf16_from_utf8(text);
    return units && std::all_of(units->begin(), units->end(),
                                [](char16_t unit) { return ISWordSpace(unit, kSpaces); });
}

std::u16string RemoveAllSpaces(std::string_view text) {
    auto units = platform::utf16_from_utf8(text).value_or(std::u16string{});
    std::erase(units, u' ');
    return units;
}

bool ExistNumericString(std::string_view text) {
    return text.find_first_of("123456789") != std::string_view::npos && platform::is_valid_utf8(text);
}

std::int32_t getOldLocationlength(std::string_view text, std::int32_t location) {
    const auto units = platform::utf16_from_utf8(text).value_or(std::u16string{});
    std::int32_t start = 0;
    for (const std::size_t end : platform::composed_character_ends(units)) {
        const auto next = static_cast<std::int32_t>(end);
        if (start == location) {
            return start;
        }
        if (start > location) {
            return next;
        }
        start = next;
    }
    return start;
}

const TextEditFilterData SPCustomSizeWidthMMFilterData =
    same_sets(kDecimalDigits, "Message22_Millimeters_Width");
const TextEditFilterData SPCustomSizeLengthMMFilterData =
    same_sets(kDecimalDigits, "Message22_Millimeters_Length");
const TextEditFilterData SPCustomSizeLengthInchFilterData =
    same_sets(kDecimalDigits, "Message22_Inchs_Length");
const TextEditFilterData SPCustomSizeWidthInchFilterData = same_sets(kDecimalDigits, "Message22_Inchs_Width");
const TextEditFilterData pageDefineFilterData = same_sets(kPageDefine, "Warning46");
const TextEditFilterData SPInstPageNumEditFilterData = same_sets(kInsertPages, "Warning44");
const TextEditFilterData SPInstQuantityEditFilterData = same_sets(kDigits, "Warning45");
const TextEditFilterData SPNumInSequenceSubFilterData = same_sets(kDigits, "Message22k");
const TextEditFilterData SPNumInSequenceFilterData = same_sets(kDigits, "Message22k");
const TextEditFilterData SPTabMarginMMFilterData = same_sets(kDecimalDigits, "Message22b");
const TextEditFilterData SPTabMarginInchFilterData = same_sets(kDecimalDigits, "Message22b2");

} // namespace specialpages
