// The tables that declare the exceptions dialog, from the top of its window to the bottom.
#pragma once

#include "controls/PopupControlEMFSpecialPages.h"
#include "controls/SPScrollViewCtrlEMF.h"
#include "controls/TextEditCtrlEMFSpecialPages.h"
#include "controls/control_tables.h"
#include "dialogs/exceptions_tags.h"
#include "paper/paper_choice.h"
#include "records/record_tables.h"

#include <array>

namespace specialpages {

// The page text. Its filter, pageDefineFilterData, stands with the other filters.

inline constexpr TextEditIniData pageDefineIniData{
    .initialText = "", .defaultText = "", .minimumLength = 1, .maximumLength = 99};
/// Without keys: the text is never written on its own. The field has it so that its view is read and written.
inline constexpr AccessInfo pageDefineTextEditAccessInfo{};
inline constexpr EditValueRangeData pageDefineEditRangeData{.minimum = 1, .maximum = 65000};

// Menus, by their localised keys. In the nib the pop-ups are empty.

inline constexpr std::array<const char*, 7> exceptionBevelBtnIniMenu{
    "Select Paper String",
    kNoChangeKey,
    "Size String",
    "Color String",
    "Type String",
    "NVUncollateSeparator-INT",
    "Advanced Setting String",
};
inline constexpr PopupIniData exceptionBevelBtnIniData{.menuKeys = exceptionBevelBtnIniMenu};
inline constexpr ScrollViewIniData exceptWndScrollViewIniData{};

/// The keys by which the list of special pages also names an exception's sides.
inline constexpr std::array<const char*, 4> exceptionTwoSidePrintMenu{
    exceptionTowSidePrintIniMenu[0].data(), exceptionTowSidePrintIniMenu[1].data(),
    exceptionTowSidePrintIniMenu[2].data(), exceptionTowSidePrintIniMenu[3].data()};
/// Falls back to one-sided, its second item.
inline constexpr PopupIniData exceptionTwoSidePrintIniData{.defaultItem = 2,
                                                           .menuKeys = exceptionTwoSidePrintMenu};

// Every item of the paper menu but its title updates the paper view.

inline constexpr std::array<ControlTag, 1> addExceptSelectPaperUpdateCtrlArray{spExceptionWndPageInfoViewID};
inline constexpr std::array<ConstraintRow, 6> addExceptSelectPaperUpdateArray{
    addExceptSelectPaperUpdateCtrlArray, addExceptSelectPaperUpdateCtrlArray,
    addExceptSelectPaperUpdateCtrlArray, addExceptSelectPaperUpdateCtrlArray,
    addExceptSelectPaperUpdateCtrlArray, addExceptSelectPaperUpdateCtrlArray};
inline constexpr ConstraintRecord addExceptSelectPaperLboxCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = addExceptSelectPaperUpdateArray};

} // namespace specialpages
