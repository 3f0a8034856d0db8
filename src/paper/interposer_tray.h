// When the interposer, the tray of ready-printed sheets, is offered in a paper menu.
#pragma once

#include "ppd/choice_conflict.h"
#include "ppd/ppd_keywords.h"

#include <cups/ppd.h>

#include <array>

namespace specialpages {

/// The finishers that have an interposer.
inline constexpr int doHideTrayInterposerItemCheckArrayCount = 6;
inline constexpr std::array<const char*, doHideTrayInterposerItemCheckArrayCount>
    doHideTrayInterposerItemCheckArray{
        "FinisherTypeD3Holes",       "FinisherTypeD3HolesCZ",   "FinisherTypeD2and3Holes",
        "FinisherTypeD2and3HolesCZ", "FinisherTypeD2and4Holes", "FinisherTypeD2and4HolesCZ",
    };

/// Whether the menu hides its interposer item: the PPD's own option decides by its default, True or False;
/// any other default, or none, leaves it to the marked finisher. True without a PPD or a marked finisher.
bool doHideTrayInterposerItem(ppd_file_t* ppd);

/// Choices that bar the interposer while they are marked.
struct KeywordChoice {
    const char* keyword;
    const char* choice;
};
inline constexpr std::array<KeywordChoice, 1> Tray8InterposerConstrainInfo{{
    {kNXHolePunchSettings, "CoilPunch"},
}};

/// The marked choice that bars the interposer; both pointers are null when none does.
ConflictingChoice interposer_conflict(ppd_file_t* ppd);

} // namespace specialpages
