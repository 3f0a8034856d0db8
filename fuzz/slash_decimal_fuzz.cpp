// Any bytes, once as a text to be stored and once as a stored value: what is stored comes back, a value that
// is read names the same text when it is written anew, and a refusal points into the value.

#include "support/slash_decimal.h"
#include "ticket/npif_command.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <variant>

namespace {

using namespace specialpages;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void check_as_text(std::string_view text) {
    require(decode_slash_decimal(encode_slash_decimal(text)) == text);
    const auto stored = ticket_text(text);
    const auto seen = text.substr(0, std::min(text.find('\0'), kMaxTicketTextBytes));
    require(decode_slash_decimal(stored) == seen);
    require(stored.find_first_of("',\\") == std::string::npos);
    require(stored.size() <= kMaxTicketTextBytes * 4);
}

void check_as_stored(std::string_view stored) {
    const auto reading = read_slash_decimal(stored);
    const auto fields = command_fields(stored);
    if (const auto* error = std::get_if<SlashDecimalError>(&reading)) {
        require(stored.starts_with('/'));
        require(error->place >= 1 && error->place <= stored.size());
        require(!fields && !decode_slash_decimal(stored));
        return;
    }
    const auto& text = std::get<std::string>(reading);
    require(text.size() <= stored.size());
    require(stored.starts_with('/') ? decode_slash_decimal(encode_slash_decimal(text)) == text
                                    : text == stored);
    require(fields &&
            fields->size() == 1 + static_cast<std::size_t>(std::count(text.begin(), text.end(), ',')));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes{reinterpret_cast<const char*>(data), size};
    check_as_text(bytes);
    check_as_stored(bytes);
    return 0;
}
