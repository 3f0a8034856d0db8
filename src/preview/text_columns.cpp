#include "preview/text_columns.h"

#include <algorithm>

namespace specialpages::preview {

namespace {

constexpr char32_t kFirstWide = 0x1100;   // Hangul; the scripts before it are narrow
constexpr char32_t kPunctuation = 0x2000; // to 0x2E7F: narrow signs between wide scripts
constexpr char32_t kIdeographs = 0x2E80;

/// The bytes of the character that begins at `at`; at least one, so that ill-formed text is walked as well.
std::size_t character_bytes(std::string_view text, std::size_t at) {
    std::size_t end = at + 1;
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
        ++end;
    }
    return end - at;
}

char32_t code_point(std::string_view bytes) {
    const auto first = static_cast<unsigned char>(bytes.front());
    char32_t code = bytes.size() == 1 ? first : first & (0xFFU >> (bytes.size() + 1));
    for (const char byte : bytes.substr(1)) {
        code = (code << 6) | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    return code;
}

int columns_of(std::string_view character) {
    if (character.size() > 4) {
        return 1;
    }
    const char32_t code = code_point(character);
    return code < kFirstWide || (code >= kPunctuation && code < kIdeographs) ? 1 : 2;
}

/// The longest head of at most that many columns, in bytes; one character at least.
std::size_t head_bytes(std::string_view text, int columns) {
    std::size_t end = 0;
    int used = 0;
    while (end < text.size()) {
        const std::size_t bytes = character_bytes(text, end);
        used += columns_of(text.substr(end, bytes));
        if (used > columns && end > 0) {
            break;
        }
        end += bytes;
    }
    return end;
}

} // namespace

int text_columns(std::string_view text) {
    int columns = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t bytes = character_bytes(text, at);
        columns += columns_of(text.substr(at, bytes));
        at += bytes;
    }
    return columns;
}

std::string shortened(std::string_view text, int columns) {
    if (text_columns(text) <= columns) {
        return std::string(text);
    }
    std::string_view head = text.substr(0, head_bytes(text, std::max(columns - 1, 1)));
    while (head.size() > 1 && head.back() == ' ') {
        head.remove_suffix(1);
    }
    return std::string(head) + "\xE2\x80\xA6";
}

std::vector<std::string> wrapped(std::string_view text, int columns) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        std::size_t end = head_bytes(text, columns);
        std::size_t next = end;
        if (end < text.size()) {
            const std::size_t blank = text.rfind(' ', end);
            if (blank != std::string_view::npos && blank > 0) {
                end = blank;
                next = blank + 1;
            }
        }
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(next);
    }
    return lines;
}

} // namespace specialpages::preview
