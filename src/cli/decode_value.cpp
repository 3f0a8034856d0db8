#include "cli/decode_value.h"

#include "support/slash_decimal.h"

namespace specialpages::cli {

namespace {

std::string reason_text(SlashDecimalError::Reason reason) {
    switch (reason) {
    case SlashDecimalError::Reason::empty_piece:
        return "expected a number after each \"/\"";
    case SlashDecimalError::Reason::non_digit:
        return "expected digits after each \"/\"";
    case SlashDecimalError::Reason::above_255:
        return "expected a number of 255 at most";
    }
    return {};
}

} // namespace

std::string decode_value(const std::string& stored, const std::string& place, host::ErrorCode code) {
    const auto decoded = read_slash_decimal(stored);
    if (const auto* const error = std::get_if<SlashDecimalError>(&decoded)) {
        throw host::HostError(code, place + ", byte " + std::to_string(error->place + 1),
                              reason_text(error->reason));
    }
    return std::get<std::string>(decoded);
}

} // namespace specialpages::cli
