// The modal window in which the user gives pages a paper and sides of their own. The list's records hold a
// page or a range each; here they are rows, page by page. OK resolves the typed pages against the rows and
// forms all records anew, joining neighbours with equal settings. Serves three situations, told by the list's
// status and selection: adding, editing one exception, and editing several at once, where what differs
// between them shows as no change and stays.
#pragma once

#include "controls/BaseButtonEMFSpecialPages.h"
#include "controls/PopupWinInPanelEMFSpecialPages.h"
#include "dialogs/TabStockDialog.h"
#include "dialogs/dialog_buttons.h"
#include "paper/paper_windows.h"
#include "records/RecordDialog.h"
#include "records/exception_rows.h"

#include <cstdint>
#include <optional>
#include <string>

namespace specialpages {

struct ShownExceptions;
class SPAddExceptSubMenuListCtrlEMF;
class SPAddExceptTextEditCtrlEMF;
class SPHelpButtonEMF;
class SPJobSettingScrollViewCtrlEMF;
class SPPageSettingScrollViewCtrlEMF;
class SPSummaryScrollViewCtrl;
class SPTwoSidePrintListCtrlEMF;
class StaticTextEditControlEMFSpecialPages;

class SPAddExceptWndOKButCtrlEMF : public BaseButtonEMFSpecialPages {
  public:
    /// False while the dialog stays open: a control refused its value, or there would be too many records.
    bool UIEventHandler() override;
};

class SPAddExceptionWndEMF : public PopupWinInPanelEMFSpecialPages,
                             public RecordDialog,
                             public ConflictChecking,
                             public PaperMenuDialog,
                             public TabMarginDialog {
  public:
    using BasePrintPanelEMFSpecialPages::CreatePanel;
    void CreatePanel(platform::Window* window, const char* theWinTitleStr) override;
    /// Opens the dialog on the list's exceptions; nothing without window, pane or list.
    std::int32_t ActivateWindow() override;
    /// The title for adding (1) or editing (2); any other status keeps it.
    void resetUserPaneTitle(std::int64_t status);
    /// Fills page text, paper menu and two-side list. A negative two-side value leaves the list alone.
    void setRelatedControlWithRecords(const ShownExceptions& shown);
    /// Page text, paper menu and two-side list with nothing filled in.
    void RestoreDefaultValue();
    /// Disables what the shown paper and sides forbid of one another.
    void recheckConflicts() override;

    // What OK does, in its order.

    /// Asks every control in turn until one refuses, which has then shown its warning.
    bool everyControlIsValid();
    /// Gives the typed pages the settings of the controls and forms the records. False when these are more
    /// than a job can hold: the rows then stay as they were, and the records are not to be used.
    bool resolveTypedPages();
    /// Hands the records and the tab values over.
    void commitRecords();

    /// The row table, a row standing for all neighbouring pages that got their settings together.
    const ExceptionRows& getAddExceptSetting() const { return addExceptCurrentSetting; }
    /// The pages that have a row.
    PageRanges getAddExceptPageNumber() const { return pages_of(addExceptCurrentSetting); }
    const RecordList& getArrangedAddExceptionsRecordRef() const { return arrangedAddExceptionsRecords; }

    SPAddExceptTextEditCtrlEMF* getAddExceptPageEditText() { return addExceptPageDefineEtxtCtrl; }
    SPAddExceptSubMenuListCtrlEMF* getAddExceptSelectPaperList() { return addExceptPaperSelectListCtrl; }
    SPTwoSidePrintListCtrlEMF* getAddExceptTwoSidePrintList() { return addExceptTowSidePrintListCtrl; }
    SPPageSettingScrollViewCtrlEMF* GetPageSettingScrollView() { return addExceptPageSettingInfoViewPtr; }
    /// Of the paper menu, in millimetres as text; null without the menu.
    std::optional<std::string> getExceptionsCustomPageWidth() const;
    std::optional<std::string> getExceptionsCustomPageLength() const;

    void setTabStockValue(std::int32_t value) override { TabStockValue = value; }
    std::int32_t getTabStockValue() const override { return TabStockValue; }
    void setTabMarginListValue(std::int32_t value) override { TabMarginListValue = value; }
    std::int32_t getTabMarginListValue() const override { return TabMarginListValue; }
    void setTabMarginValue(std::int32_t value) override { TabMarginValue = value; }
    std::int32_t getTabMarginValue() const override { return TabMarginValue; }

    const RecordList* recordsForList() override { return &arrangedAddExceptionsRecords; }
    bool doTabStockSetCheckByIndex(std::int32_t pagetype) override;
    const PaperTitles* paperTitles() override;
    void updatePaperViews() override;
    void openForRecords() override { ActivateWindow(); }

  private:
    void makeControls(platform::Window* window);
    void fillFromSelection(const SPSummaryScrollViewCtrl& list);
    void tellAdvancedWindow(const RecordPaper& shown);
    void replayValues();
    ExceptionSettings askedSettings() const;
    ExceptionSettings defaultSettings() const;
    SPSummaryScrollViewCtrl* summary();

    StaticTextEditControlEMFSpecialPages* addExceptPageDefineSTxtCtrl = nullptr;
    StaticTextEditControlEMFSpecialPages* addExceptPageViewTitleCtrlPtr = nullptr;
    StaticTextEditControlEMFSpecialPages* addExceptJobSettingViewTitleCtrlPtr = nullptr;
    StaticTextEditControlEMFSpecialPages* addExceptTwoSidePrintListTitleCtrlPtr = nullptr;
    StaticTextEditControlEMFSpecialPages* addExceptPageDescStaticPtr = nullptr;
    SPAddExceptTextEditCtrlEMF* addExceptPageDefineEtxtCtrl = nullptr;
    SPAddExceptSubMenuListCtrlEMF* addExceptPaperSelectListCtrl = nullptr;
    SPPageSettingScrollViewCtrlEMF* addExceptPageSettingInfoViewPtr = nullptr;
    SPTwoSidePrintListCtrlEMF* addExceptTowSidePrintListCtrl = nullptr;
    SPJobSettingScrollViewCtrlEMF* addExceptWndJobSettingViewCtrlPtr = nullptr;
    SPHelpButtonEMF* addExceptHelpButPtr = nullptr;
    SPRestoreButtonEMF* addExceptDefaultButPtr = nullptr;
    SPCancelButCtrlEMF* addExceptCancelButton = nullptr;
    SPAddExceptWndOKButCtrlEMF* addExceptOKBtnCtrl = nullptr;

    ExceptionRows addExceptCurrentSetting;
    RecordList arrangedAddExceptionsRecords;
    std::int32_t TabStockValue = 3;
    std::int32_t TabMarginListValue = 1;
    std::int32_t TabMarginValue = 127;
};

} // namespace specialpages
