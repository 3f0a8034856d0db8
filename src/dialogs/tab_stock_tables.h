// The tables that declare the two tab stock windows, from the top of the large one to the bottom, then the
// small one. Margins are tenths of a millimetre or hundredths of an inch. The filters of the fields stand
// with the other filters.
#pragma once

#include "controls/LittleArrayEMFSpecialPages.h"
#include "controls/PopupControlEMFSpecialPages.h"
#include "controls/RadioButtonEMFSpecialPages.h"
#include "controls/TextEditCtrlEMFSpecialPages.h"
#include "controls/control_tables.h"
#include "dialogs/tab_stock_tags.h"

#include <array>

namespace specialpages {

/// Without keys, since the dialogs own what is entered. The fields have it so that their views are read and
/// written.
inline constexpr AccessInfo SPNumInSequenceTextEditAccessInfo{};
inline constexpr AccessInfo SPTabMarginMMTextEditAccessInfo{};
inline constexpr AccessInfo SPTabMarginInchTextEditAccessInfo{};

// Each field updates its stepper, then its twin in the other unit; each stepper names its field, which it
// also has checked before a click counts.

// Number of tabs in a sequence.

inline constexpr TextEditIniData SPNumInSequenceIniData{
    .initialText = "3", .defaultText = "3", .minimumLength = 1, .maximumLength = 3};
inline constexpr EditValueRangeData SPNumInSequenceEditValueRangeData{.minimum = 1, .maximum = 254};
inline constexpr LittleArrayIniData SPNumInSequenceLittleArrowIniData{
    .defaultValue = 3, .initial = 0, .minimum = 1, .maximum = 254, .increment = 1};
inline constexpr std::array<ControlTag, 1> SPNumInSequenceNumberEditUpdateCtrlArray{
    SPNumInSequenceLittleArrowID};
inline constexpr std::array<ConstraintRow, 1> SPNumInSequenceNumberEditUpdateArray{
    SPNumInSequenceNumberEditUpdateCtrlArray};
inline constexpr ConstraintRecord SPNumInSequenceNumberEditCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPNumInSequenceNumberEditUpdateArray};
inline constexpr std::array<ControlTag, 1> SPNumInSequenceLittleArrayValidateArray{SPNumInSequenceEditTextID};
inline constexpr std::array<ConstraintRow, 1> SPNumInSequenceLittleArrayUpdateArray{
    SPNumInSequenceLittleArrayValidateArray};
inline constexpr ConstraintRecord SPNumInSequenceLittleArrayCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPNumInSequenceLittleArrayUpdateArray};

// The presets of the margin. All but the last disable what a margin of the user's own is entered with, and
// update what they set.

/// Item numbers.
enum TabMarginItem : std::int32_t {
    kNoShiftItem = 1,
    kLetterShiftItem = 2,
    kA4ShiftItem = 3,
    kCustomShiftItem = 4
};
inline constexpr std::array<const char*, 4> spTabMarginListIniMenu{"No Shift Text", "Letter Shift Text",
                                                                   "A4 Shift Text", "Custom Shift Text"};
inline constexpr PopupIniData spTabMarginListIniData{.defaultItem = kNoShiftItem,
                                                     .menuKeys = spTabMarginListIniMenu};
inline constexpr std::array<ControlTag, 6> spTabMarginListConstrainCtrlArray{
    SPTabMarginInchesEditTextID, SPTabMarginInchesLittleArrowID, SPTabMarginMMEditTextID,
    SPTabMarginMMLittleArrowID,  SPTabMarginInchesRadioButtonID, SPTabMarginMMRadioButtonID};
inline constexpr std::array<ConstraintRow, 4> spTabMarginListConstrainArray{
    spTabMarginListConstrainCtrlArray, spTabMarginListConstrainCtrlArray, spTabMarginListConstrainCtrlArray,
    ConstraintRow{}};
inline constexpr std::array<ControlTag, 4> spTabMarginListUpdateCtrlArray{
    SPTabMarginInchesLittleArrowID, SPTabMarginMMLittleArrowID, SPTabMarginInchesRadioButtonID,
    SPTabMarginMMRadioButtonID};
inline constexpr std::array<ConstraintRow, 4> spTabMarginListUpdateArray{
    spTabMarginListUpdateCtrlArray, spTabMarginListUpdateCtrlArray, spTabMarginListUpdateCtrlArray,
    ConstraintRow{}};
inline constexpr ConstraintRecord spTabMarginLboxCnstrnInfoPtr{
    .disable = spTabMarginListConstrainArray, .hide = {}, .update = spTabMarginListUpdateArray};

// The margin in millimetres.

inline constexpr TextEditIniData SPTabMarginMMIniData{
    .initialText = "0.0", .defaultText = "12.7", .minimumLength = 1, .maximumLength = 4};
inline constexpr EditValueRangeData SPTabMarginMMEditValueRangeData{.minimum = 0, .maximum = 150};
inline constexpr LittleArrayIniData SPTabMarginLittleArrowMMIniData{
    .defaultValue = 127, .initial = 0, .minimum = 0, .maximum = 150, .increment = 1};
inline constexpr std::array<ControlTag, 2> SPTabMarginNumberMMEditUpdateCtrlArray{
    SPTabMarginMMLittleArrowID, SPTabMarginInchesEditTextID};
inline constexpr std::array<ConstraintRow, 1> SPTabMarginNumberMMEditUpdateArray{
    SPTabMarginNumberMMEditUpdateCtrlArray};
inline constexpr ConstraintRecord SPTabMarginNumberMMEditCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPTabMarginNumberMMEditUpdateArray};
inline constexpr std::array<ControlTag, 1> SPTabMarginLittleArrayMMValidateArray{SPTabMarginMMEditTextID};
inline constexpr std::array<ConstraintRow, 1> SPTabMarginLittleArrayMMUpdateArray{
    SPTabMarginLittleArrayMMValidateArray};
