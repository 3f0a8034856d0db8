#include "controls/integer_transfer.h"

#include "controls/ControlPanel.h"
#include "platform/foundation/numbers.h"
#include "platform/print/PrintSettings.h"

namespace specialpages {

std::optional<std::int32_t> integer_in(const ValueBlock& block) {
    const auto* value = block ? std::get_if<std::int32_t>(&*block) : nullptr;
    return value == nullptr ? std::nullopt : std::optional(*value);
}

bool integer_to_text(const ValueBlock& block, std::string& text) {
    const auto value = integer_in(block);
    if (value) {
        text = platform::decimal_text(*value);
    }
    return value.has_value();
}

bool text_to_integer(std::string_view text, ValueBlock& block) {
    if (block) {
        block = platform::int_value(text);
    }
    return block.has_value();
}

std::optional<std::int32_t> integer_from_settings(ControlPanel* panel, const AccessInfo* accessInfo) {
    if (panel == nullptr || panel->GetCurrentPMPrintSettings() == nullptr || accessInfo == nullptr ||
        accessInfo->ticketKey == nullptr) {
        return std::nullopt;
    }
    platform::SettingsValue value;
    if (platform::PMPrintSettingsGetValue(panel->GetCurrentPMPrintSettings(), accessInfo->ticketKey, value) !=
            platform::noErr ||
        !std::holds_alternative<std::string>(value)) {
        return std::nullopt;
    }
    return platform::int_value(std::get<std::string>(value));
}

} // namespace specialpages
