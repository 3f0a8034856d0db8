// Tags of the views of the custom size window, as its nib gives them.
#pragma once

#include "controls/control_tables.h"

namespace specialpages {

inline constexpr ControlTag SPCustomSizeWidthMMStaticTextID = 701;
inline constexpr ControlTag SPCustomSizeWidthInchStaticTextID = 702;
inline constexpr ControlTag SPCustomSizeWidthMMEditTextID = 711;
inline constexpr ControlTag SPCustomSizeWidthInchEditTextID = 712;
inline constexpr ControlTag SPCustomSizeWidthMMLittleArrowID = 713;
inline constexpr ControlTag SPCustomSizeWidthInchLittleArrowID = 714;
inline constexpr ControlTag SPCustomSizeWidthMMSideStaticTextID = 715;
inline constexpr ControlTag SPCustomSizeWidthInchSideStaticTextID = 716;
inline constexpr ControlTag SPCustomSizeMMRadioButtonID = 717;
inline constexpr ControlTag SPCustomSizeInchesRadioButtonID = 718;
inline constexpr ControlTag SPCustomSizeLengthMMStaticTextID = 721;
inline constexpr ControlTag SPCustomSizeLengthInchStaticTextID = 722;
inline constexpr ControlTag SPCustomSizeLengthMMEditTextID = 731;
inline constexpr ControlTag SPCustomSizeLengthInchEditTextID = 732;
inline constexpr ControlTag SPCustomSizeLengthMMLittleArrowID = 733;
inline constexpr ControlTag SPCustomSizeLengthInchLittleArrowID = 734;
inline constexpr ControlTag SPCustomSizeLengthMMSideStaticTextID = 735;
inline constexpr ControlTag SPCustomSizeLengthInchSideStaticTextID = 736;
inline constexpr ControlTag SPCustomSizeOKButtonID = 751;
inline constexpr ControlTag SPCustomSizeCancelButtonID = 752;
inline constexpr ControlTag SPCustomSizeDefaultButtonID = 753;
inline constexpr ControlTag SPCustomSizeHelpButtonID = 754;

} // namespace specialpages
