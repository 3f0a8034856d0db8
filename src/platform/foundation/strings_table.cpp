#include "platform/foundation/strings_table.h"

#include "platform/foundation/numbers.h"
#include "platform/foundation/text.h"
#include "platform/foundation/utf8_repair.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace specialpages::platform {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool is_blank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

/// A byte of an unquoted word.
bool is_word(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '.' || c == '-' || c == '$' || c == ':';
}

int hex_digit(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

bool is_high_surrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool is_low_surrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Reads one table from start to end. The first failure stops it; `message` then says what was expected and
/// `at` where.
class Reader {
  public:
    explicit Reader(std::string_view text) : text_(text) {}

    std::optional<StringsEntries> entries();
    const std::string& message() const { return message_; }
    std::size_t at() const { return at_; }

  private:
    bool fail(std::string message, std::size_t at);
    bool skip_blanks_and_comments();
    bool entry(StringsEntries& entries);
    bool expect(char wanted, const char* after);
    bool word(std::string& word);
    bool quoted(std::string& text);
    bool escape(std::string& text);
    bool unicode_escape(std::string& text, std::size_t start);
    std::optional<char16_t> four_hex_digits();
    char peek(std::size_t ahead = 0) const {
        return next_ + ahead < text_.size() ? text_[next_ + ahead] : '\0';
    }
    bool at_end() const { return next_ >= text_.size(); }

    std::string_view text_;
    std::size_t next_ = 0;
    std::size_t at_ = 0;
    std::string message_;
};

bool Reader::fail(std::string message, std::size_t at) {
    message_ = std::move(message);
    at_ = at;
    return false;
}

bool Reader::skip_blanks_and_comments() {
    for (;;) {
        if (!at_end() && is_blank(peek())) {
            ++next_;
        } else if (peek() == '/' && peek(1) == '/') {
            next_ = std::min(text_.find_first_of("\r\n", next_), text_.size());
        } else if (peek() == '/' && peek(1) == '*') {
            const std::size_t end = text_.find("*/", next_ + 2);
            if (end == std::string_view::npos) {
                return fail("comment without end", next_);
            }
            next_ = end + 2;
        } else {
            return true;
        }
    }
}

std::optional<StringsEntries> Reader::entries() {
    StringsEntries entries;
    while (skip_blanks_and_comments()) {
        if (at_end()) {
            return entries;
        }
        if (!entry(entries)) {
            break;
        }
    }
    return std::nullopt;
}

bool Reader::entry(StringsEntries& entries) {
    std::string key;
    std::string value;
    if (!(peek() == '"' ? quoted(key) : word(key)) || !expect('=', "the key")) {
        return false;
    }
    if (!skip_blanks_and_comments()) {
        return false;
    }
    if (peek() != '"') {
        return fail("expected a quoted value", next_);
    }
    if (!quoted(value) || !expect(';', "the value")) {
        return false;
    }
    entries.emplace_back(std::move(key), std::move(value));
    return true;
}

bool Reader::expect(char wanted, const char* after) {
    if (!skip_blanks_and_comments()) {
        return false;
    }
    if (peek() != wanted) {
        return fail(std::string("expected \"") + wanted + "\" after " + after, next_);
    }
    ++next_;
    return true;
}

bool Reader::word(std::string& word) {
    const std::size_t start = next_;
    while (!at_end() && is_word(peek())) {
        ++next_;
    }
    word = text_.substr(start, next_ - start);
    return next_ != start || fail("expected a key", start);
}

bool Reader::quoted(std::string& text) {
    const std::size_t start = next_++;
    for (;;) {
        const std::size_t stop = text_.find_first_of("\"\\", next_);
        if (stop == std::string_view::npos) {
            return fail("text without closing quote", start);
        }
        text.append(text_.substr(next_, stop - next_));
        next_ = stop + 1;
        if (text_[stop] == '"') {
            return true;
        }
        if (!escape(text)) {
            return false;
        }
    }
}

/// `next_` stands after the backslash.
bool Reader::escape(std::string& text) {
    const std::size_t start = next_ - 1;
    if (at_end()) {
        return fail("text without closing quote", start);
    }
    const char kind = text_[next_++];
    switch (kind) {
    case '"':
    case '\\':
        text += kind;
        return true;
    case 'n':
        text += '\n';
        return true;
    case 't':
        text += '\t';
        return true;
    case 'r':
        text += '\r';
        return true;
    case 'u':
    case 'U':
        return unicode_escape(text, start);
    default:
        return fail("unknown escape", start);
    }
}

bool Reader::unicode_escape(std::string& text, std::size_t start) {
    const auto first = four_hex_digits();
    if (!first) {
        return fail("expected four hexadecimal digits", start);
    }
    std::u16string units(1, *first);
    if (is_high_surrogate(*first) && peek() == '\\' && (peek(1) == 'u' || peek(1) == 'U')) {
        next_ += 2;
        const auto second = four_hex_digits();
        if (!second) {
            return fail("expected four hexadecimal digits", start);
        }
        units += *second;
    }
    const bool pair = units.size() == 2 && is_low_surrogate(units[1]);
    const bool alone = units.size() == 1 && !is_high_surrogate(units[0]) && !is_low_surrogate(units[0]);
    if (!pair && !alone) {
        return fail("half of a surrogate pair", start);
    }
    text += utf8_from_utf16(units);
    return true;
}

std::optional<char16_t> Reader::four_hex_digits() {
    unsigned unit = 0;
    for (int i = 0; i < 4; ++i, ++next_) {
        const int digit = hex_digit(peek());
        if (digit < 0) {
            return std::nullopt;
        }
        unit = unit * 16U + static_cast<unsigned>(digit);
    }
    return static_cast<char16_t>(unit);
}

void append_control(std::string& out, unsigned char control) {
    constexpr std::string_view kHex = "0123456789ABCDEF";
    out.append("\\U00").append(1, kHex[control / 16U]).append(1, kHex[control % 16U]);
}

void append_quoted(std::string& out, std::string_view text) {
    out += '"';
    for (const char c : repaired_utf8(text)) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out.append(1, '\\').append(1, c);
        } else if (c == '\n') {
            out += "\\n";
        } else if (c == '\t') {
            out += "\\t";
        } else if (c == '\r') {
            out += "\\r";
        } else if (byte < 0x20 || byte == 0x7F) {
            append_control(out, byte);
        } else {
            out += c;
        }
    }
    out += '"';
}

std::optional<StringsEntries> refuse(StringsError* error, int line, std::string message) {
    if (error != nullptr) {
        *error = {line, std::move(message)};
    }
    return std::nullopt;
}

} // namespace

std::optional<StringsEntries> parse_strings(std::string_view bytes, StringsError* error) {
    if (bytes.size() > kMaxStringsBytes) {
        return refuse(error, 1, "larger than " + decimal_text(std::int64_t{kMaxStringsBytes}) + " bytes");
    }
    if (const int line = line_of_ill_formed_utf8(bytes); line != 0) {
        return refuse(error, line, "not UTF-8");
    }
    if (bytes.starts_with(kByteOrderMark)) {
        bytes.remove_prefix(kByteOrderMark.size());
    }
    Reader reader(bytes);
    auto entries = reader.entries();
    return entries ? std::move(entries) : refuse(error, line_at(bytes, reader.at()), reader.message());
}

std::string write_strings(const StringsEntries& entries) {
    std::string text;
    for (const auto& [key, value] : entries) {
        append_quoted(text, key);
        text += " = ";
        append_quoted(text, value);
        text += ";\n";
    }
    return text;
}

} // namespace specialpages::platform
