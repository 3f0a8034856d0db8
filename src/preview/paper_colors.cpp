#include "preview/paper_colors.h"

#include <algorithm>
#include <array>

namespace specialpages::preview {

namespace {

struct Row {
    std::string_view keyword;
    std::uint32_t rgb;
};

/// Paper is paler than the name of its color.
constexpr std::array<Row, 12> kColors{{
    {"White", 0xFFFFFF},
    {"Blue", 0xBCD9F2},
    {"Buff", 0xF4E1B5},
    {"Goldenrod", 0xF7CF6B},
    {"Gray", 0xD3D6DA},
    {"Green", 0xC3E6C0},
    {"Ivory", 0xFDF6E0},
    {"Orange", 0xFBC48D},
    {"Pink", 0xF9CBDA},
    {"Red", 0xF2A09A},
    {"Yellow", 0xFCF09A},
    {"Clear", 0xE8F3F6},
}};

} // namespace

PaperColor paper_color(std::string_view keyword) {
    const auto* const found = std::ranges::find(kColors, keyword, &Row::keyword);
    return found == kColors.end() ? PaperColor{0xFFFFFF, false} : PaperColor{found->rgb, true};
}

} // namespace specialpages::preview
