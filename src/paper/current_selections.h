// What is chosen now, option by option: the paper of one menu and the marks of the PPD. Two parallel lists
// say it, the option keywords and the choice that stands for each; positions 0, 1 and 2 are size, color and
// type.
#pragma once

#include "paper/paper_choice.h"

#include <cups/ppd.h>

#include <array>
#include <span>
#include <string>
#include <vector>

namespace specialpages {

/// What to assume for an option without a marked choice; a null choice stands for the option's default.
struct KeyMayNotMarked {
    const char* option;
    const char* choice;
};
inline constexpr std::array<KeyMayNotMarked, 3> ppdKeyMayNotMarked{{
    {"PageRegion", nullptr},
    {"ManualFeed", kNullChoice},
    {"Collate", "True"},
}};

/// The option keywords: size, color, type, then those of the list in its order, each with the vendor prefix
/// put right; those of the paper itself, "Duplex" and "InputSlot" are left out. The color key of `keys` is
/// put right already.
std::vector<std::string> current_selection_keys(ppd_file_t* ppd, const PaperOptionKeys& keys,
                                                std::span<const std::string> keywordList);

/// The choice for each of those keywords. `paper` are the three choices of the menu in its order (kNullChoice
/// for "No Change", empty for a choice that the menu does not have). Without a PPD only these three are
/// answered.
///
/// An option without a marked choice that ppdKeyMayNotMarked does not name has the choice of the option
/// before it (at first kNullChoice): the value runs on, on purpose.
std::vector<std::string> current_selections(ppd_file_t* ppd, const PaperOptionKeys& keys,
                                            std::span<const std::string> keywordList,
                                            const std::array<std::string, 3>& paper);

} // namespace specialpages
