// Makes any bytes well-formed UTF-8. For the platform's own writers: what they write must be readable again.
#pragma once

#include <string>
#include <string_view>

namespace specialpages::platform {

/// `bytes` with every ill-formed sequence replaced by U+FFFD; well-formed text comes back unchanged.
std::string repaired_utf8(std::string_view bytes);

/// The 1-based line of the first ill-formed sequence; 0 when the bytes are well-formed. Lines end with
/// "\n", "\r\n" or "\r".
int line_of_ill_formed_utf8(std::string_view bytes);

/// The 1-based line in which the byte at `offset` stands.
int line_at(std::string_view bytes, std::size_t offset);

} // namespace specialpages::platform
