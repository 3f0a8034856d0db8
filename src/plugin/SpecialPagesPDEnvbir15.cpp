#include "plugin/SpecialPagesPDEnvbir15.h"

#include "controls/PopupWinInPanelEMFSpecialPages.h"
#include "controls/SPHelpButtonEMF.h"
#include "controls/SPIconViewCtrlEMF.h"
#include "controls/StaticTextEditControlEMFSpecialPages.h"
#include "dialogs/SPWarningWndEMF.h"
#include "platform/foundation/Bundle.h"
#include "platform/print/PDEPluginCallback.h"
#include "platform/print/PageFormat.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/IconView.h"
#include "platform/toolkit/TableView.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/View.h"
#include "platform/toolkit/Window.h"
#include "ppd/CQuickXPPD.h"
#include "ppd/constraint_index.h"
#include "ppd/ppd_access.h"
#include "records/RecordDialog.h"
#include "records/SPSummaryScrollViewCtrl.h"
#include "records/list_buttons.h"
#include "records/record_tables.h"
#include "records/summary_tables.h"
#include "records/ticket_keys.h"
#include "support/help.h"
#include "support/identifiers.h"
#include "support/plugin_bundle.h"
#include "support/settings_access.h"

#include <utility>

namespace specialpages {

namespace {

/// Base of the section that is read from a precompiled constraint index.
constexpr const char* kConstraintSectionBase = "SpecialPagesPDE";
constexpr const char* kTitleKey = "PDE Title";

} // namespace

SpecialPagesPDEnvbir15::SpecialPagesPDEnvbir15() = default;
SpecialPagesPDEnvbir15::~SpecialPagesPDEnvbir15() = default;

void SpecialPagesPDEnvbir15::setPDENibFileName(const std::optional<std::string>& name) {
    if (name) {
        currentPDENibFileName = *name;
    }
}

platform::View* SpecialPagesPDEnvbir15::panelView() {
    if (SpecialPagesView == nullptr) {
        loadNibNamed(currentPDENibFileName);
    }
    return SpecialPagesView;
}

std::string SpecialPagesPDEnvbir15::panelName() {
    ppd_file_s* ppd = m_pPDECallbackObj == nullptr ? nullptr : m_pPDECallbackObj->ppdFile();
    const ppd_attr_t* index = ppdFindAttr_ALT(ppd, kLocalizationAttribute);
    if (index != nullptr && index->value != nullptr) {
        LocalizeTableName = localizable_table_name(index->value);
    }
    if (!thePDEName && pluginBundle()) {
        thePDEName =
            pluginBundle()->localizedStringForKey(kTitleKey, kNoTranslation, LocalizeTableName.value_or(""));
    }
    return thePDEName.value_or(kNoTranslation);
}

std::string SpecialPagesPDEnvbir15::panelKind() {
    return kPanelKind;
}

std::optional<std::vector<std::string>> SpecialPagesPDEnvbir15::supportedPPDOptionKeys() {
    ppd_file_s* ppd = m_pPDECallbackObj == nullptr ? nullptr : m_pPDECallbackObj->ppdFile();
    if (ppd == nullptr) {
        return std::nullopt;
    }
    if (CDFKeyExist(ppd, kConstraintCacheAttribute)) {
        xppd = std::make_shared<ConstraintIndex>(ConstraintIndex::kDefaultBuckets);
        GetXPPD(ppd, xppd.get(), kConstraintSectionBase, kConstraintCacheAttribute);
    }
    keywords_ = option_keywords(ppd);
    nxPPDKeywordList() = keywords_;
    return std::nullopt;
}

void SpecialPagesPDEnvbir15::willShow() {
    if (windowRef == nullptr && SpecialPagesView != nullptr) {
        windowRef = SpecialPagesView->window();
    }
    isActive = true;
    Open();
}

bool SpecialPagesPDEnvbir15::shouldHide() {
    isActive = false;
    return true;
}

bool SpecialPagesPDEnvbir15::shouldShowHelp() {
    return spHelpButtonPtr == nullptr || !spHelpButtonPtr->UIEventHandler();
}

bool SpecialPagesPDEnvbir15::restoreValuesAndReturnError(std::string*) {
    return SimulationOpenPDE();
}

bool SpecialPagesPDEnvbir15::saveValuesAndReturnError(std::string*) {
    return writeTickets();
}

bool SpecialPagesPDEnvbir15::shouldPrint() {
    if (bFirstInitialzePDE) {
        SimulationOpenPDE();
    }
    return writeTickets();
}

bool SpecialPagesPDEnvbir15::writeTickets() {
    if (SpecialPagesView != nullptr) {
        SetValueFromUIToControl();
    }
    platform::PrintSettings* settings =
        m_pPDECallbackObj == nullptr ? nullptr : m_pPDECallbackObj->printSettings();
    if (settings == nullptr) {
        return false;
    }
    SetValueToTicket(settings, false);
    return true;
}

void SpecialPagesPDEnvbir15::CreatePanelControls(platform::Window* window) {
    CreatePanel(window);
    const auto addIcon = [this](SPIconViewCtrlEMF*& field, platform::IconView* view, ControlTag tag,
                                const char* icon) {
        auto control = std::make_unique<SPIconViewCtrlEMF>();
        control->CreateControl(view, tag, icon);
        RunTimeAddNewControl(std::move(control), field);
    };
    const auto addButton = [this]<typename Control>(Control*& field, platform::Button* view,
                                                    const char* title) {
        auto control = std::make_unique<Control>();
        control->CreateControl(view, title);
        RunTimeAddNewControl(std::move(control), field);
    };
    addIcon(spAddCoverIconViewPtr, SPAddCoverIconView, specialPagesAddCoversViewID, "AddCovers.bmp");
    addButton(spAddCoversButCtrlPtr, SPAddCoversButton, "Add Covers Btn");
    addIcon(spAddInsertIconViewPtr, SPAddInsertIconView, specialPagesAddInsertViewID, "AddInserts.bmp");
    addButton(spAddInsertButCtrlPtr, SPAddInsertsButton, "Add Inserts Btn");
    addIcon(spAddExceptionsIconViewPtr, SPAddExceptionsIconView, specialPagesAddExceptionViewID,
            "AddExceptions.bmp");
    addButton(SPAddExceptionsButCtrlPtr, SPAddExceptionsButton, "Add Exceptions Btn");

    auto title = std::make_unique<StaticTextEditControlEMFSpecialPages>();
    title->CreateControl(SPSummaryTitleStaticEdit, nullptr, nullptr, {},
                         "Special Pages Summary Scroll View Title");
    RunTimeAddNewControl(std::move(title), spSummaryTitleStaticEditPtr);

    if (summaryScrollViewCtrlPtr != nullptr) {
        summaryScrollViewCtrlPtr->CreateControl(SPSummaryInfoTableView, tableColumnsTitleResourceString,
                                                &summaryScrllViewCnstrnInfoPtr, &coverOptionLCtrlAccessInfo,
                                                {});
        RunTimeAddNewControl(summaryScrollViewCtrlPtr);
    }

    auto version = std::make_unique<VersionStringSTextEMFSpecialPages>();
    version->CreateControl(SPVerStringSTextCtrl, nullptr, true);
    RunTimeAddNewControl(std::move(version), spVerStringSTextCtrlPtr);

    addButton(spUpButtonPtr, SPUpButton, "Up Btn");
    addButton(spDownButtonPtr, SPDownButton, "Down Btn");
    addButton(spEditButCtrlPtr, SPEditButton, "Edit Btn");
    addButton(spDeleteButCtrlPtr, SPDeleteButton, "Delete Btn");
    addButton(spDeleteAllButCtrlPtr, SPDeleteAllButton, "Delete All Btn");
    addButton(spUndoButtonPtr, SPUndoButton, "Undo Btn");

    auto help = std::make_unique<SPHelpButtonEMF>();
    help->CreateControl_withHelpName(SPMainHelpButton, "SpecialPagesMain.htm");
    RunTimeAddNewControl(std::move(help), spHelpButtonPtr);

    addWindows();
    tabStockValue = 3;
    tabMarginListValue = 1;
    tabMarginValue = 127;
}

void SpecialPagesPDEnvbir15::addWindows() {
    const auto addWindow = [this](PopupWinInPanelEMFSpecialPages* dialog, platform::Window* window,
                                  const char* title) {
        if (dialog != nullptr) {
            dialog->CreatePanel(window, title);
            RunTimeAddNewWindow(dialog);
        }
    };
    addWindow(spAddCoversWndPtr, CoversWindowRef, "Add Covers Windows");
    addWindow(spAddInsertWndPtr, InsertWindowRef, "Add Inserts Windows");
    addWindow(spAddExceptionsWndPtr, spAddExceptionsWindow, "Add Exceptions Windows");
    addWindow(spCustomSizeWndPtr, spCustomSizeWindow, "Custom Size Windows");
    addWindow(SPAdvSeleWndPtr, SPAdvSeleWndRef, "Adv Paper Wnd");
    addWindow(spWarningWndPtr, WarningWindowRef, nullptr);
    addWindow(spTabStockWndPtr, spTabStockWindow, "Tab Margin Text");
    addWindow(spTabStockSubWndPtr, spTabStockSubWindow, "Number In Sequence Text");
}

void SpecialPagesPDEnvbir15::buildPane(platform::PDEPluginCallback& host, ppd_file_s* ppd,
                                       std::int32_t& helpStatus) {
    CreatePanelControls(SpecialPagesView == nullptr ? nullptr : SpecialPagesView->window());
    helpStatus = RegisterMyHelpBook();
    // The windows exist only now.
    SetxppdPtr(Getxppd());
    SetCurrentPrintSettings(host.printSettings(), ppd, &host, host.printSession());
    InitializeUserPane(pluginBundle().get(), ppd);
}

bool SpecialPagesPDEnvbir15::SimulationOpenPDE() {
    // A dialog of the pane is open and works on the records: they must not be exchanged under it.
    if (platform::Application::shared().modalDepth() > 0) {
        return true;
    }
    isMediaTypeTab = false;
    isMediaSizeA5 = false;
    hasInterposer = false;
    platform::PDEPluginCallback* host = m_pPDECallbackObj;
    ppd_file_s* ppd = host == nullptr ? nullptr : host->ppdFile();
    if (ppd == nullptr) {
        return true;
    }
    panelView();
    const bool first = bFirstInitialzePDE;
    std::int32_t helpStatus = 0;
    if (first) {
        buildPane(*host, ppd, helpStatus);
    }
    // Asked anew on every run: the host may have replaced its objects.
    SetCurrentPrintSettings(host->printSettings(), ppd, host, host->printSession());
    if (first) {
        SetUIDataToIniData();
    }
    GetValueFromPreset();
    SetCurrentValueToUI();
    if (!first) {
        UpdateConflictsPanelControlFromPPD(ppd);
    }
    bFirstInitialzePDE = false;
    if (!CDFKeyExist(ppd, kConstraintCacheAttribute)) {
        xppd = std::make_shared<ConstraintIndex>(ConstraintIndex::kDefaultBuckets);
        xSetxppd(ppd, xppd);
    }
    return helpStatus == 0;
}

std::int32_t SpecialPagesPDEnvbir15::xSetxppd(ppd_file_s* ppd,
                                              const std::shared_ptr<ConstraintIndex>& index) {
    if (ppd == nullptr || index == nullptr) {
        return 0;
    }
    compile_constraints(ppd, index.get(), keywords_);
    for (BasePrintPanelEMFSpecialPages* window : fWindowGroupArray) {
        window->SetxppdPtr(index);
    }
    return 0;
}

std::int32_t SpecialPagesPDEnvbir15::SetValueToTicket(platform::PrintSettings* settings, bool withParam) {
    const std::int32_t status = BasePrintPanelEMFSpecialPages::SetValueToTicket(settings, withParam);
    PaperKeywordList sizeArray;
    PaperKeywordList typeArray;
    PaperKeywordList colorArray;
    if (IsJobTypeMailbox()) {
        outputNPIFCommand(settings, withParam, sizeArray, typeArray, colorArray);
    }
    setPaperParamToTicket(settings, withParam, sizeArray, typeArray, colorArray);
    const auto writeFlag = [&](bool flag, std::string_view key) {
        SetCStringToTicket(settings, flag ? "1" : "0", key, withParam);
    };
    writeFlag(isMediaTypeTab, kWhetherMediaTypeTabTicket);
    writeFlag(hasInterposer, kWhetherInterposerTicket);
    writeFlag(isMediaSizeA5, kWhetherMediaSizeA5Ticket);
    // It alone is cleared: the two others stay raised until the pane is brought in line anew.
    hasInterposer = false;
    return status != 0 ? 1 : 0;
}

void SpecialPagesPDEnvbir15::setFocusOn(BaseControlEMFSpecialPages* control) {
    platform::View* view = control == nullptr ? nullptr : control->GetControlPtr();
    if (view != nullptr && view->isEnabled() && view->window() != nullptr) {
        view->window()->makeFirstResponder(view);
    }
}

void SpecialPagesPDEnvbir15::setFocusOnHelpButton() {
    setFocusOn(spHelpButtonPtr);
}

void SpecialPagesPDEnvbir15::setFocusOnDeleteButton() {
    setFocusOn(spDeleteButCtrlPtr);
}

void SpecialPagesPDEnvbir15::setFocusOnUndoButton() {
    setFocusOn(spUndoButtonPtr);
}

RecordDialog* SpecialPagesPDEnvbir15::recordDialog(std::int32_t type) {
    const std::array<PopupWinInPanelEMFSpecialPages*, 3> dialogs{spAddCoversWndPtr, spAddInsertWndPtr,
                                                                 spAddExceptionsWndPtr};
    return type < 0 || type >= static_cast<std::int32_t>(dialogs.size())
               ? nullptr
               : dynamic_cast<RecordDialog*>(dialogs[static_cast<std::size_t>(type)]);
}

void SpecialPagesPDEnvbir15::toMakeChange() {
    if (spUndoButtonPtr != nullptr) {
        spUndoButtonPtr->undoEnable();
    }
}

bool SpecialPagesPDEnvbir15::sureToMakeChange(std::int32_t kind) {
    if (spWarningWndPtr == nullptr) {
        return false;
    }
    spWarningWndPtr->setWarningStrWindow(kind);
    spWarningWndPtr->ActivateWindow();
    if (spWarningWndPtr->getWarningWndExitStatus() != 0) {
        return false;
    }
    toMakeChange();
    return true;
}

const platform::PageFormat* SpecialPagesPDEnvbir15::outputPageFormat() {
    return m_pPDECallbackObj == nullptr ? nullptr : m_pPDECallbackObj->pageFormat();
}

} // namespace specialpages
