// The pane that the host shows in its print dialog, and the hub through which all other objects of the pane
// reach their siblings. It answers the host's panel protocol in any order of calls, builds its control tree
// once, reloads it from the print settings at every restore, and writes the job's settings when the job is
// saved or printed.
//
// Ownership: the host owns the panel; the panel owns its nib (views, windows, the record list) and the
// controls that it makes; PPD, settings, session and host object are asked of the host anew at each restore.
#pragma once

#include "controls/BasePrintPanelEMFSpecialPages.h"
#include "controls/SpecialPagesHub.h"
#include "platform/print/print_dialog_extension.h"
#include "ticket/NPIFOutput.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages::platform {
class Button;
class IconView;
class TableView;
class TextField;
} // namespace specialpages::platform

namespace specialpages {

class SPAddCoversButCtrlEMF;
class SPAddExceptionsButCtrlEMF;
class SPAddInsertButCtrlEMF;
class SPDeleteAllButCtrlEMF;
class SPDeleteButCtrlEMF;
class SPDownButCtrlEMF;
class SPEditButCtrlEMF;
class SPHelpButtonEMF;
class SPIconViewCtrlEMF;
class SPUpButCtrlEMF;
class SPWarningWndEMF;
class StaticTextEditControlEMFSpecialPages;
class VersionStringSTextEMFSpecialPages;

class SpecialPagesPDEnvbir15 : public platform::PrintDialogPanel,
                               public BasePrintPanelEMFSpecialPages,
                               public SpecialPagesHub,
                               public NPIFOutput {
  public:
    SpecialPagesPDEnvbir15();
    ~SpecialPagesPDEnvbir15() override;

    /// The nib that panelView loads; null is ignored.
    void setPDENibFileName(const std::optional<std::string>& name);
    /// True until the first full build-up.
    void setFirstInitialzePDE(bool first) { bFirstInitialzePDE = first; }
    bool isFirstInitialzePDE() const { return bFirstInitialzePDE; }

    // The host's protocol.

    platform::View* panelView() override;
    /// Looked up once; the index of the localised table is read from the PPD at every call.
    std::string panelName() override;
    std::string panelKind() override;
    /// Always null: the host calls it for its side effects, the list of option keywords and the precompiled
    /// constraint index.
    std::optional<std::vector<std::string>> supportedPPDOptionKeys() override;
    void willShow() override;
    bool shouldHide() override;
    bool shouldPrint() override;
    bool shouldShowHelp() override;
    bool saveValuesAndReturnError(std::string* error) override;
    bool restoreValuesAndReturnError(std::string* error) override;
    std::optional<std::vector<std::pair<std::string, std::string>>> summaryInfo() override {
        return std::nullopt;
    }
    void PPDOptionKeyValueDidChange(std::string_view, std::string_view) override {}

    // Building and bringing in line.

    using BasePrintPanelEMFSpecialPages::CreatePanel;
    /// Makes and registers all controls and windows of the pane in their fixed order.
    void CreatePanelControls(platform::Window* window);
    /// The one routine that brings the pane in line with the job: builds on the first run, reloads on every
    /// run. False only when the help book could not be registered; the pane is then built all the same.
    bool SimulationOpenPDE();
    /// Compiles the PPD's constraints into the index and hands it to the windows; nothing when either is
    /// null. Answers 0.
    std::int32_t xSetxppd(ppd_file_s* ppd, const std::shared_ptr<ConstraintIndex>& index);
    std::int32_t SetValueToTicket(platform::PrintSettings* settings, bool withParam) override;
    using BasePrintPanelEMFSpecialPages::SetValueToTicket;

    /// Give the keyboard to a button that is enabled. Offered to a host; nothing in the pane calls them.
    void setFocusOnHelpButton();
    void setFocusOnDeleteButton();
    void setFocusOnUndoButton();

    // The hub.

    SpecialPagesHub* hub() override { return this; }
    platform::View* getSpecialPagesViewPtr() override { return SpecialPagesView; }
    platform::View* getSpecialPagesView() override { return SpecialPagesView; }
    PopupWinInPanelEMFSpecialPages* getSPAddCoversWndPtr() override { return spAddCoversWndPtr; }
    PopupWinInPanelEMFSpecialPages* getSPAddInsertWndPtr() override { return spAddInsertWndPtr; }
    PopupWinInPanelEMFSpecialPages* getSPAddExceptionsWndPtr() override { return spAddExceptionsWndPtr; }
    PopupWinInPanelEMFSpecialPages* getTabStockWndPtr() override { return spTabStockWndPtr; }
    PopupWinInPanelEMFSpecialPages* getTabStockSubWndPtr() override { return spTabStockSubWndPtr; }
    PopupWinInPanelEMFSpecialPages* getCustomSizeWndPtr() override { return spCustomSizeWndPtr; }
    PopupWinInPanelEMFSpecialPages* getAdvSeleWndPtr() override { return SPAdvSeleWndPtr; }
    SPSummaryScrollViewCtrl* getSPSummaryScrollViewCtrlPtr() override { return summaryScrollViewCtrlPtr; }
    SPUndoButCtrlEMF* getSPUndoButtonPtr() override { return spUndoButtonPtr; }
    RecordDialog* recordDialog(std::int32_t type) override;
    std::int32_t getTabStockValue() const override { return tabStockValue; }
    void setTabStockValue(std::int32_t value) override { tabStockValue = value; }
    std::int32_t getTabMarginListValue() const override { return tabMarginListValue; }
    void setTabMarginListValue(std::int32_t value) override { tabMarginListValue = value; }
    std::int32_t getTabMarginValue() const override { return tabMarginValue; }
    void setTabMarginValue(std::int32_t value) override { tabMarginValue = value; }
    void toMakeChange() override;
    bool sureToMakeChange(std::int32_t kind) override;

    // The nib.

    bool connectOutlet(std::string_view outlet, platform::View& view) override;
    std::unique_ptr<platform::NibObject> instantiate(std::string_view className) override;
    bool connectObject(std::string_view outlet, platform::NibObject& object) override;

  protected:
    ppd_file_s* outputPPD() override { return GetCurrentPPD(); }
    const SPSummaryScrollViewCtrl* outputRecords() override { return summaryScrollViewCtrlPtr; }
    platform::PrintSettings* outputSettings() override { return GetCurrentPMPrintSettings(); }
    std::optional<std::string> outputPrinter() override { return GetCurrentPrinterString(); }
    const platform::PageFormat* outputPageFormat() override;

  private:
    void addWindow(PopupWinInPanelEMFSpecialPages* dialog, platform::Window* window, const char* title);
    void addWindows();
    void buildPane(platform::PDEPluginCallback& host, ppd_file_s* ppd, std::int32_t& helpStatus);
    bool writeTickets();
    static void setFocusOn(BaseControlEMFSpecialPages* control);

    bool bFirstInitialzePDE = false;
    std::string currentPDENibFileName;
    std::optional<std::string> thePDEName;
    std::vector<std::string> keywords_; ///< the option keywords of this panel's own PPD
    bool isActive = false;
    std::int32_t tabStockValue = 3;
    std::int32_t tabMarginListValue = 1;
    std::int32_t tabMarginValue = 127;

    // Outlets: views and windows of the nib, borrowed; null while it does not provide them.
    platform::View* SpecialPagesView = nullptr;
    platform::IconView* SPAddCoverIconView = nullptr;
    platform::Button* SPAddCoversButton = nullptr;
    platform::IconView* SPAddInsertIconView = nullptr;
    platform::Button* SPAddInsertsButton = nullptr;
    platform::IconView* SPAddExceptionsIconView = nullptr;
    platform::Button* SPAddExceptionsButton = nullptr;
    platform::Button* SPUpButton = nullptr;
    platform::Button* SPDownButton = nullptr;
    platform::Button* SPEditButton = nullptr;
    platform::Button* SPDeleteButton = nullptr;
    platform::Button* SPDeleteAllButton = nullptr;
    platform::Button* SPUndoButton = nullptr;
    platform::Button* SPMainHelpButton = nullptr;
    platform::TextField* SPSummaryTitleStaticEdit = nullptr;
    platform::TableView* SPSummaryInfoTableView = nullptr;
    platform::TextField* SPVerStringSTextCtrl = nullptr;
    platform::Window* CoversWindowRef = nullptr;
    platform::Window* InsertWindowRef = nullptr;
    platform::Window* spAddExceptionsWindow = nullptr;
    platform::Window* spTabStockWindow = nullptr;
    platform::Window* spTabStockSubWindow = nullptr;
    platform::Window* spCustomSizeWindow = nullptr;
    platform::Window* SPAdvSeleWndRef = nullptr;
    platform::Window* WarningWindowRef = nullptr;

    // Objects that the nib instantiates.
    SPSummaryScrollViewCtrl* summaryScrollViewCtrlPtr = nullptr;
    PopupWinInPanelEMFSpecialPages* spAddCoversWndPtr = nullptr;
    PopupWinInPanelEMFSpecialPages* spAddInsertWndPtr = nullptr;
    PopupWinInPanelEMFSpecialPages* spAddExceptionsWndPtr = nullptr;
    PopupWinInPanelEMFSpecialPages* spTabStockWndPtr = nullptr;
    PopupWinInPanelEMFSpecialPages* spTabStockSubWndPtr = nullptr;
    PopupWinInPanelEMFSpecialPages* spCustomSizeWndPtr = nullptr;
    PopupWinInPanelEMFSpecialPages* SPAdvSeleWndPtr = nullptr;
    SPWarningWndEMF* spWarningWndPtr = nullptr;

    // Controls that the panel makes; null when the nib has no view for one.
    SPIconViewCtrlEMF* spAddCoverIconViewPtr = nullptr;
    SPAddCoversButCtrlEMF* spAddCoversButCtrlPtr = nullptr;
    SPIconViewCtrlEMF* spAddInsertIconViewPtr = nullptr;
    SPAddInsertButCtrlEMF* spAddInsertButCtrlPtr = nullptr;
    SPIconViewCtrlEMF* spAddExceptionsIconViewPtr = nullptr;
    SPAddExceptionsButCtrlEMF* SPAddExceptionsButCtrlPtr = nullptr;
    StaticTextEditControlEMFSpecialPages* spSummaryTitleStaticEditPtr = nullptr;
    VersionStringSTextEMFSpecialPages* spVerStringSTextCtrlPtr = nullptr;
    SPUpButCtrlEMF* spUpButtonPtr = nullptr;
    SPDownButCtrlEMF* spDownButtonPtr = nullptr;
    SPEditButCtrlEMF* spEditButCtrlPtr = nullptr;
    SPDeleteButCtrlEMF* spDeleteButCtrlPtr = nullptr;
    SPDeleteAllButCtrlEMF* spDeleteAllButCtrlPtr = nullptr;
    SPUndoButCtrlEMF* spUndoButtonPtr = nullptr;
    SPHelpButtonEMF* spHelpButtonPtr = nullptr;
};

} // namespace specialpages
