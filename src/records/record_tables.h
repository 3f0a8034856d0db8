// The keys of the localised texts in which the list of special pages and its dialogs name a record's parts.
// Each table is indexed by the integer value of a record's entry; an index may be past the end in a record
// that was read back, so ask the size first.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace specialpages {

/// The entry at that index; the empty key, which no table holds, outside.
template <std::size_t Size>
constexpr std::string_view record_table_entry(const std::array<std::string_view, Size>& table,
                                              std::int32_t index) {
    return index < 0 || index >= static_cast<std::int32_t>(Size) ? std::string_view{}
                                                                 : table[static_cast<std::size_t>(index)];
}

/// A sheet from the interposer, when the PPD has no words of its own for it: the keyword after the "-" names
/// its choice.
inline constexpr const char* kInterposerKey = "NVUncollateSeparator-INT";

/// By "type".
inline constexpr std::array<std::string_view, 3> gInsertPageTypeResourceString{
    "Cover String",
    "Insert String",
    "Exception String",
};

/// By a cover's "page".
inline constexpr std::array<std::string_view, 2> gInsertPageNumResourceString{
    "Front String",
    "Back String",
};

/// By "longmeasure".
inline constexpr std::array<std::string_view, 2> customSizeLongMeasureString{
    "Custom Size Inch Text",
    "Custom Size MM Text",
};

/// The titles of the list's columns "page", "type" and "setup".
inline constexpr std::array<std::string_view, 3> tableColumnsTitleResourceString{
    "Page(s) Title",
    "Type Title",
    "Setup Title",
};

/// By a cover's "printingoptions".
inline constexpr std::array<std::string_view, 4> printingOptionListIniMenu{
    "Blank or Pre-Printed String",
    "Print On Side One String",
    "Print On Side Two String",
    "Print On Both Sides String",
};

/// By an exception's "twoSidePrint". The first is the dialog's alone; no record holds "0".
inline constexpr std::array<std::string_view, 4> exceptionTowSidePrintIniMenu{
    "No Change Option String",
    "1 Side Print Option String",
    "2 Side Print Option String",
    "2 Side Short Edge Option String",
};

/// By an insert's "insertoption".
inline constexpr std::array<std::string_view, 2> insertOptionListIniMenu{
    "After String",
    "Before Page one String",
};

} // namespace specialpages
