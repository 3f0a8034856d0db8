// Texts measured without a font: pictures have to be the same wherever they are made.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace specialpages::preview {

/// How wide a text is: one column a character, two for East Asian ones.
int text_columns(std::string_view text);
/// The text, cut to that many columns with an ellipsis at its end when it is longer.
std::string shortened(std::string_view text, int columns);
/// The text in lines of at most that many columns, broken at blanks where there are any.
std::vector<std::string> wrapped(std::string_view text, int columns);

} // namespace specialpages::preview
