// The tables that declare the inserts dialog, from the top of its window to the bottom. The filters of its
// two fields, SPInstPageNumEditFilterData and SPInstQuantityEditFilterData, stand with the other filters.
#pragma once

#include "controls/LittleArrayEMFSpecialPages.h"
#include "controls/PopupControlEMFSpecialPages.h"
#include "controls/SPScrollViewCtrlEMF.h"
#include "controls/TextEditCtrlEMFSpecialPages.h"
#include "controls/control_tables.h"
#include "dialogs/inserts_tags.h"
#include "paper/paper_choice.h"
#include "records/page_list.h"
#include "records/page_text_check.h"
#include "records/record_tables.h"

#include <array>

namespace specialpages {

// Where the sheets go in. Either item decides about the page text.

/// The keys by which the list of special pages also names an insert's option.
inline constexpr std::array<const char*, 2> insertOptionMenu{insertOptionListIniMenu[0].data(),
                                                             insertOptionListIniMenu[1].data()};
inline constexpr PopupIniData insertOptionLboxIniData{.menuKeys = insertOptionMenu};
inline constexpr std::array<ControlTag, 1> SPInstOptionListAfterCnstrnArray{SPInstWndPageNumTagID};
inline constexpr std::array<ControlTag, 1> SPInstOptionListBeforeCnstrnArray{SPInstWndPageNumTagID};
inline constexpr std::array<ConstraintRow, 2> SPInstOptionListConstrainCnstrnArray{
    SPInstOptionListAfterCnstrnArray, SPInstOptionListBeforeCnstrnArray};
inline constexpr ConstraintRecord SPInstOptionListCnstrnInfoPtr{
    .disable = SPInstOptionListConstrainCnstrnArray, .hide = {}, .update = {}};

// The quantity: a field and its stepper, each of which updates the other.

inline constexpr TextEditIniData SPInstQuantityEditIniData{
    .initialText = "1", .defaultText = "1", .minimumLength = 1, .maximumLength = 4};
inline constexpr EditValueRangeData SPInstQuantityEditRangeData{.minimum = 1, .maximum = 9999};
inline constexpr std::array<ControlTag, 1> SPInstQuantityEditUpdateCtrlArray{SPInstWndQuantityLArrTagID};
inline constexpr std::array<ConstraintRow, 1> SPInstQuantityEditUpdateArray{
    SPInstQuantityEditUpdateCtrlArray};
inline constexpr ConstraintRecord SPInstQuantityEditCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPInstQuantityEditUpdateArray};

inline constexpr LittleArrayIniData SPInstQuantityLArrIniData{
    .defaultValue = 1, .initial = 0, .minimum = 1, .maximum = 9999, .increment = 1};
inline constexpr std::array<ControlTag, 1> SPInstQuantityLArrUpdateCtrlArray{SPInstWndQuantityEditTagID};
inline constexpr std::array<ConstraintRow, 1> SPInstQuantityLArrUpdateArray{
    SPInstQuantityLArrUpdateCtrlArray};
inline constexpr ConstraintRecord SPInstQuantityLArrCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPInstQuantityLArrUpdateArray};
/// What a click asks before it counts.
inline constexpr std::array<ControlTag, 1> SPInstQuantityLArrVlidateArray{SPInstWndQuantityEditTagID};

// The page text.

inline constexpr TextEditIniData SPInstPageNumEditIniData{
    .initialText = "", .defaultText = "", .minimumLength = kMinInsertPageText, .maximumLength = kMaxPageText};
inline constexpr EditValueRangeData SPInstPageNumEditValueRangeData{.minimum = 0, .maximum = 65000};
/// Without keys: what the dialog holds is written as records only. Its fields have it so that their views are
/// read and written.
inline constexpr AccessInfo SPInstPageNumEditAccessInfo{};

// The paper. In the nib the pop-up is empty. Every item of the menu but its title updates the paper view.

inline constexpr std::array<const char*, 7> SPInstBevelBtnIniMenu{
    "Select Paper String",
    kNoChangeKey,
    "Size String",
    "Color String",
    "Type String",
    "NVUncollateSeparator-INT",
    "Advanced Setting String",
};
inline constexpr PopupIniData SPInstBevelBtnIniData{.menuKeys = SPInstBevelBtnIniMenu};
inline constexpr std::array<ControlTag, 1> SPInstBevelBtnUpdateCtrlArray{SPInstWndPaperViewTagID};
inline constexpr std::array<ConstraintRow, 6> SPInstBevelBtnUpdateArray{
    SPInstBevelBtnUpdateCtrlArray, SPInstBevelBtnUpdateCtrlArray, SPInstBevelBtnUpdateCtrlArray,
    SPInstBevelBtnUpdateCtrlArray, SPInstBevelBtnUpdateCtrlArray, SPInstBevelBtnUpdateCtrlArray};
inline constexpr ConstraintRecord SPInstBevelBtnCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = SPInstBevelBtnUpdateArray};
inline constexpr ScrollViewIniData SPInstWndScrollViewIniData{};

} // namespace specialpages
