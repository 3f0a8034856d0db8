// A hub with nothing behind its roads. A test's pane derives from it and answers what the test is about.
#pragma once

#include "controls/SpecialPagesHub.h"

#include <cstdint>

namespace specialpages::test {

class EmptyHub : public SpecialPagesHub {
  public:
    platform::View* getSpecialPagesViewPtr() override { return nullptr; }
    platform::View* getSpecialPagesView() override { return nullptr; }
    PopupWinInPanelEMFSpecialPages* getSPAddCoversWndPtr() override { return nullptr; }
    PopupWinInPanelEMFSpecialPages* getSPAddInsertWndPtr() override { return nullptr; }
    PopupWinInPanelEMFSpecialPages* getSPAddExceptionsWndPtr() override { return nullptr; }
    PopupWinInPanelEMFSpecialPages* getTabStockWndPtr() override { return nullptr; }
    PopupWinInPanelEMFSpecialPages* getTabStockSubWndPtr() override { return nullptr; }
    PopupWinInPanelEMFSpecialPages* getCustomSizeWndPtr() override { return nullptr; }
    PopupWinInPanelEMFSpecialPages* getAdvSeleWndPtr() override { return nullptr; }
    SPSummaryScrollViewCtrl* getSPSummaryScrollViewCtrlPtr() override { return nullptr; }
    SPUndoButCtrlEMF* getSPUndoButtonPtr() override { return nullptr; }
    RecordDialog* recordDialog(std::int32_t /*type*/) override { return nullptr; }
    std::int32_t getTabStockValue() const override { return 0; }
    void setTabStockValue(std::int32_t /*value*/) override {}
    std::int32_t getTabMarginListValue() const override { return 0; }
    void setTabMarginListValue(std::int32_t /*value*/) override {}
    std::int32_t getTabMarginValue() const override { return 0; }
    void setTabMarginValue(std::int32_t /*value*/) override {}
    void toMakeChange() override {}
    bool sureToMakeChange(std::int32_t /*kind*/) override { return false; }
};

} // namespace specialpages::test
