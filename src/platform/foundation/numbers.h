// Numbers read from and printed as text, always as in the C locale, whatever the process locale is.
#pragma once

#include "platform/export.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace specialpages::platform {

/// The integer at the head of `text`: blanks are skipped, one sign is taken, then digits. 0 when there is no
/// digit. Values outside 32 bits saturate to the nearest end.
SPECIALPAGES_PLATFORM_API std::int32_t int_value(std::string_view text);

/// The decimal number at the head of `text` (sign, digits, "." and exponent), blanks skipped; 0.0 when there
/// is none. The decimal point is "." in every locale; hexadecimal numbers, "inf" and "nan" are not read. A
/// number too large for a double is an infinity, one too small is 0.0.
SPECIALPAGES_PLATFORM_API double double_value(std::string_view text);

/// Plain decimal text of the value, as "%d".
SPECIALPAGES_PLATFORM_API std::string decimal_text(std::int64_t value);

} // namespace specialpages::platform
