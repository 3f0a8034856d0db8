// The roads between siblings: dialogs, lists and buttons reach each other only through these getters of the
// main pane. Types are named only, so that a user of one road includes no other.
#pragma once

#include <cstdint>

namespace specialpages::platform {
class View;
}

namespace specialpages {

class PopupWinInPanelEMFSpecialPages;
class RecordDialog;
class SPSummaryScrollViewCtrl;
class SPUndoButCtrlEMF;

/// Answers are borrowed from the pane; a window or control that its nib does not provide is null.
class SpecialPagesHub {
  public:
    SpecialPagesHub() = default;
    SpecialPagesHub(const SpecialPagesHub&) = delete;
    SpecialPagesHub& operator=(const SpecialPagesHub&) = delete;
    virtual ~SpecialPagesHub() = default;

    virtual platform::View* getSpecialPagesViewPtr() = 0;
    virtual platform::View* getSpecialPagesView() = 0;
    virtual PopupWinInPanelEMFSpecialPages* getSPAddCoversWndPtr() = 0;
    virtual PopupWinInPanelEMFSpecialPages* getSPAddInsertWndPtr() = 0;
    virtual PopupWinInPanelEMFSpecialPages* getSPAddExceptionsWndPtr() = 0;
    virtual PopupWinInPanelEMFSpecialPages* getTabStockWndPtr() = 0;
    virtual PopupWinInPanelEMFSpecialPages* getTabStockSubWndPtr() = 0;
    virtual PopupWinInPanelEMFSpecialPages* getCustomSizeWndPtr() = 0;
    virtual PopupWinInPanelEMFSpecialPages* getAdvSeleWndPtr() = 0;
    virtual SPSummaryScrollViewCtrl* getSPSummaryScrollViewCtrlPtr() = 0;
    virtual SPUndoButCtrlEMF* getSPUndoButtonPtr() = 0;

    /// What the record list needs of the dialog for records of that type (0 covers, 1 inserts, 2 exceptions).
    virtual RecordDialog* recordDialog(std::int32_t type) = 0;

    /// Defaults that the dialogs share: tab stock (tabs in sequence), tab margin list item, tab margin.
    virtual std::int32_t getTabStockValue() const = 0;
    virtual void setTabStockValue(std::int32_t value) = 0;
    virtual std::int32_t getTabMarginListValue() const = 0;
    virtual void setTabMarginListValue(std::int32_t value) = 0;
    virtual std::int32_t getTabMarginValue() const = 0;
    virtual void setTabMarginValue(std::int32_t value) = 0;

    /// The record list is about to change: the undo button takes its backup.
    virtual void toMakeChange() = 0;
    /// Asks the user before records are deleted (kind 0: the selected ones, 1: all). True after the user
    /// agreed and toMakeChange was sent; false, and nothing sent, otherwise or without a warning window.
    virtual bool sureToMakeChange(std::int32_t kind) = 0;
};

} // namespace specialpages
