// What stands in a paper menu, as plain values: the items of the three sub-menus as the PPD has them, and the
// wording of the interposer item.
#pragma once

#include "paper/paper_choice.h"

#include <cups/ppd.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {

struct SubMenuItem {
    std::string title;
    std::int32_t tag = 0;
    std::string representedObject; ///< the choice's keyword, or kNoChangeKey

    friend bool operator==(const SubMenuItem&, const SubMenuItem&) = default;
};

/// Localised titles that the PPD does not have.
struct SubMenuTitles {
    std::string noChange;
    std::string customSize;
};

/// The items of one sub-menu: "No Change", then each choice of the option. Without the option only the first.
///
/// The last size has the localised custom title whatever its keyword is. The color "Any" of "NVMediaColor"
/// gets no item, but its tag number stays unused: tags count choices of the PPD, while items are looked up by
/// position. So for colors behind "Any" the two differ by one.
std::vector<SubMenuItem> sub_menu_items(PaperPart part, const PaperOptionKeys& keys,
                                        const ppd_option_t* option, const SubMenuTitles& titles);

/// Indexes that the three sub-menus together mean by "Transparency" and "Clear"; -1 for none. Each is taken
/// from whichever of the options has a choice of that keyword, the last one found.
struct TransparencyIndexes {
    std::int32_t transparency = -1;
    std::int32_t clear = -1;

    friend bool operator==(const TransparencyIndexes&, const TransparencyIndexes&) = default;
};
/// Takes over what the option's choices say; options are given in the order size, color, type.
void note_transparency(const ppd_option_t* option, TransparencyIndexes& indexes);

/// Position of the first key that begins with "NV", which is where the PPD may word the item; empty when
/// there is none. Later ones are not looked at.
template <typename Keys>
std::optional<std::int64_t> vendor_title_position(const Keys& keys) {
    std::int64_t position = 0;
    for (const std::string_view key : keys) {
        if (key.starts_with("NV")) {
            return position;
        }
        ++position;
    }
    return std::nullopt;
}

/// How the PPD words a key such as "NVUncollateSeparator-INT": the text of that choice (the last piece of the
/// key) of the separator option. Empty when the PPD has no such option or choice.
std::optional<std::string> separator_text(ppd_file_t* ppd, std::string_view key);

} // namespace specialpages
