// Localised formats: texts with places for other texts.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace specialpages {

/// `format` with each "%@" replaced by the next text, and "%1$@" (to "%9$@") by the text with that number, so
/// that a translation may change the order; "%%" is a "%". A place without a text stays empty; every other
/// "%" stands as it is.
std::string filled_format(std::string_view format, std::initializer_list<std::string_view> texts);

} // namespace specialpages
