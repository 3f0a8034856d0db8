// Tags of the views of the two tab stock windows, as their nib gives them.
#pragma once

#include "controls/control_tables.h"

namespace specialpages {

inline constexpr ControlTag SPNumInSequenceStaticTextID = 501;
inline constexpr ControlTag SPNumInSequenceEditTextID = 511;
inline constexpr ControlTag SPNumInSequenceLittleArrowID = 512;
inline constexpr ControlTag SPTabMarginListCtrlID = 513;
inline constexpr ControlTag SPTabMarginInchesEditTextID = 514;
inline constexpr ControlTag SPTabMarginInchesLittleArrowID = 515;
inline constexpr ControlTag SPTabMarginMMEditTextID = 516;
inline constexpr ControlTag SPTabMarginMMLittleArrowID = 517;
inline constexpr ControlTag SPTabMarginMMRadioButtonID = 518;
inline constexpr ControlTag SPTabMarginInchesRadioButtonID = 519;
inline constexpr ControlTag SPTabMarginListTitleID = 520;
inline constexpr ControlTag SPTabMarginOKButtonID = 551;
inline constexpr ControlTag SPTabMarginCancelButtonID = 552;
inline constexpr ControlTag SPTabMarginDefaultButtonID = 553;

inline constexpr ControlTag SPNumInSequenceSubStaticTextID = 601;
inline constexpr ControlTag SPNumInSequenceSubEditTextID = 611;
inline constexpr ControlTag SPNumInSequenceSubLittleArrowID = 612;
inline constexpr ControlTag SPTabMarginSubOKButtonID = 651;
inline constexpr ControlTag SPTabMarginSubCancelButtonID = 652;
inline constexpr ControlTag SPTabMarginSubDefaultButtonID = 653;
inline constexpr ControlTag SPTabMarginSubHelpButtonID = 654;

} // namespace specialpages
