// The tables that declare the custom size window, from the top of its window to the bottom. Widths and
// lengths are tenths of a millimetre or hundredths of an inch. The filters of the fields stand with the other
// filters.
#pragma once

#include "controls/LittleArrayEMFSpecialPages.h"
#include "controls/RadioButtonEMFSpecialPages.h"
#include "controls/TextEditCtrlEMFSpecialPages.h"
#include "controls/control_tables.h"
#include "dialogs/custom_size_tags.h"

#include <array>

namespace specialpages {

/// Without keys, since the paper menu owns what is entered. The fields have it so that their views are read
/// and written.
inline constexpr AccessInfo SPCustomSizeWidthMMTextEditAccessInfo{};
inline constexpr AccessInfo SPCustomSizeWidthInchTextEditAccessInfo{};
inline constexpr AccessInfo SPCustomSizeLengthMMTextEditAccessInfo{};
inline constexpr AccessInfo SPCustomSizeLengthInchTextEditAccessInfo{};

// Each field updates its stepper, then its twin in the other unit; each stepper names its field, which it
// also has checked before a click counts.

// Width in millimetres.

inline constexpr TextEditIniData SPCustomSizeWidthMMIniData{
    .initialText = "0.0", .defaultText = "210.0", .minimumLength = 1, .maximumLength = 6};
inline constexpr EditValueRangeData SPCustomSizeWidthMMEditValueRangeData{.minimum = 1000, .maximum = 3300};
inline constexpr LittleArrayIniData SPCustomSizeWidthLittleArrowMMIniData{
    .defaultValue = 2100, .initial = 0, .minimum = 1000, .maximum = 3300, .increment = 1};
inline constexpr std::array<ControlTag, 2> SPCustomSizeWidthNumberMMEditUpdateCtrlArray{
    SPCustomSizeWidthMMLittleArrowID, SPCustomSizeWidthInchEditTextID};
inline constexpr std::array<ConstraintRow, 1> SPCustomSizeWidthNumberMMEditUpdateArray{
    SPCustomSizeWidthNumberMMEditUpdateCtrlArray};
inline constexpr ConstraintRecord SPCustomSizeWidthNumberMMEditCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPCustomSizeWidthNumberMMEditUpdateArray};
inline constexpr std::array<ControlTag, 1> SPCustomSizeWidthLittleArrayMMVlidateArray{
    SPCustomSizeWidthMMEditTextID};
inline constexpr std::array<ConstraintRow, 1> SPCustomSizeWidthLittleArrayMMUpdateArray{
    SPCustomSizeWidthLittleArrayMMVlidateArray};
inline constexpr ConstraintRecord SPCustomSizeWidthLittleArrayMMCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPCustomSizeWidthLittleArrayMMUpdateArray};

// Width in inches.

inline constexpr TextEditIniData SPCustomSizeWidthInchIniData{
    .initialText = "0.0", .defaultText = "8.27", .minimumLength = 1, .maximumLength = 5};
inline constexpr EditValueRangeData SPCustomSizeWidthInchEditValueRangeData{.minimum = 394, .maximum = 1299};
inline constexpr LittleArrayIniData SPCustomSizeWidthLittleArrowInchIniData{
    .defaultValue = 827, .initial = 0, .minimum = 394, .maximum = 1299, .increment = 1};
inline constexpr std::array<ControlTag, 2> SPCustomSizeWidthNumberInchEditUpdateCtrlArray{
    SPCustomSizeWidthInchLittleArrowID, SPCustomSizeWidthMMEditTextID};
inline constexpr std::array<ConstraintRow, 1> SPCustomSizeWidthNumberInchEditUpdateArray{
    SPCustomSizeWidthNumberInchEditUpdateCtrlArray};
inline constexpr ConstraintRecord SPCustomSizeWidthNumberInchEditCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPCustomSizeWidthNumberInchEditUpdateArray};
inline constexpr std::array<ControlTag, 1> SPCustomSizeWidthLittleArrayInchVlidateArray{
    SPCustomSizeWidthInchEditTextID};
