// Tags of the views of the advanced paper window, as its nib gives them.
#pragma once

#include "controls/control_tables.h"

namespace specialpages {

inline constexpr ControlTag spAdvSeleWndSummaryTitleID = 401;
inline constexpr ControlTag spAdvSeleWndSummaryViewID = 402;
inline constexpr ControlTag spAdvSeleWndPaperSizeTitleID = 403;
inline constexpr ControlTag spAdvSeleWndPaperColorTitleID = 404;
inline constexpr ControlTag spAdvSeleWndPaperTypeTitleID = 405;
inline constexpr ControlTag spAdvSeleWndPaperSizeListID = 406;
inline constexpr ControlTag spAdvSeleWndPaperColorListID = 407;
inline constexpr ControlTag spAdvSeleWndPaperTypeListID = 408;
inline constexpr ControlTag spAdvSeleWndHelpButtonID = 409;
inline constexpr ControlTag spAdvSeleWndDefaultsButtonID = 410;
inline constexpr ControlTag spAdvSeleWndOKButtonID = 411;
inline constexpr ControlTag spAdvSeleWndCancelButtonID = 412;

} // namespace specialpages
