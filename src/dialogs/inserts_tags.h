// Tags of the views of the inserts dialog, as its nib gives them.
#pragma once

#include "controls/control_tables.h"

namespace specialpages {

// Two names are spelled as they always were: "Qption" for option, "Iob" for job.

inline constexpr ControlTag SPInstWndInstQptionStaticTagID = 3201;
inline constexpr ControlTag SPInstWndInstOptionTagID = 3202;
inline constexpr ControlTag SPInstWndQuantityStaticTagID = 3203;
inline constexpr ControlTag SPInstWndQuantityEditTagID = 3204;
inline constexpr ControlTag SPInstWndQuantityLArrTagID = 3205;
inline constexpr ControlTag SPInstWndPageNumStaticTagID = 3206;
inline constexpr ControlTag SPInstWndPageNumTagID = 3207;
inline constexpr ControlTag SPInstWndPaperViewStaticTagID = 3208;
inline constexpr ControlTag SPInstWndPaperViewTagID = 3209;
inline constexpr ControlTag SPInstWndSelePaperTagID = 3210;
inline constexpr ControlTag SPInstWndIobSetRefStaticTagID = 3211;
inline constexpr ControlTag SPInstWndJobSetRefTagID = 3212;
inline constexpr ControlTag SPInstWndHelpBtnTagID = 3213;
inline constexpr ControlTag SPInstWndDefaultBtnTagID = 3214;
inline constexpr ControlTag SPInstWndCancelBtnTagID = 3215;
inline constexpr ControlTag SPInstWndOKBtnTagID = 3216;
inline constexpr ControlTag SPInstWndPageRuleStaticTagID = 3217;

} // namespace specialpages
