// Integer values as text, and the reading of one from the print settings: what pop-ups, radios and steppers
// share.
#pragma once

#include "controls/BaseControlEMFSpecialPages.h"

#include <optional>
#include <string>

namespace specialpages {

class ControlPanel;

/// The block's integer; empty for a missing block and for a text.
std::optional<std::int32_t> integer_in(const ValueBlock& block);
/// Its decimal text into `text`; false, and nothing written, without an integer.
bool integer_to_text(const ValueBlock& block, std::string& text);
/// The integer at the head of the text into the block; false without a block.
bool text_to_integer(std::string_view text, ValueBlock& block);
/// The integer under the ticket key of the panel's print settings; empty when panel, settings, key or value
/// is missing.
std::optional<std::int32_t> integer_from_settings(ControlPanel* panel, const AccessInfo* accessInfo);

} // namespace specialpages
