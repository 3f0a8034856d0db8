// The modal window in which the user states the job's covers. It serves both adding and editing: there is at
// most one front and one back cover, so OK always throws away the cover records and writes them anew.
#pragma once

#include "controls/BaseButtonEMFSpecialPages.h"
#include "controls/PopupWinInPanelEMFSpecialPages.h"
#include "dialogs/TabStockDialog.h"
#include "paper/CoversWindow.h"
#include "paper/SPCoversSelectPaperListCtrlEMF.h"
#include "paper/paper_windows.h"
#include "records/RecordDialog.h"

#include <cstdint>
#include <optional>
#include <string>

namespace specialpages {

struct CoverSide;
class SPCancelButCtrlEMF;
class SPCoverPageSettingScrollViewCtrlEMF;
class SPHelpButtonEMF;
class SPJobSettingScrollViewCtrlEMF;
class SPRestoreButtonEMF;
class SPSummaryScrollViewCtrl;
class StaticTextEditControlEMFSpecialPages;

class SPAddCoversWndOKButCtrlEMF : public BaseButtonEMFSpecialPages {
  public:
    bool UIEventHandler() override;
    /// Whether OK changes the list: always when there are covers, else when the option makes some.
    bool coverRecordIsChagned() const;
};

class SPAddCoversWndEMF : public PopupWinInPanelEMFSpecialPages,
                          public CoversWindow,
                          public RecordDialog,
                          public PaperMenuDialog,
                          public TabStockDialog {
  public:
    using BasePrintPanelEMFSpecialPages::CreatePanel;
    void CreatePanel(platform::Window* window, const char* theWinTitleStr) override;
    /// Opens the dialog on the list's covers; nothing without window, pane or list.
    std::int32_t ActivateWindow() override;
    /// The title for adding (1) or editing (2); any other status keeps it.
    void resetUserPaneTitle(std::int64_t status);

    // What OK does, in its order.

    /// The records of what the lists show, in place of the working copy.
    void rebuildRecords();
    /// Hands the working copy and the tab stock value over; a front cover removes the inserts before page
    /// one.
    void commitRecords();

    SPCoversWinListCtrlEMF* getSPCoversOptionsListPtr() override { return spCoversOptionsListPtr; }
    SPCoversWinListCtrlEMF* getSPCoverWndFrontPrintingOptionListPtr() override {
        return spPrintingOptionsFrontListPtr;
    }
    SPCoversWinListCtrlEMF* getSPCoverWndBackPrintingOptionListPtr() override {
        return spPrintingOptionsBackListPtr;
    }
    SPCoversSelectPaperListCtrlEMF* getSPCoverWndFrontSelectPaperListPtr() override {
        return spCoverWndFrontSelectPaperListPtr;
    }
    SPCoversSelectPaperListCtrlEMF* getSPCoverWndBackSelectPaperListPtr() override {
        return spCoverWndBackSelectPaperListPtr;
    }
    SPCoverPageSettingScrollViewCtrlEMF* GetPageSettingFrontScrollView() {
        return spCoversWndFrontCoverPageViewPtr;
    }
    SPCoverPageSettingScrollViewCtrlEMF* GetPageSettingBackScrollView() {
        return spCoversWndBackCoverPageViewPtr;
    }
    /// Of the paper menu of the front (0) or the back (1); null, or 2 for the measure, for any other number
    /// or without the menu.
    std::optional<std::string> getCoversCustomPageWidthByType(std::int32_t type) const;
    std::optional<std::string> getCoversCustomPageLengthByType(std::int32_t type) const;
    std::int32_t getCoversCustomPageSizeLongMeasure(std::int32_t type) const;

    const RecordList* getCoversDataRecordsPtr() override { return &m_CoversDataRecords; }
    void removeAllCoversDataRecords() { m_CoversDataRecords.clear(); }
    void addOneCoversDataRecord(const SpecialPageRecord& record) { m_CoversDataRecords.push_back(record); }
    void setTabStockValue(std::int32_t value) override { TabStockValue = value; }
    std::int32_t getTabStockValue() const override { return TabStockValue; }
    /// The list of special pages; null outside a pane.
    SPSummaryScrollViewCtrl* summary();
    /// Position of the option list.
    CoverOption option() const;

    const RecordList* recordsForList() override { return &m_CoversDataRecords; }
    bool doTabStockSetCheckByIndex(std::int32_t pagetype) override;
    const PaperTitles* paperTitles() override;
    void updatePaperViews() override;
    void openForRecords() override { ActivateWindow(); }

  private:
    void replayValues();
    CoverSide sideFromViews(std::int32_t type) const;
    SPCoversSelectPaperListCtrlEMF* paperMenu(std::int32_t type) const;

    SPCoversWinListCtrlEMF* spCoversOptionsListPtr = nullptr;
    StaticTextEditControlEMFSpecialPages* spCoversOptionsListTitleCtrlPtr = nullptr;
    SPCoversSelectPaperListCtrlEMF* spCoverWndFrontSelectPaperListPtr = nullptr;
    SPCoverPageSettingScrollViewCtrlEMF* spCoversWndFrontCoverPageViewPtr = nullptr;
    StaticTextEditControlEMFSpecialPages* spCoversWndFrontCoverPagerViewTitleCtrlPtr = nullptr;
    SPCoversWinListCtrlEMF* spPrintingOptionsFrontListPtr = nullptr;
    StaticTextEditControlEMFSpecialPages* spPrintingOptionsFrontListTitleCtrlPtr = nullptr;
    SPCoversSelectPaperListCtrlEMF* spCoverWndBackSelectPaperListPtr = nullptr;
    SPCoverPageSettingScrollViewCtrlEMF* spCoversWndBackCoverPageViewPtr = nullptr;
    StaticTextEditControlEMFSpecialPages* spCoversWndBackCoverPagerViewTitleCtrlPtr = nullptr;
    SPCoversWinListCtrlEMF* spPrintingOptionsBackListPtr = nullptr;
    StaticTextEditControlEMFSpecialPages* spPrintingOptionsBackListTitleCtrlPtr = nullptr;
    SPJobSettingScrollViewCtrlEMF* spCoversWndJobSettingViewCtrlPtr = nullptr;
    StaticTextEditControlEMFSpecialPages* spCoversWndJobSettingViewTitleCtrlPtr = nullptr;
    SPHelpButtonEMF* spCoversWndHelpButPtr = nullptr;
    SPRestoreButtonEMF* spCoversWndDefaultButPtr = nullptr;
    SPCancelButCtrlEMF* spCancelButCtrlPtr = nullptr;
    SPAddCoversWndOKButCtrlEMF* spCoversWndOKButPtr = nullptr;
    RecordList m_CoversDataRecords;
    std::int32_t TabStockValue = 3;
};

} // namespace specialpages
