// The integer at the head of a text together with how much of the text it took: for readers that must tell
// "0" from "no number", or that need more than 32 bits. Independent of the process locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace specialpages {

struct LeadingInteger {
    std::int64_t value = 0;   ///< saturated to 64 bits
    std::size_t consumed = 0; ///< bytes taken, blanks and sign included; 0 when there is no digit
};

/// Blanks are skipped, one sign is taken, then decimal digits, as strtol does it in base 10.
LeadingInteger leading_integer(std::string_view text);

/// The nearest 32-bit value.
std::int32_t saturated(std::int64_t value);

} // namespace specialpages
