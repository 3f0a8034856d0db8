// Names of languages as people and environments write them ("de", "pt-BR", "de_AT.UTF-8@euro"), and the names
// under which a bundle may keep what suits them.
#pragma once

#include "platform/export.h"

#include <string>
#include <string_view>
#include <vector>

namespace specialpages::platform {

/// What to look for when somebody prefers that language, best first and each name once: the text as it
/// stands, the text without an encoding (".UTF-8") and a modifier ("@euro"), the tag with hyphens and the
/// usual case ("zh-Hant-TW"), and that tag's heads down to the bare language ("zh-Hant", "zh"). Only ASCII
/// letters change their case. Empty names are left out, so that nothing is looked for when the text is empty.
SPECIALPAGES_PLATFORM_API std::vector<std::string> language_tags(std::string_view preferred);

} // namespace specialpages::platform
