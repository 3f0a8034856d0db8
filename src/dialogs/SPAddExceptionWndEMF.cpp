#include "dialogs/SPAddExceptionWndEMF.h"

#include "controls/SpecialPagesHub.h"
#include "controls/StaticTextEditControlEMFSpecialPages.h"
#include "dialogs/SPAddExceptTextEditCtrlEMF.h"
#include "dialogs/dialog_builder.h"
#include "dialogs/dialog_title.h"
#include "dialogs/exceptions_tables.h"
#include "paper/SPAddExceptSubMenuListCtrlEMF.h"
#include "paper/SPJobSettingScrollViewCtrlEMF.h"
#include "paper/SPPageSettingScrollViewCtrlEMF.h"
#include "paper/SPTwoSidePrintListCtrlEMF.h"
#include "paper/paper_windows.h"
#include "platform/foundation/Bundle.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/Window.h"
#include "ppd/ppd_keywords.h"
#include "records/SPSummaryScrollViewCtrl.h"
#include "records/exception_records.h"
#include "support/input_filter.h"

#include <algorithm>
#include <utility>

namespace specialpages {

namespace {

constexpr std::int32_t kExceptionType = static_cast<std::int32_t>(RecordType::exception);
/// Of ShowErrMsg.
constexpr std::int32_t kTooManyWarning = 2;
/// Value type of setExternalValueToData.
constexpr std::int32_t kIntegerValue = 2;
constexpr std::uint32_t kIntegerSize = 4;

constexpr std::int32_t type_number(PaperPart part) {
    return static_cast<std::int32_t>(part);
}

RecordPaper paper_in(const SPAddExceptSubMenuListCtrlEMF& menu) {
    return {.size = menu.getSelectedMenuItemIndexByType(type_number(PaperPart::size)),
            .color = menu.getSelectedMenuItemIndexByType(type_number(PaperPart::color)),
            .type = menu.getSelectedMenuItemIndexByType(type_number(PaperPart::type)),
            .interposer = menu.getInterPoser(),
            .custom = {.width = menu.getCustomPageWidth(),
                       .length = menu.getCustomPageLength(),
                       .longmeasure = menu.getCustomPageSizeLongMeasure()}};
}

void show_paper(SPAddExceptSubMenuListCtrlEMF& menu, const RecordPaper& paper) {
    menu.setSelectedMenuItemIndexByType(type_number(PaperPart::size), paper.size);
    menu.setSelectedMenuItemIndexByType(type_number(PaperPart::type), paper.type);
    menu.setSelectedMenuItemIndexByType(type_number(PaperPart::color), paper.color);
    menu.setInterPoser(paper.interposer);
    menu.setCustomPageWidth(paper.custom.width.c_str());
    menu.setCustomPageLength(paper.custom.length.c_str());
    menu.setCustomPageSizeLongMeasure(paper.custom.longmeasure);
}

void show_sides(SPTwoSidePrintListCtrlEMF& list, std::int32_t twoSidePrint) {
    if (twoSidePrint < 0) {
        return;
    }
    const std::int32_t item = twoSidePrint + 1;
    list.SetExternalValueToUI(item, kIntegerSize);
    list.setExternalValueToData(item, kIntegerSize, kIntegerValue);
    list.setSelectStatus(twoSidePrint == kSidesNoChange ? 1 : 0);
}

} // namespace

void SPAddExceptionWndEMF::CreatePanel(platform::Window* window, const char* theWinTitleStr) {
    PopupWinInPanel(window, theWinTitleStr);
    addExceptCurrentSetting.clear();
    arrangedAddExceptionsRecords.clear();
    TabStockValue = 3;
    TabMarginListValue = 1;
    TabMarginValue = 127;
    makeControls(window);
}

void SPAddExceptionWndEMF::makeControls(platform::Window* window) {
    DialogBuilder add(*this, window);
    add.title(addExceptPageDefineSTxtCtrl, spExceptionWndPageSTxtCtrlID, "Add Exception Page Define Title");
    add.title(addExceptPageViewTitleCtrlPtr, spExceptionWndPaperSTxtCtrlID, "Add Insert Paper View Title");
    add.title(addExceptJobSettingViewTitleCtrlPtr, spExceptionWndJobSTxtCtrlID,
              "Job Setting Reference View Title");
    add.title(addExceptTwoSidePrintListTitleCtrlPtr, spExceptionWnd2SideSTxtCtrlID,
              "Add Exception Two Side Print Static Text");
    add.title(addExceptPageDescStaticPtr, spExceptionWndPageRuleSTxtCtrlID, "Add Page Rule Description");

    add.add(addExceptPageDefineEtxtCtrl, spExceptionWndPageETxtCtrlID,
            [](SPAddExceptTextEditCtrlEMF& control, platform::View* view) {
                control.CreateControl(view, &pageDefineIniData, nullptr, &pageDefineTextEditAccessInfo, {},
                                      &pageDefineFilterData, kMaxPageDefineNum);
            });
    add.paperMenu(addExceptPaperSelectListCtrl, spExceptionWndPaperPopupBtnID,
                  {.iniData = &exceptionBevelBtnIniData,
                   .constraints = &addExceptSelectPaperLboxCnstrnInfoPtr,
                   .windowType = kExceptionsWndType,
                   .duplexControl = spExceptionWnd2SidePopupBtnID});
    add.paperView(addExceptPageSettingInfoViewPtr, spExceptionWndPageInfoViewID, exceptWndScrollViewIniData,
                  addExceptPaperSelectListCtrl);
    add.add(addExceptTowSidePrintListCtrl, spExceptionWnd2SidePopupBtnID,
            [](SPTwoSidePrintListCtrlEMF& control, platform::View* view) {
                control.CreateControl(view, &exceptionTwoSidePrintIniData, nullptr, nullptr, {}, kPPDDuplex,
                                      twoSidePrintGetDuplexChoiceArray, spExceptionWndPaperPopupBtnID);
            });
    add.jobView(addExceptWndJobSettingViewCtrlPtr, spExceptWndJobSettingRefViewID,
                exceptWndScrollViewIniData);
    add.help(addExceptHelpButPtr, spExceptionWndHelpBtnID, "SpecialPagesException.htm");
    add.button(addExceptDefaultButPtr, spExceptionWndDefaultBtnID, kRestoreButtonTitle);
    add.button(addExceptCancelButton, spExceptionWndCancelBtnID, kCancelButtonTitle);
    add.button(addExceptOKBtnCtrl, spExceptionWndOKBtnID, kOkButtonTitle);
}

std::int32_t SPAddExceptionWndEMF::ActivateWindow() {
    SPSummaryScrollViewCtrl* list = summary();
    if (windowRef == nullptr || list == nullptr) {
        return 0;
    }
    ReInitializeUserPane();
    SetUIDataToIniData();
    resetUserPaneTitle(list->getSummaryScrollViewStatus());
    fillFromSelection(*list);
    arrangedAddExceptionsRecords.clear();
    addExceptCurrentSetting.clear();
    if (!list->getArrayByType(&arrangedAddExceptionsRecords, kExceptionType)) {
        return 0;
    }
    ChangeActivedStatus(true);
    TabStockValue = hub()->getTabStockValue();
    TabMarginListValue = hub()->getTabMarginListValue();
    TabMarginValue = hub()->getTabMarginValue();
    addExceptCurrentSetting = rows_of(arrangedAddExceptionsRecords);
    replayValues();
    platform::Application::shared().runModalForWindow(*windowRef);
    return 0;
}

void SPAddExceptionWndEMF::resetUserPaneTitle(std::int64_t status) {
    set_title_for_status(windowRef, pdeBundleRef, status, "Add Exceptions Windows",
                         "Edit Exceptions Windows");
}

void SPAddExceptionWndEMF::fillFromSelection(const SPSummaryScrollViewCtrl& list) {
    const auto selected = list.getArrayOfCurrentSelectedRecords();
    if (!selected) {
        return;
    }
    if (list.getSummaryScrollViewStatus() == kSummaryEditing && !selected->empty()) {
        const ShownExceptions shown = shown_exceptions(*selected);
        tellAdvancedWindow(shown.settings.paper);
        setRelatedControlWithRecords(shown);
    } else if (list.getSummaryScrollViewStatus() == kSummaryAdding) {
        if (selected->size() == 1 && selected->front().is(RecordType::exception)) {
            // A new exception copies the paper of the selected one, and not its pages.
            setRelatedControlWithRecords({.pageText = {}, .settings = settings_of(selected->front())});
        } else {
            RestoreDefaultValue();
        }
    }
}

void SPAddExceptionWndEMF::tellAdvancedWindow(const RecordPaper& shown) {
    if (auto* window = dynamic_cast<AdvancedPaperWindow*>(hub()->getAdvSeleWndPtr())) {
        const auto status = [](std::int32_t index) {
            return index == kUndecided ? kUndecided : 0;
        };
        window->SetSizeStatus(status(shown.size));
        window->SetColorStatus(status(shown.color));
        window->SetTypeStatus(status(shown.type));
    }
}

void SPAddExceptionWndEMF::setRelatedControlWithRecords(const ShownExceptions& shown) {
    if (addExceptPageDefineEtxtCtrl != nullptr) {
        addExceptPageDefineEtxtCtrl->SetExternalValueToUI(shown.pageText, 0);
    }
    if (addExceptPaperSelectListCtrl != nullptr) {
        show_paper(*addExceptPaperSelectListCtrl, shown.settings.paper);
    }
    if (addExceptTowSidePrintListCtrl != nullptr) {
        show_sides(*addExceptTowSidePrintListCtrl, shown.settings.twoSidePrint);
    }
}

void SPAddExceptionWndEMF::RestoreDefaultValue() {
    if (addExceptPageDefineEtxtCtrl != nullptr) {
        addExceptPageDefineEtxtCtrl->SetExternalValueToUI(std::string(), 0);
    }
    if (addExceptPaperSelectListCtrl != nullptr) {
        addExceptPaperSelectListCtrl->SetControlValueToDefault();
        addExceptPaperSelectListCtrl->setDefaultCustomValue();
    }
    if (addExceptTowSidePrintListCtrl != nullptr) {
        addExceptTowSidePrintListCtrl->setSelectStatus(0);
        addExceptTowSidePrintListCtrl->SetDefaultValueToUI();
        addExceptTowSidePrintListCtrl->SetControlValueToDefault();
    }
}

void SPAddExceptionWndEMF::replayValues() {
    if (arrangedAddExceptionsRecords.empty()) {
        SetDefaultValueToUI();
        if (addExceptTowSidePrintListCtrl != nullptr) {
            // The walk above selects the default and leaves "No Change" shown.
            addExceptTowSidePrintListCtrl->SetControlValueToUI();
        }
    } else {
        SetCurrentValueToUI();
    }
    recheckConflicts();
}

void SPAddExceptionWndEMF::recheckConflicts() {
    ppd_file_s* ppd = GetCurrentPPD();
    if (addExceptPaperSelectListCtrl != nullptr) {
        addExceptPaperSelectListCtrl->updateSelectionArray();
        addExceptPaperSelectListCtrl->UpdateSelfConflictsFromPPD(ppd);
    }
    if (addExceptTowSidePrintListCtrl != nullptr) {
        addExceptTowSidePrintListCtrl->UpdateConflictsPanelControlFromPPD(ppd);
    }
}

bool SPAddExceptionWndEMF::everyControlIsValid() {
    return std::all_of(fCtrlGroupArray.begin(), fCtrlGroupArray.end(),
                       [](BaseControlEMFSpecialPages* control) { return control->InvalidateData(); });
}

bool SPAddExceptionWndEMF::resolveTypedPages() {
    ExceptionRequest request;
    if (const SPSummaryScrollViewCtrl* list = summary()) {
        request.status = list->getSummaryScrollViewStatus();
        request.selected = list->getArrayOfCurrentSelectedRecords().value_or(RecordList{});
    }
    if (addExceptPageDefineEtxtCtrl != nullptr) {
        request.pages = addExceptPageDefineEtxtCtrl->getPageNumIndex();
    }
    if (auto* menu = addExceptPaperSelectListCtrl) {
        request.customSize = menu->doCustomSizeSetCheckByIndex(
            menu->getSelectedMenuItemIndexByType(type_number(PaperPart::size)));
        if (!request.customSize) {
            menu->setDefaultCustomValue();
        }
    }
    request.asked = askedSettings();
    request.defaults = defaultSettings();
    ExceptionResult result = exceptions_after_ok(addExceptCurrentSetting, request);
    arrangedAddExceptionsRecords = std::move(result.records);
    if (!result.tooMany) {
        addExceptCurrentSetting = std::move(result.rows);
    }
    return !result.tooMany;
}

void SPAddExceptionWndEMF::commitRecords() {
    SPSummaryScrollViewCtrl* list = summary();
    if (list == nullptr) {
        return;
    }
    hub()->setTabStockValue(TabStockValue);
    hub()->setTabMarginListValue(TabMarginListValue);
    hub()->setTabMarginValue(TabMarginValue);
    hub()->toMakeChange();
    list->updateRequest(kExceptionType);
}

ExceptionSettings SPAddExceptionWndEMF::askedSettings() const {
    ExceptionSettings asked{.paper = {}, .twoSidePrint = kSidesNoChange};
    if (addExceptPaperSelectListCtrl != nullptr) {
        asked.paper = paper_in(*addExceptPaperSelectListCtrl);
    }
    if (addExceptTowSidePrintListCtrl != nullptr) {
        const std::int64_t position = addExceptTowSidePrintListCtrl->GetCurrentControlArrayNumber();
        asked.twoSidePrint = std::max(kSidesNoChange, static_cast<std::int32_t>(position));
    }
    return asked;
}

ExceptionSettings SPAddExceptionWndEMF::defaultSettings() const {
    ExceptionSettings settings;
    if (addExceptPaperSelectListCtrl != nullptr) {
        const PaperChoice& standard = addExceptPaperSelectListCtrl->defaultPaper();
        settings.paper.size = standard.size;
        settings.paper.color = standard.color;
        settings.paper.type = standard.type;
    }
    settings.twoSidePrint = exceptionTwoSidePrintIniData.defaultItem - 1;
    return settings;
}

std::optional<std::string> SPAddExceptionWndEMF::getExceptionsCustomPageWidth() const {
    const auto* menu = addExceptPaperSelectListCtrl;
    return menu == nullptr ? std::nullopt : std::optional(menu->getCustomPageWidth());
}

std::optional<std::string> SPAddExceptionWndEMF::getExceptionsCustomPageLength() const {
    const auto* menu = addExceptPaperSelectListCtrl;
    return menu == nullptr ? std::nullopt : std::optional(menu->getCustomPageLength());
}

bool SPAddExceptionWndEMF::doTabStockSetCheckByIndex(std::int32_t pagetype) {
    return addExceptPaperSelectListCtrl != nullptr &&
           addExceptPaperSelectListCtrl->doTabStockSetCheckByIndex(pagetype);
}

const PaperTitles* SPAddExceptionWndEMF::paperTitles() {
    return addExceptPaperSelectListCtrl;
}

void SPAddExceptionWndEMF::updatePaperViews() {
    if (addExceptPageSettingInfoViewPtr != nullptr) {
        addExceptPageSettingInfoViewPtr->Update();
    }
}

SPSummaryScrollViewCtrl* SPAddExceptionWndEMF::summary() {
    return hub() == nullptr ? nullptr : hub()->getSPSummaryScrollViewCtrlPtr();
}

bool SPAddExceptWndOKButCtrlEMF::UIEventHandler() {
    auto* dialog = dynamic_cast<SPAddExceptionWndEMF*>(ctrlParentPanelPtr);
    if (dialog == nullptr) {
        return false;
    }
    dialog->SycValueFromUI();
    if (!dialog->everyControlIsValid()) {
        return false;
    }
    dialog->SetValueFromUIToControl();
    if (!dialog->resolveTypedPages()) {
        if (SPAddExceptTextEditCtrlEMF* text = dialog->getAddExceptPageEditText()) {
            text->ShowErrMsg(kTooManyWarning);
        }
        return false;
    }
    dialog->commitRecords();
    dialog->DeactivateWindow();
    dialog->ChangeActivedStatus(false);
    return true;
}

} // namespace specialpages
