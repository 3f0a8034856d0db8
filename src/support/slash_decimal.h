// The slash-decimal form, in which the print settings hold every text that could be taken apart on its way to
// the print back-end: for each byte "/" and its decimal value, so that "1,2" becomes "/49/44/50".
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace specialpages {

/// How many bytes of a text are seen before it is encoded. The encoded form, up to four times as long, is
/// never cut.
inline constexpr std::size_t kMaxTicketTextBytes = 255;

/// Whether the text begins with "/" or holds an apostrophe, a comma or a backslash.
bool needs_slash_decimal(std::string_view text);

/// Every byte of the text in slash-decimal form, values without padding. Empty for an empty text.
std::string encode_slash_decimal(std::string_view text);

/// What the settings hold for the text: its first 255 bytes, ended by a zero byte if there is one, encoded
/// when that is needed and plain otherwise.
std::string ticket_text(std::string_view text);

struct SlashDecimalError {
    enum class Reason {
        empty_piece, ///< no digit between two slashes or after the last
        non_digit,   ///< something other than a digit
        above_255,   ///< no byte has this value
    };
    Reason reason = Reason::empty_piece;
    /// Offset of the offending byte; for above_255, of the number's first digit.
    std::size_t place = 0;

    bool operator==(const SlashDecimalError&) const = default;
};

/// The text behind a value of the settings. One that does not begin with "/" is plain and answered as it is.
/// Zeros at the head of a number are read, though never written.
std::variant<std::string, SlashDecimalError> read_slash_decimal(std::string_view stored);

/// The same without the reason: null when malformed.
std::optional<std::string> decode_slash_decimal(std::string_view stored);

} // namespace specialpages
