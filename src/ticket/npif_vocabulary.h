// The words of the NPIF commands: what a PPD keyword or a record's index becomes for the print back-end. The
// tables are whole and in their order; the first row that matches wins. Keywords are compared exactly, upper
// and lower case apart. A keyword without a row has no word: there is no fall-back.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace specialpages {

/// The tray word of a sheet that comes from the interposer.
inline constexpr std::string_view TrayInterposer = "interposer";

/// By a cover's "printingoptions".
inline constexpr std::array<std::string_view, 4> CoverTypeNPIFComm{
    "print-none",  // blank or pre-printed
    "print-front", // print on side one
    "print-back",  // print on side two
    "print-both",
};

/// By an exception's "twoSidePrint" less one.
inline constexpr std::array<std::string_view, 3> SidesNPIFComm{
    "one-sided",
    "two-sided-long-edge",
    "two-sided-short-edge",
};

struct NPIFWord {
    std::string_view keyword;
    std::string_view word;
};

/// A PPD page size and its sheet: width x and length y in hundredths of a millimetre, as they are written.
struct NPIFSheet {
    std::string_view keyword;
    std::string_view x;
    std::string_view y;
};

struct SheetSize {
    std::string_view x;
    std::string_view y;

    bool operator==(const SheetSize&) const = default;
};

extern const std::array<NPIFWord, 18> MediaColorNPIFComm;
/// "PrePrintedPlainPaperS1" has two rows; the later one is never reached.
extern const std::array<NPIFWord, 46> MediaTypeNPIFComm;
extern const std::array<NPIFSheet, 48> MediaSizeNPIFComm;

/// The word for the keyword of a media colour; null for one without a row, the empty keyword included.
std::optional<std::string_view> media_color_word(std::string_view keyword);
/// The same for a media type.
std::optional<std::string_view> media_type_word(std::string_view keyword);
/// The same for a page size. "Custom" has no row.
std::optional<SheetSize> media_size(std::string_view keyword);

} // namespace specialpages
