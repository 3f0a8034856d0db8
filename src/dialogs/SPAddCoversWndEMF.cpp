#include "dialogs/SPAddCoversWndEMF.h"

#include "controls/SPHelpButtonEMF.h"
#include "controls/SpecialPagesHub.h"
#include "controls/StaticTextEditControlEMFSpecialPages.h"
#include "dialogs/cover_records.h"
#include "dialogs/covers_tables.h"
#include "dialogs/dialog_builder.h"
#include "dialogs/dialog_buttons.h"
#include "dialogs/dialog_title.h"
#include "paper/SPCoverPageSettingScrollViewCtrlEMF.h"
#include "paper/SPCoversSelectPaperListCtrlEMF.h"
#include "paper/SPCoversWinListCtrlEMF.h"
#include "paper/SPJobSettingScrollViewCtrlEMF.h"
#include "paper/duplex_choices.h"
#include "platform/foundation/Bundle.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/Window.h"
#include "ppd/ppd_keywords.h"
#include "records/SPSummaryScrollViewCtrl.h"

#include <array>

namespace specialpages {

namespace {

constexpr std::int32_t kFrontType = 0;
constexpr std::int32_t kBackType = 1;
/// Neither inches nor millimetres.
constexpr std::int32_t kNoLongMeasure = 2;
constexpr std::int32_t kCoverType = static_cast<std::int32_t>(RecordType::cover);
constexpr const char* kPrintingListTitle = "Add Cover Wnd Printing Options List Title";

void add_option_list(DialogBuilder& add, SPCoversWinListCtrlEMF*& field, ControlTag tag) {
    add.add(field, tag, [](SPCoversWinListCtrlEMF& control, platform::View* view) {
        control.CreateControl(view, &coverOptionLboxIniData, &spCoversOptionLboxCnstrnInfoPtr, nullptr, {},
                              nullptr, {}, 0);
    });
}

void add_printing_list(DialogBuilder& add, SPCoversWinListCtrlEMF*& field, ControlTag tag,
                       const ConstraintRecord& constraints, ControlTag paperList) {
    add.add(field, tag, [&](SPCoversWinListCtrlEMF& control, platform::View* view) {
        control.CreateControl(view, &printingOptionLboxIniData, &constraints, nullptr, {}, kPPDDuplex,
                              printingOptionGetDuplexChoiceArray, paperList);
    });
}

PaperMenuTables paper_tables(const ConstraintRecord& constraints, ControlTag printingList) {
    return {.iniData = &coverSelectPaperLboxIniData,
            .constraints = &constraints,
            .windowType = kCoversWndType,
            .duplexControl = printingList};
}

} // namespace

void SPAddCoversWndEMF::CreatePanel(platform::Window* window, const char* theWinTitleStr) {
    PopupWinInPanel(window, theWinTitleStr);
    TabStockValue = 3;
    DialogBuilder add(*this, window);
    add.title(spCoversOptionsListTitleCtrlPtr, spCoversWndCoverOptionListTitleID,
              "Add Cover Wnd Cover Options List Title");
    add_option_list(add, spCoversOptionsListPtr, spCoversWndCoverOptionListID);

    add.title(spCoversWndFrontCoverPagerViewTitleCtrlPtr, spCoversWndFrontCoverPageViewTitleID,
              "Add Cover Wnd Front Cover Paper Info View Title");
    add.paperMenu(spCoverWndFrontSelectPaperListPtr, spCoversWndFrontCoverPageListID,
                  paper_tables(spCoversFrontPaperCnstrnInfo, spCoversWndFrontPrintingOptionListID));
    add.paperView(spCoversWndFrontCoverPageViewPtr, spCoversWndFrontCoverPageViewID,
                  coverWndScrollViewIniData, spCoverWndFrontSelectPaperListPtr);
    add.title(spPrintingOptionsFrontListTitleCtrlPtr, spCoversWndFrontPrintingOptionTitleID,
              kPrintingListTitle);
    add_printing_list(add, spPrintingOptionsFrontListPtr, spCoversWndFrontPrintingOptionListID,
                      spCoversFrontPrintingCnstrnInfo, spCoversWndFrontCoverPageListID);

    add.title(spCoversWndBackCoverPagerViewTitleCtrlPtr, spCoversWndBackCoverPageViewTitleID,
              "Add Cover Wnd Back Cover Paper Info View Title");
    add.paperMenu(spCoverWndBackSelectPaperListPtr, spCoversWndBackCoverPageListID,
                  paper_tables(spCoversBackPaperCnstrnInfo, spCoversWndBackPrintingOptionListID));
    add.paperView(spCoversWndBackCoverPageViewPtr, spCoversWndBackCoverPageViewID, coverWndScrollViewIniData,
                  spCoverWndBackSelectPaperListPtr);
    add.title(spPrintingOptionsBackListTitleCtrlPtr, spCoversWndBackPrintingOptionTitleID,
              kPrintingListTitle);
    add_printing_list(add, spPrintingOptionsBackListPtr, spCoversWndBackPrintingOptionListID,
                      spCoversBackPrintingCnstrnInfo, spCoversWndBackCoverPageListID);

    add.title(spCoversWndJobSettingViewTitleCtrlPtr, spCoversWndJobSettingRefTitleID,
              "Job Setting Reference View Title");
    add.jobView(spCoversWndJobSettingViewCtrlPtr, spCoversWndJobSettingRefViewID,
                coverWndJobSettingScrollViewIniData);
    add.help(spCoversWndHelpButPtr, spCoversWndHelpButtonID, "SpecialPagesCover.htm");
    add.button(spCoversWndDefaultButPtr, spCoversWndDefaultsButtonID, kRestoreButtonTitle);
    add.button(spCancelButCtrlPtr, spCoversWndCancelButtonID, kCancelButtonTitle);
    add.button(spCoversWndOKButPtr, spCoversWndOKButtonID, kOkButtonTitle);
}

std::int32_t SPAddCoversWndEMF::ActivateWindow() {
    SPSummaryScrollViewCtrl* list = summary();
    if (windowRef == nullptr || list == nullptr) {
        return 0;
    }
    ReInitializeUserPane();
    SetUIDataToIniData();
    resetUserPaneTitle(list->getSummaryScrollViewStatus());
    m_CoversDataRecords.clear();
    if (!list->getArrayByType(&m_CoversDataRecords, kCoverType)) {
        return 0;
    }
    ChangeActivedStatus(true);
    TabStockValue = hub()->getTabStockValue();
    replayValues();
    platform::Application::shared().runModalForWindow(*windowRef);
    return 0;
}

void SPAddCoversWndEMF::replayValues() {
    SetDefaultValueToUI();
    if (spCoverWndFrontSelectPaperListPtr != nullptr) {
        // Both calls are the front's; the back paper list gets its default with the values below.
        spCoverWndFrontSelectPaperListPtr->SetControlValueToDefault();
        spCoverWndFrontSelectPaperListPtr->SetControlValueToDefault();
    }
    SetCurrentValueToUI();
    ppd_file_s* ppd = GetCurrentPPD();
    for (SPCoversWinListCtrlEMF* list : {spPrintingOptionsFrontListPtr, spPrintingOptionsBackListPtr}) {
        if (list != nullptr) {
            list->UpdateConflictsPanelControlFromPPD(ppd);
        }
    }
    for (SPCoversSelectPaperListCtrlEMF* menu :
         {spCoverWndFrontSelectPaperListPtr, spCoverWndBackSelectPaperListPtr}) {
        if (menu != nullptr) {
            menu->updateSelectionArray();
            menu->UpdateSelfConflictsFromPPD(ppd);
            menu->Update();
            menu->doPrintingOptionsConstraint();
        }
    }
}

void SPAddCoversWndEMF::resetUserPaneTitle(std::int64_t status) {
    set_title_for_status(windowRef, pdeBundleRef, status, "Add Covers Windows", "Edit Covers Windows");
}

SPSummaryScrollViewCtrl* SPAddCoversWndEMF::summary() {
    return hub() == nullptr ? nullptr : hub()->getSPSummaryScrollViewCtrlPtr();
}

CoverOption SPAddCoversWndEMF::option() const {
    return spCoversOptionsListPtr == nullptr
               ? CoverOption::none
               : static_cast<CoverOption>(spCoversOptionsListPtr->selectedPosition());
}

SPCoversSelectPaperListCtrlEMF* SPAddCoversWndEMF::paperMenu(std::int32_t type) const {
    switch (type) {
    case kFrontType:
        return spCoverWndFrontSelectPaperListPtr;
    case kBackType:
        return spCoverWndBackSelectPaperListPtr;
    default:
        return nullptr;
    }
}

CoverSide SPAddCoversWndEMF::sideFromViews(std::int32_t type) const {
    const SPCoversWinListCtrlEMF* printing =
        type == kFrontType ? spPrintingOptionsFrontListPtr : spPrintingOptionsBackListPtr;
    CoverSide side;
    side.printing = printing == nullptr ? 0 : static_cast<std::int32_t>(printing->selectedPosition());
    if (const SPCoversSelectPaperListCtrlEMF* menu = paperMenu(type)) {
        menu->getControlValue(&side.paper);
    }
    side.width = getCoversCustomPageWidthByType(type).value_or("");
    side.length = getCoversCustomPageLengthByType(type).value_or("");
    side.longMeasure = getCoversCustomPageSizeLongMeasure(type);
    return side;
}

void SPAddCoversWndEMF::rebuildRecords() {
    const CoverSelection selected = cover_selection(m_CoversDataRecords);
    CoverSide front = sideFromViews(kFrontType);
    CoverSide back = sideFromViews(kBackType);
    front.selected = selected.front;
    back.selected = selected.back;
    m_CoversDataRecords = cover_records(option(), front, back);
}

void SPAddCoversWndEMF::commitRecords() {
    SPSummaryScrollViewCtrl* list = summary();
    if (list == nullptr) {
        return;
    }
    const CoverOption chosen = option();
    if (chosen == CoverOption::frontOnly || chosen == CoverOption::same || chosen == CoverOption::different) {
        list->doDelectBeforePageOne();
    }
    hub()->setTabStockValue(TabStockValue);
    list->updateRequest(kCoverType);
}

std::optional<std::string> SPAddCoversWndEMF::getCoversCustomPageWidthByType(std::int32_t type) const {
    const auto* menu = paperMenu(type);
    return menu == nullptr ? std::nullopt : std::optional(menu->getCustomPageWidth());
}

std::optional<std::string> SPAddCoversWndEMF::getCoversCustomPageLengthByType(std::int32_t type) const {
    const auto* menu = paperMenu(type);
    return menu == nullptr ? std::nullopt : std::optional(menu->getCustomPageLength());
}

std::int32_t SPAddCoversWndEMF::getCoversCustomPageSizeLongMeasure(std::int32_t type) const {
    const auto* menu = paperMenu(type);
    return menu == nullptr ? kNoLongMeasure : menu->getCustomPageSizeLongMeasure();
}

bool SPAddCoversWndEMF::doTabStockSetCheckByIndex(std::int32_t pagetype) {
    return spCoverWndFrontSelectPaperListPtr != nullptr &&
           spCoverWndFrontSelectPaperListPtr->doTabStockSetCheckByIndex(pagetype);
}

const PaperTitles* SPAddCoversWndEMF::paperTitles() {
    return spCoverWndFrontSelectPaperListPtr;
}

void SPAddCoversWndEMF::updatePaperViews() {
    for (SPCoverPageSettingScrollViewCtrlEMF* view :
         {spCoversWndFrontCoverPageViewPtr, spCoversWndBackCoverPageViewPtr}) {
        if (view != nullptr) {
            view->Update();
        }
    }
}

bool SPAddCoversWndOKButCtrlEMF::coverRecordIsChagned() const {
    auto* dialog = dynamic_cast<SPAddCoversWndEMF*>(ctrlParentPanelPtr);
    const SPSummaryScrollViewCtrl* list = dialog == nullptr ? nullptr : dialog->summary();
    RecordList covers;
    return list != nullptr && list->getArrayByType(&covers, kCoverType) &&
           (!covers.empty() || dialog->option() != CoverOption::none);
}

bool SPAddCoversWndOKButCtrlEMF::UIEventHandler() {
    auto* dialog = dynamic_cast<SPAddCoversWndEMF*>(ctrlParentPanelPtr);
    if (dialog == nullptr) {
        return true;
    }
    if (dialog->summary() != nullptr) {
        dialog->rebuildRecords();
        if (coverRecordIsChagned()) {
            dialog->hub()->toMakeChange();
        }
        dialog->commitRecords();
    }
    dialog->DeactivateWindow();
    dialog->ChangeActivedStatus(false);
    return true;
}

} // namespace specialpages
