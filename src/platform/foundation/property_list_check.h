// Looks over the text of a property list before the library parses it. The library takes numbers that are
// none, ill-formed UTF-8 and any depth (a deep one ends the process), so that only what is known to be in
// order may reach it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace specialpages::platform {

/// Empty when the text may be parsed; otherwise what is wrong with it, with its line.
///
/// What passes is one <plist> element with one value of array, data, dict, false, integer, real, string,
/// true; nested at most kMaxPropertyListDepth deep; integers decimal and of 64 bits, reals decimal (or as the
/// writer writes infinities), data Base64. Comments stand between elements only, and there is no internal
/// document type.
///
/// `keys`, when given, becomes the number of dictionary keys in the text. The library keeps one of several
/// equal keys without a word; fewer entries than keys give them away.
std::string check_property_list_text(std::string_view bytes, std::size_t* keys = nullptr);

} // namespace specialpages::platform