inline constexpr std::array<ConstraintRow, 1> SPCustomSizeWidthLittleArrayInchUpdateArray{
    SPCustomSizeWidthLittleArrayInchVlidateArray};
inline constexpr ConstraintRecord SPCustomSizeWidthLittleArrayInchCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPCustomSizeWidthLittleArrayInchUpdateArray};

// Length in millimetres.

inline constexpr TextEditIniData SPCustomSizeLengthMMIniData{
    .initialText = "0.0", .defaultText = "297.0", .minimumLength = 1, .maximumLength = 6};
inline constexpr EditValueRangeData SPCustomSizeLengthMMEditValueRangeData{.minimum = 1480, .maximum = 4880};
inline constexpr LittleArrayIniData SPCustomSizeLengthLittleArrowMMIniData{
    .defaultValue = 2970, .initial = 0, .minimum = 1480, .maximum = 4880, .increment = 1};
inline constexpr std::array<ControlTag, 2> SPCustomSizeLengthNumberMMEditUpdateCtrlArray{
    SPCustomSizeLengthMMLittleArrowID, SPCustomSizeLengthInchEditTextID};
inline constexpr std::array<ConstraintRow, 1> SPCustomSizeLengthNumberMMEditUpdateArray{
    SPCustomSizeLengthNumberMMEditUpdateCtrlArray};
inline constexpr ConstraintRecord SPCustomSizeLengthNumberMMEditCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPCustomSizeLengthNumberMMEditUpdateArray};
inline constexpr std::array<ControlTag, 1> SPCustomSizeLengthLittleArrayMMVlidateArray{
    SPCustomSizeLengthMMEditTextID};
inline constexpr std::array<ConstraintRow, 1> SPCustomSizeLengthLittleArrayMMUpdateArray{
    SPCustomSizeLengthLittleArrayMMVlidateArray};
inline constexpr ConstraintRecord SPCustomSizeLengthLittleArrayMMCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPCustomSizeLengthLittleArrayMMUpdateArray};

// Length in inches.

inline constexpr TextEditIniData SPCustomSizeLengthInchIniData{
    .initialText = "0.0", .defaultText = "11.69", .minimumLength = 1, .maximumLength = 5};
inline constexpr EditValueRangeData SPCustomSizeLengthInchEditValueRangeData{.minimum = 583, .maximum = 1921};
inline constexpr LittleArrayIniData SPCustomSizeLengthLittleArrowInchIniData{
    .defaultValue = 1169, .initial = 0, .minimum = 583, .maximum = 1921, .increment = 1};
inline constexpr std::array<ControlTag, 2> SPCustomSizeLengthNumberInchEditUpdateCtrlArray{
    SPCustomSizeLengthInchLittleArrowID, SPCustomSizeLengthMMEditTextID};
inline constexpr std::array<ConstraintRow, 1> SPCustomSizeLengthNumberInchEditUpdateArray{
    SPCustomSizeLengthNumberInchEditUpdateCtrlArray};
inline constexpr ConstraintRecord SPCustomSizeLengthNumberInchEditCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPCustomSizeLengthNumberInchEditUpdateArray};
inline constexpr std::array<ControlTag, 1> SPCustomSizeLengthLittleArrayInchVlidateArray{
    SPCustomSizeLengthInchEditTextID};
inline constexpr std::array<ConstraintRow, 1> SPCustomSizeLengthLittleArrayInchUpdateArray{
    SPCustomSizeLengthLittleArrayInchVlidateArray};
inline constexpr ConstraintRecord SPCustomSizeLengthLittleArrayInchCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPCustomSizeLengthLittleArrayInchUpdateArray};

// The units. A radio that is off hides the controls of its own unit; each updates the other one, and has the
// fields of the unit that is left checked before it takes effect.

