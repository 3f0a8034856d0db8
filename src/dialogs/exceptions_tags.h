// Tags of the views of the exceptions dialog, as its nib gives them.
#pragma once

#include "controls/control_tables.h"

namespace specialpages {

inline constexpr ControlTag spExceptionWndPageSTxtCtrlID = 301;
inline constexpr ControlTag spExceptionWndPaperSTxtCtrlID = 302;
inline constexpr ControlTag spExceptionWndJobSTxtCtrlID = 303;
inline constexpr ControlTag spExceptionWnd2SideSTxtCtrlID = 304;
inline constexpr ControlTag spExceptionWndPageRuleSTxtCtrlID = 305;
inline constexpr ControlTag spExceptionWndPageETxtCtrlID = 311;
inline constexpr ControlTag spExceptionWndPaperPopupBtnID = 312;
inline constexpr ControlTag spExceptionWndPageInfoViewID = 313;
inline constexpr ControlTag spExceptionWnd2SidePopupBtnID = 314;
inline constexpr ControlTag spExceptionWndOKBtnID = 315;
inline constexpr ControlTag spExceptionWndCancelBtnID = 316;
inline constexpr ControlTag spExceptionWndDefaultBtnID = 317;
inline constexpr ControlTag spExceptionWndHelpBtnID = 318;
inline constexpr ControlTag spExceptWndJobSettingRefViewID = 319;

} // namespace specialpages
