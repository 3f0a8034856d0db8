// Unicode text on ICU. Text is UTF-8 in std::string everywhere; UTF-16 appears only where a rule of the pane
// counts UTF-16 units.
#pragma once

#include "platform/export.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages::platform {

/// Whether the bytes are well-formed UTF-8 (RFC 3629): no overlong forms, no surrogates, nothing past
/// U+10FFFF.
SPECIALPAGES_PLATFORM_API bool is_valid_utf8(std::string_view bytes);

/// The UTF-16 units of a UTF-8 text; empty optional when the bytes are not well-formed UTF-8.
SPECIALPAGES_PLATFORM_API std::optional<std::u16string> utf16_from_utf8(std::string_view bytes);

/// The UTF-8 form of UTF-16 units. A lone surrogate becomes U+FFFD.
SPECIALPAGES_PLATFORM_API std::string utf8_from_utf16(std::u16string_view units);

/// Number of UTF-16 units; empty optional when the bytes are not well-formed UTF-8.
SPECIALPAGES_PLATFORM_API std::optional<std::size_t> utf16_length(std::string_view bytes);

/// Where each composed character of the text ends, in UTF-16 units, in ascending order; the last one is the
/// length of the text, and an empty text has none. A composed character is a base character with the marks
/// that join it (an extended grapheme cluster): the half-width voiced sound marks U+FF9E and U+FF9F join the
/// character before them, a surrogate pair is one character and a lone surrogate another.
SPECIALPAGES_PLATFORM_API std::vector<std::size_t> composed_character_ends(std::u16string_view units);

/// The longest head of `text` that has at most `max_bytes` bytes and ends at a character boundary.
SPECIALPAGES_PLATFORM_API std::string_view utf8_prefix(std::string_view text, std::size_t max_bytes);

/// `text` with every occurrence of `from` replaced by `to`, left to right, not looking into what was put in.
/// An empty `from` changes nothing.
SPECIALPAGES_PLATFORM_API std::string replace_all(std::string_view text, std::string_view from,
                                                  std::string_view to);

/// Text of one of the encodings that PPDs name, as UTF-8. The names are ICU converter names ("ISO-8859-1",
/// "windows-1252", "Shift_JIS", "macintosh", "UTF-8"). Empty optional for an unknown name or ill-formed
/// bytes.
SPECIALPAGES_PLATFORM_API std::optional<std::string> utf8_from_encoding(std::string_view bytes,
                                                                        const char* encoding);

} // namespace specialpages::platform
