// What the colors of a PPD look like on a screen. A PPD names colors by keyword and says nothing of how they
// look, so that this is a table of our own.
#pragma once

#include <cstdint>
#include <string_view>

namespace specialpages::preview {

struct PaperColor {
    std::uint32_t rgb = 0xFFFFFF; ///< 0xRRGGBB; light enough for dark text
    bool known = true;            ///< false: drawn white with a hatch, since nobody knows how it looks

    bool operator==(const PaperColor&) const = default;
};

/// By the keyword of the choice, compared exactly. A color of one's own ("Custom1"), "Other", "Any" and every
/// keyword without a row are not known.
PaperColor paper_color(std::string_view keyword);

} // namespace specialpages::preview
