// The modal window in which the user adds or edits inserted sheets: pages after which sheets go in, or one
// insert before page one, with a quantity and a paper. It adds inserts, edits one, or edits several at once;
// what several differ in is shown as "No Change" and stays each record's own. The list of special pages is
// touched by OK alone.
#pragma once

#include "controls/BaseButtonEMFSpecialPages.h"
#include "controls/PopupWinInPanelEMFSpecialPages.h"
#include "dialogs/InsertsWindow.h"
#include "dialogs/TabStockDialog.h"
#include "dialogs/dialog_buttons.h"
#include "paper/paper_windows.h"
#include "records/RecordDialog.h"

#include <cstdint>
#include <optional>
#include <string>

namespace specialpages {

class DialogBuilder;
struct InsertRequest;
struct InsertValues;
class SPAddInsertQuantityLArrEMF;
class SPInsertOptionListEMF;
class SPAddInsertQuantityTextEditEMF;
class SPHelpButtonEMF;
class SPJobSettingScrollViewCtrlEMF;
class SPPageSettingScrollViewCtrlEMF;
class SPSelectPaperListCtrlEMF;
class SPSummaryScrollViewCtrl;
class StaticTextEditControlEMFSpecialPages;

class SPAddInsertWndOKButCtrlEMF : public BaseButtonEMFSpecialPages {
  public:
    /// False, and the dialog stays open, after the first control that refused and showed its message, and
    /// when the list is neither adding nor editing.
    bool UIEventHandler() override;
    /// Whether one of the window's inserts stands at that page, compared as integers; the first one's index
    /// goes to `atIndex` unless that is null.
    bool ISRecordedCurrentPage(const std::string& page, std::size_t* atIndex) const;
};

class SPAddInsertWndEMF : public PopupWinInPanelEMFSpecialPages,
                          public InsertsWindow,
                          public RecordDialog,
                          public ConflictChecking,
                          public PaperMenuDialog,
                          public TabStockDialog {
  public:
    using BasePrintPanelEMFSpecialPages::CreatePanel;
    void CreatePanel(platform::Window* window, const char* theWinTitleStr) override;
    /// Opens the dialog for what the list is doing; nothing without window, pane, list or the advanced paper
    /// window.
    std::int32_t ActivateWindow() override;
    /// The title for adding (1) or editing (2); any other status keeps it.
    void resetUserPaneTitle(std::int64_t status);
    /// Puts every control's default in place, committed where it has a committed value.
    void RestoreDefaultValue();
    /// Puts the values into the controls, as committed ones too. A null page text leaves the field alone; an
    /// undecided quantity becomes the default, an undecided option "after the pages".
    void setRelatedCtrlWithRecordsPage(const std::optional<std::string>& page, const InsertValues& values);

    /// Disables what the shown paper forbids, and "before page one" beside a front cover.
    void recheckConflicts() override;

    // What OK does, in its order.

    /// Whether every control accepts what it shows; the first that does not has shown its message.
    bool controlsAreValid();
    /// The inserts that the controls ask for, in place of the working copy. False, and nothing happens, when
    /// the list is neither adding nor editing.
    bool rebuildRecords();
    /// Hands the working copy and the tab stock value over.
    void commitRecords();

    SPInsertOptionListEMF* getSPInstOptionListCtlPtr() { return m_SPInstOptionListCtlPtr; }
    std::optional<Option> insertOption() const override;
    SPAddInsertQuantityTextEditEMF* getSPInstQuantityEditPtr() { return m_SPInstQuantityEditPtr; }
    SPAddInsertQuantityLArrEMF* getSPInstQuantityLArrPtr() { return m_SPInstQuantityLArr; }
    SPInsertPageTextEditEMF* getSPInstPageNumEditCtlPtr() override { return m_SPInstPageNumEditPtr; }
    SPSelectPaperListCtrlEMF* getSPInstSelectPaperBtn() { return m_SPInsertSelePaperBtnPtr; }
    SPPageSettingScrollViewCtrlEMF* GetPageSettingScrollView() { return m_SPInstPaperViewPtr; }
    /// Of the paper menu; null, or 2 for the measure, without it.
    std::optional<std::string> getInsertsCustomPageWidth() const;
    std::optional<std::string> getInsertsCustomPageLength() const;
    std::int32_t getInsertsCustomPageSizeLongMeasure() const;

    const RecordList* getInsertDataRecordsPtr() const { return &m_InsertDataRecords; }
    const RecordList* getSortedInsertDataRecordPtr() override { return &m_InsertDataSortedRecords; }
    void addOneInsertDataRecord(const SpecialPageRecord& record) { m_InsertDataRecords.push_back(record); }
    /// Nothing for an index past the end.
    void replaceOneInsertDataRecord(const SpecialPageRecord& record, std::size_t atIndex);
    void removeAllInsertDataRecords() { m_InsertDataRecords.clear(); }
    void setTabStockValue(std::int32_t value) override { TabStockValue = value; }
    std::int32_t getTabStockValue() const override { return TabStockValue; }
    std::int64_t getStatus() const override;
    bool severalAreEdited() const override;
    bool hasFrontCover() const override;
    bool isInUse() const override { return IsActived(); }

    const RecordList* recordsForList() override { return &m_InsertDataSortedRecords; }
    bool doTabStockSetCheckByIndex(std::int32_t pagetype) override;
    const PaperTitles* paperTitles() override;
    void updatePaperViews() override;
    void openForRecords() override { ActivateWindow(); }

  private:
    void addSheetControls(DialogBuilder& add);
    void addPaperControls(DialogBuilder& add);
    void showSelectedRecords();
    void showEditedRecords(const RecordList& selected);
    void tellAdvancedWindow(const InsertValues& values);
    void takeRecords(const RecordList& inserts);
    void replayValues();
    InsertValues valuesFromViews() const;
    InsertRequest requestFromViews() const;
    SPSummaryScrollViewCtrl* summary() const;

    SPInsertOptionListEMF* m_SPInstOptionListCtlPtr = nullptr;
    StaticTextEditControlEMFSpecialPages* m_SPInstOptionTitlePtr = nullptr;
    SPAddInsertQuantityTextEditEMF* m_SPInstQuantityEditPtr = nullptr;
    SPAddInsertQuantityLArrEMF* m_SPInstQuantityLArr = nullptr;
    StaticTextEditControlEMFSpecialPages* m_SPInstQuantityTitlePtr = nullptr;
    SPInsertPageTextEditEMF* m_SPInstPageNumEditPtr = nullptr;
    StaticTextEditControlEMFSpecialPages* m_SPInstPageNumTitlePtr = nullptr;
    StaticTextEditControlEMFSpecialPages* m_SPInstPageRulePtr = nullptr;
    SPSelectPaperListCtrlEMF* m_SPInsertSelePaperBtnPtr = nullptr;
    SPPageSettingScrollViewCtrlEMF* m_SPInstPaperViewPtr = nullptr;
    StaticTextEditControlEMFSpecialPages* m_SPInstPaperViewTitlePtr = nullptr;
    SPJobSettingScrollViewCtrlEMF* m_SPInstJobSettingViewPtr = nullptr;
    StaticTextEditControlEMFSpecialPages* m_SPInstJobSettingTitlePtr = nullptr;
    SPHelpButtonEMF* m_SPInstHelpBtnPtr = nullptr;
    SPRestoreButtonEMF* m_SPInstDefaultBtnPtr = nullptr;
    SPCancelButCtrlEMF* m_SPInstCancelBtnPtr = nullptr;
    SPAddInsertWndOKButCtrlEMF* m_SPInstOKBtnPtr = nullptr;
    RecordList m_InsertDataRecords;
    RecordList m_InsertDataSortedRecords;
    std::int32_t TabStockValue = 3;
};

} // namespace specialpages
