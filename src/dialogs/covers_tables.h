// The tables that declare the covers dialog, from the top of its window to the bottom.
#pragma once

#include "controls/PopupControlEMFSpecialPages.h"
#include "controls/SPScrollViewCtrlEMF.h"
#include "controls/control_tables.h"
#include "paper/covers_tags.h"
#include "paper/paper_choice.h"
#include "records/record_tables.h"

#include <array>

namespace specialpages {

// Menus, by their localised keys. In the nib the pop-ups are empty.

inline constexpr std::array<const char*, 5> coverOptionListIniMenu{
    "No Covers String",
    "Front Only String",
    "Back Only String",
    "Front and Back Same String",
    "Front and Back Different String",
};
/// The keys by which the list of special pages also names a cover's printing option.
inline constexpr std::array<const char*, 4> coverPrintingOptionMenu{
    printingOptionListIniMenu[0].data(), printingOptionListIniMenu[1].data(),
    printingOptionListIniMenu[2].data(), printingOptionListIniMenu[3].data()};
inline constexpr std::array<const char*, 7> coverSelectPaperListIniMenu{
    "Select Paper String",
    kNoChangeKey,
    "Size String",
    "Color String",
    "Type String",
    "NVUncollateSeparator-INT",
    "Advanced Setting String",
};

inline constexpr PopupIniData coverOptionLboxIniData{.menuKeys = coverOptionListIniMenu};
inline constexpr PopupIniData printingOptionLboxIniData{.menuKeys = coverPrintingOptionMenu};
inline constexpr PopupIniData coverSelectPaperLboxIniData{.menuKeys = coverSelectPaperListIniMenu};
inline constexpr ScrollViewIniData coverWndScrollViewIniData{};
inline constexpr ScrollViewIniData coverWndJobSettingScrollViewIniData{};

// What each cover option leaves out is disabled.

inline constexpr std::array<ControlTag, 6> spCoversNoCoversDisableCtrlArray{
    spCoversWndFrontCoverPageListID,     spCoversWndFrontPrintingOptionListID, spCoversWndBackCoverPageListID,
    spCoversWndBackPrintingOptionListID, spCoversWndFrontCoverPageViewID,      spCoversWndBackCoverPageViewID,
};
inline constexpr std::array<ControlTag, 3> spCoversFrontOnlyDisableCtrlArray{
    spCoversWndBackCoverPageListID, spCoversWndBackPrintingOptionListID, spCoversWndBackCoverPageViewID};
inline constexpr std::array<ControlTag, 3> spCoversBackOnlyDisableCtrlArray{
    spCoversWndFrontCoverPageListID, spCoversWndFrontPrintingOptionListID, spCoversWndFrontCoverPageViewID};
inline constexpr std::array<ControlTag, 2> spCoversSameDisableCtrlArray{spCoversWndBackCoverPageListID,
                                                                        spCoversWndBackPrintingOptionListID};
inline constexpr std::array<ConstraintRow, 4> spCoversOptionDisableCnstrnArray{
    spCoversNoCoversDisableCtrlArray,
    spCoversFrontOnlyDisableCtrlArray,
    spCoversBackOnlyDisableCtrlArray,
    spCoversSameDisableCtrlArray,
};

// What each cover option updates, in the order in which it is told.

inline constexpr std::array<ControlTag, 6> spCoversNoCoversUpdateCtrlArray{
    spCoversWndFrontPrintingOptionListID, spCoversWndFrontCoverPageListID,
    spCoversWndBackPrintingOptionListID,  spCoversWndBackCoverPageListID,
    spCoversWndFrontCoverPageViewID,      spCoversWndBackCoverPageViewID,
};
inline constexpr std::array<ControlTag, 4> spCoversOtherOptionUpdateCtrlArray{
    spCoversWndFrontCoverPageViewID, spCoversWndBackCoverPageViewID, spCoversWndFrontPrintingOptionListID,
    spCoversWndBackPrintingOptionListID};
inline constexpr std::array<ControlTag, 5> spCoversSameUpdateCtrlArray{
    spCoversWndFrontPrintingOptionListID, spCoversWndBackPrintingOptionListID, spCoversWndBackCoverPageListID,
    spCoversWndFrontCoverPageViewID, spCoversWndBackCoverPageViewID};
inline constexpr std::array<ConstraintRow, 5> spCoversOptionUpdateArray{
    spCoversNoCoversUpdateCtrlArray, spCoversOtherOptionUpdateCtrlArray, spCoversOtherOptionUpdateCtrlArray,
    spCoversSameUpdateCtrlArray,     spCoversOtherOptionUpdateCtrlArray,
};
inline constexpr ConstraintRecord spCoversOptionLboxCnstrnInfoPtr{
    .disable = spCoversOptionDisableCnstrnArray, .hide = {}, .update = spCoversOptionUpdateArray};

// Every item of a list below updates the same controls.

inline constexpr std::array<ControlTag, 2> spCoversFrontPrintingUpdateCtrlArray{
    spCoversWndBackPrintingOptionListID, spCoversWndFrontCoverPageListID};
inline constexpr std::array<ConstraintRow, 4> spCoversOptionFrontUpdateArray{
    spCoversFrontPrintingUpdateCtrlArray, spCoversFrontPrintingUpdateCtrlArray,
    spCoversFrontPrintingUpdateCtrlArray, spCoversFrontPrintingUpdateCtrlArray};
inline constexpr ConstraintRecord spCoversFrontPrintingCnstrnInfo{
    .disable = {}, .hide = {}, .update = spCoversOptionFrontUpdateArray};

inline constexpr std::array<ControlTag, 1> spCoversBackPrintingUpdateCtrlArray{
    spCoversWndBackCoverPageListID};
inline constexpr std::array<ConstraintRow, 4> spCoversOptionBackUpdateArray{
    spCoversBackPrintingUpdateCtrlArray, spCoversBackPrintingUpdateCtrlArray,
    spCoversBackPrintingUpdateCtrlArray, spCoversBackPrintingUpdateCtrlArray};
inline constexpr ConstraintRecord spCoversBackPrintingCnstrnInfo{
    .disable = {}, .hide = {}, .update = spCoversOptionBackUpdateArray};

inline constexpr std::array<ControlTag, 3> spCoversFrontPaperUpdateCtrlArray{
    spCoversWndFrontCoverPageViewID, spCoversWndBackCoverPageListID, spCoversWndBackCoverPageViewID};
inline constexpr std::array<ConstraintRow, 6> spCoverFrontSelectPaperUpdateArray{
    spCoversFrontPaperUpdateCtrlArray, spCoversFrontPaperUpdateCtrlArray, spCoversFrontPaperUpdateCtrlArray,
    spCoversFrontPaperUpdateCtrlArray, spCoversFrontPaperUpdateCtrlArray, spCoversFrontPaperUpdateCtrlArray};
inline constexpr ConstraintRecord spCoversFrontPaperCnstrnInfo{
    .disable = {}, .hide = {}, .update = spCoverFrontSelectPaperUpdateArray};

inline constexpr std::array<ControlTag, 1> spCoversBackPaperUpdateCtrlArray{spCoversWndBackCoverPageViewID};
inline constexpr std::array<ConstraintRow, 6> spCoverBackSelectPaperUpdateArray{
    spCoversBackPaperUpdateCtrlArray, spCoversBackPaperUpdateCtrlArray, spCoversBackPaperUpdateCtrlArray,
    spCoversBackPaperUpdateCtrlArray, spCoversBackPaperUpdateCtrlArray, spCoversBackPaperUpdateCtrlArray};
inline constexpr ConstraintRecord spCoversBackPaperCnstrnInfo{
    .disable = {}, .hide = {}, .update = spCoverBackSelectPaperUpdateArray};

} // namespace specialpages
