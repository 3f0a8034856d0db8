// How many columns a text takes where each letter has one and each East Asian character two, as on a
// terminal.
#pragma once

#include "platform/export.h"

#include <cstddef>
#include <string_view>

namespace specialpages::platform {

/// Two for every wide and full-width character, none for marks that stand on the one before and for controls,
/// one for every other; characters whose width depends on the font ("…") count one. Ill-formed bytes count
/// one each.
SPECIALPAGES_PLATFORM_API std::size_t text_columns(std::string_view text);

} // namespace specialpages::platform
