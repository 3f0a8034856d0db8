#include "platform/foundation/text_columns.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <cstdint>

namespace specialpages::platform {

namespace {

std::size_t columns_of(UChar32 character) {
    if (character < 0) {
        return 1; // no character at all
    }
    switch (u_charType(character)) {
    case U_NON_SPACING_MARK:
    case U_ENCLOSING_MARK:
    case U_CONTROL_CHAR:
    case U_FORMAT_CHAR:
        return 0;
    default:
        break;
    }
    const auto width = static_cast<UEastAsianWidth>(u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH));
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

} // namespace

std::size_t text_columns(std::string_view text) {
    std::size_t columns = 0;
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto length = static_cast<std::int64_t>(text.size());
    for (std::int64_t next = 0; next < length;) {
        UChar32 character = 0;
        const std::int64_t start = next;
        U8_NEXT(bytes, next, length, character);
        columns += character < 0 ? static_cast<std::size_t>(next - start) : columns_of(character);
    }
    return columns;
}

} // namespace specialpages::platform