inline constexpr RadioIniData SPcustomSizeMMRdioIniData{
    .defaultState = 1, .initial = -1, .titleKey = "Tab Margin MM Radio Button Title"};
inline constexpr std::array<ControlTag, 8> SPcustomSizeMMHideCtrlArray{
    SPCustomSizeWidthMMStaticTextID,   SPCustomSizeWidthMMEditTextID,
    SPCustomSizeWidthMMLittleArrowID,  SPCustomSizeWidthMMSideStaticTextID,
    SPCustomSizeLengthMMStaticTextID,  SPCustomSizeLengthMMEditTextID,
    SPCustomSizeLengthMMLittleArrowID, SPCustomSizeLengthMMSideStaticTextID};
inline constexpr std::array<ConstraintRow, 2> SPcustomSizeMMHideCnstrnArray{SPcustomSizeMMHideCtrlArray,
                                                                            ConstraintRow{}};
inline constexpr std::array<ControlTag, 1> SPcustomSizeMMUpdateCtrlArray{SPCustomSizeInchesRadioButtonID};
inline constexpr std::array<ConstraintRow, 1> SPcustomSizeMMUpdateArray{SPcustomSizeMMUpdateCtrlArray};
inline constexpr ConstraintRecord SPcustomSizeMMRdioCnstrnInfo{
    .disable = {}, .hide = SPcustomSizeMMHideCnstrnArray, .update = SPcustomSizeMMUpdateArray};

inline constexpr RadioIniData SPcustomSizeinchesRdioIniData{
    .defaultState = 0, .initial = -1, .titleKey = "Tab Margin Inches Radio Button Title"};
inline constexpr std::array<ControlTag, 8> SPcustomSizeinchesHideCtrlArray{
    SPCustomSizeWidthInchStaticTextID,   SPCustomSizeWidthInchEditTextID,
    SPCustomSizeWidthInchLittleArrowID,  SPCustomSizeWidthInchSideStaticTextID,
    SPCustomSizeLengthInchStaticTextID,  SPCustomSizeLengthInchEditTextID,
    SPCustomSizeLengthInchLittleArrowID, SPCustomSizeLengthInchSideStaticTextID};
inline constexpr std::array<ConstraintRow, 2> SPcustomSizeinchesHideCnstrnArray{
    SPcustomSizeinchesHideCtrlArray, ConstraintRow{}};
inline constexpr std::array<ControlTag, 1> SPcustomSizeinchesUpdateCtrlArray{SPCustomSizeMMRadioButtonID};
inline constexpr std::array<ConstraintRow, 1> SPcustomSizeinchesUpdateArray{
    SPcustomSizeinchesUpdateCtrlArray};
inline constexpr ConstraintRecord SPcustomSizeinchesRdioCnstrnInfo{
    .disable = {}, .hide = SPcustomSizeinchesHideCnstrnArray, .update = SPcustomSizeinchesUpdateArray};

/// What the inches radio has checked.
inline constexpr std::array<ControlTag, 2> SPcustomSizeMMRdioValidateArray{SPCustomSizeWidthMMEditTextID,
                                                                           SPCustomSizeLengthMMEditTextID};
/// What the millimetres radio has checked.
inline constexpr std::array<ControlTag, 2> SPcustomSizeInchesRdioValidateArray{
    SPCustomSizeWidthInchEditTextID, SPCustomSizeLengthInchEditTextID};

static_assert(SPCustomSizeWidthMMEditValueRangeData.minimum < SPCustomSizeWidthMMEditValueRangeData.maximum);
static_assert(SPCustomSizeWidthInchEditValueRangeData.minimum <
              SPCustomSizeWidthInchEditValueRangeData.maximum);
static_assert(SPCustomSizeLengthMMEditValueRangeData.minimum <
              SPCustomSizeLengthMMEditValueRangeData.maximum);
static_assert(SPCustomSizeLengthInchEditValueRangeData.minimum <
              SPCustomSizeLengthInchEditValueRangeData.maximum);

} // namespace specialpages