inline constexpr ConstraintRecord SPTabMarginLittleArrayMMCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPTabMarginLittleArrayMMUpdateArray};

// The margin in inches.

inline constexpr TextEditIniData SPTabMarginInchIniData{
    .initialText = "0.00", .defaultText = "0.50", .minimumLength = 1, .maximumLength = 4};
inline constexpr EditValueRangeData SPTabMarginInchEditValueRangeData{.minimum = 0, .maximum = 59};
inline constexpr LittleArrayIniData SPTabMarginLittleArrowInchIniData{
    .defaultValue = 50, .initial = 0, .minimum = 0, .maximum = 59, .increment = 1};
inline constexpr std::array<ControlTag, 2> SPTabMarginNumberInchEditUpdateCtrlArray{
    SPTabMarginInchesLittleArrowID, SPTabMarginMMEditTextID};
inline constexpr std::array<ConstraintRow, 1> SPTabMarginNumberInchEditUpdateArray{
    SPTabMarginNumberInchEditUpdateCtrlArray};
inline constexpr ConstraintRecord SPTabMarginNumberInchEditCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPTabMarginNumberInchEditUpdateArray};
inline constexpr std::array<ControlTag, 1> SPTabMarginLittleArrayInchValidateArray{
    SPTabMarginInchesEditTextID};
inline constexpr std::array<ConstraintRow, 1> SPTabMarginLittleArrayInchUpdateArray{
    SPTabMarginLittleArrayInchValidateArray};
inline constexpr ConstraintRecord SPTabMarginLittleArrayInchCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPTabMarginLittleArrayInchUpdateArray};

// The units. A radio that is off hides the controls of its own unit; each updates the other one, and has the
// field of the unit that is left checked before it takes effect.

inline constexpr RadioIniData SPtabMarginMMRdioIniData{
    .defaultState = 1, .initial = -1, .titleKey = "Tab Margin MM Radio Button Title"};
inline constexpr std::array<ControlTag, 2> SPtabMarginMMHideCtrlArray{SPTabMarginMMEditTextID,
                                                                      SPTabMarginMMLittleArrowID};
inline constexpr std::array<ConstraintRow, 2> SPtabMarginMMHideCnstrnArray{SPtabMarginMMHideCtrlArray,
                                                                           ConstraintRow{}};
inline constexpr std::array<ControlTag, 1> SPtabMarginMMUpdateCtrlArray{SPTabMarginInchesRadioButtonID};
inline constexpr std::array<ConstraintRow, 1> SPtabMarginMMUpdateArray{SPtabMarginMMUpdateCtrlArray};
inline constexpr ConstraintRecord SPtabMarginMMRdioCnstrnInfo{
    .disable = {}, .hide = SPtabMarginMMHideCnstrnArray, .update = SPtabMarginMMUpdateArray};

inline constexpr RadioIniData SPtabMargininchesRdioIniData{
    .defaultState = 0, .initial = -1, .titleKey = "Tab Margin Inches Radio Button Title"};
inline constexpr std::array<ControlTag, 2> SPtabMargininchesHideCtrlArray{SPTabMarginInchesEditTextID,
                                                                          SPTabMarginInchesLittleArrowID};
inline constexpr std::array<ConstraintRow, 2> SPtabMargininchesHideCnstrnArray{SPtabMargininchesHideCtrlArray,
                                                                               ConstraintRow{}};
inline constexpr std::array<ControlTag, 1> SPtabMargininchesUpdateCtrlArray{SPTabMarginMMRadioButtonID};
inline constexpr std::array<ConstraintRow, 1> SPtabMargininchesUpdateArray{SPtabMargininchesUpdateCtrlArray};
inline constexpr ConstraintRecord SPtabMargininchesRdioCnstrnInfo{
    .disable = {}, .hide = SPtabMargininchesHideCnstrnArray, .update = SPtabMargininchesUpdateArray};

/// What the inches radio has checked.
inline constexpr std::array<ControlTag, 1> SPtabMarginMMRdioValidateArray{SPTabMarginMMEditTextID};
/// What the millimetres radio has checked.
inline constexpr std::array<ControlTag, 1> SPtabMarginInchesRdioValidateArray{SPTabMarginInchesEditTextID};

// The small window. Its number has the values of the large one's.

inline constexpr std::array<ControlTag, 1> SPNumInSequenceSubNumberEditUpdateCtrlArray{
    SPNumInSequenceSubLittleArrowID};
inline constexpr std::array<ConstraintRow, 1> SPNumInSequenceSubNumberEditUpdateArray{
    SPNumInSequenceSubNumberEditUpdateCtrlArray};
inline constexpr ConstraintRecord SPNumInSequenceSubNumberEditCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPNumInSequenceSubNumberEditUpdateArray};
inline constexpr std::array<ControlTag, 1> SPNumInSequenceSubLittleArrayValidateArray{
    SPNumInSequenceSubEditTextID};
inline constexpr std::array<ConstraintRow, 1> SPNumInSequenceSubLittleArrayUpdateArray{
    SPNumInSequenceSubLittleArrayValidateArray};
inline constexpr ConstraintRecord SPNumInSequenceSubLittleArrayCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPNumInSequenceSubLittleArrayUpdateArray};

static_assert(spTabMarginListIniMenu.size() == kCustomShiftItem);
static_assert(spTabMarginListConstrainArray.size() == spTabMarginListIniMenu.size());
static_assert(spTabMarginListUpdateArray.size() == spTabMarginListIniMenu.size());

} // namespace specialpages
