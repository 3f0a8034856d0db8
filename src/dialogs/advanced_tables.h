// The tables that declare the advanced paper window, from the top of its window to the bottom.
#pragma once

#include "controls/PopupControlEMFSpecialPages.h"
#include "controls/SPScrollViewCtrlEMF.h"
#include "controls/control_tables.h"
#include "paper/advanced_tags.h"

#include <array>

namespace specialpages {

inline constexpr ScrollViewIniData SPAdvSeleWndScrollViewIniData{};

/// The menus come from the PPD alone.
inline constexpr PopupIniData SPAdvSeleWndLboxIniData{};

/// One row for whatever is chosen.
inline constexpr std::array<ControlTag, 1> SPAdvSeleWndUpdateCtrlArray{spAdvSeleWndSummaryViewID};
inline constexpr std::array<ConstraintRow, 1> SPAdvSeleWndUpdateArray{SPAdvSeleWndUpdateCtrlArray};
inline constexpr ConstraintRecord SPAdvSeleWndCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPAdvSeleWndUpdateArray};

} // namespace specialpages
