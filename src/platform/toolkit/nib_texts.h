// The texts of a loaded nib in the reader's language. A nib is drawn in one language; of the texts in it, the
// program words most anew from its own tables, and what it leaves alone ("Help") is looked up here.
#pragma once

#include "platform/export.h"
#include "platform/toolkit/View.h"

#include <functional>
#include <memory>
#include <span>
#include <string>

namespace specialpages::platform {

/// The text in the reader's language; the given text itself where there is no other.
using NibTextLookup = std::function<std::string(const std::string& text)>;

/// Passes the titles of windows and buttons, the static texts and the tool tips of these views, and of all
/// views in them, through the lookup. Empty texts are not looked up. Fields that the user fills, menus and
/// tables are left alone, since their contents are the program's. Views that keep their text announce
/// nothing.
SPECIALPAGES_PLATFORM_API void translate_nib_texts(std::span<const std::shared_ptr<View>> views,
                                                   const NibTextLookup& lookup);

} // namespace specialpages::platform
