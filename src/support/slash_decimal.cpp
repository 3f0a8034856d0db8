#include "support/slash_decimal.h"

#include "platform/foundation/numbers.h"

#include <utility>

namespace specialpages {
namespace {

constexpr char kSlash = '/';
constexpr std::string_view kSpecialBytes = "',\\";
constexpr int kLargestByte = 255;

bool is_digit(char byte) {
    return byte >= '0' && byte <= '9';
}

} // namespace

bool needs_slash_decimal(std::string_view text) {
    return text.starts_with(kSlash) || text.find_first_of(kSpecialBytes) != std::string_view::npos;
}

std::string encode_slash_decimal(std::string_view text) {
    std::string encoded;
    encoded.reserve(text.size() * 4);
    for (const char byte : text) {
        encoded += kSlash;
        encoded += platform::decimal_text(static_cast<unsigned char>(byte));
    }
    return encoded;
}

std::string ticket_text(std::string_view text) {
    auto seen = text.substr(0, kMaxTicketTextBytes);
    seen = seen.substr(0, seen.find('\0'));
    return needs_slash_decimal(seen) ? encode_slash_decimal(seen) : std::string{seen};
}

std::variant<std::string, SlashDecimalError> read_slash_decimal(std::string_view stored) {
    using Reason = SlashDecimalError::Reason;
    if (!stored.starts_with(kSlash)) {
        return std::string{stored};
    }
    std::string text;
    std::size_t place = 0;
    while (place < stored.size()) {
        const auto first_digit = place + 1; // past the slash
        int value = 0;
        for (place = first_digit; place < stored.size() && stored[place] != kSlash; ++place) {
            if (!is_digit(stored[place])) {
                return SlashDecimalError{Reason::non_digit, place};
            }
            value = value * 10 + (stored[place] - '0');
            if (value > kLargestByte) {
                return SlashDecimalError{Reason::above_255, first_digit};
            }
        }
        if (place == first_digit) {
            return SlashDecimalError{Reason::empty_piece, place};
        }
        text += static_cast<char>(value);
    }
    return text;
}

std::optional<std::string> decode_slash_decimal(std::string_view stored) {
    auto reading = read_slash_decimal(stored);
    auto* text = std::get_if<std::string>(&reading);
    return text != nullptr ? std::optional{std::move(*text)} : std::nullopt;
}

} // namespace specialpages
