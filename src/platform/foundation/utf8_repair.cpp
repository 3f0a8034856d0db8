#include "platform/foundation/utf8_repair.h"

#include "platform/foundation/text.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>

namespace specialpages::platform {

std::string repaired_utf8(std::string_view bytes) {
    std::string result;
    const icu::StringPiece piece(bytes.data(), static_cast<std::int32_t>(bytes.size()));
    return icu::UnicodeString::fromUTF8(piece).toUTF8String(result);
}

int line_at(std::string_view bytes, std::size_t offset) {
    const std::size_t end = std::min(offset, bytes.size());
    int line = 1;
    for (std::size_t i = 0; i < end; ++i) {
        const bool crlf = bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n';
        line += bytes[i] == '\n' || (bytes[i] == '\r' && !crlf) ? 1 : 0;
    }
    return line;
}

int line_of_ill_formed_utf8(std::string_view bytes) {
    if (is_valid_utf8(bytes)) {
        return 0;
    }
    const std::string repaired = repaired_utf8(bytes);
    const auto different = std::mismatch(bytes.begin(), bytes.end(), repaired.begin(), repaired.end()).first;
    return line_at(bytes, static_cast<std::size_t>(different - bytes.begin()));
}

} // namespace specialpages::platform
