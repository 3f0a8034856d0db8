// Localised tables in the `.strings` text form: lines "key" = "value"; with /* */ and // comments.
#pragma once

#include "platform/export.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace specialpages::platform {

/// A table in file order. A key that stands twice keeps both entries here; a lookup takes the first.
using StringsEntries = std::vector<std::pair<std::string, std::string>>;

struct StringsError {
    int line = 0; ///< 1-based
    std::string message;
};

/// Larger tables are refused.
inline constexpr std::size_t kMaxStringsBytes = std::size_t{16} * 1024 * 1024;

/// Reads a UTF-8 table; a byte-order mark in front is skipped. Escapes: \" \\ \n \t \r \uXXXX and \UXXXX
/// (UTF-16 units, pairs joined). Keys may be unquoted words. On failure the optional is empty and `error`,
/// when given, names line and expectation.
SPECIALPAGES_PLATFORM_API std::optional<StringsEntries> parse_strings(std::string_view bytes,
                                                                      StringsError* error = nullptr);

/// The text form that parse_strings reads back to the same entries. Bytes that are not UTF-8 are written as
/// U+FFFD.
SPECIALPAGES_PLATFORM_API std::string write_strings(const StringsEntries& entries);

} // namespace specialpages::platform
