// The large modal window behind a paper type that is tab stock, in the exceptions dialog: the number of tabs
// in a sequence, and how far the print is moved toward the tab, as a preset or as a length in millimetres or
// inches. The values live in the exceptions dialog and move there with OK; the margin as tenths of a
// millimetre, whatever the unit shown. The unit is the one of the last OK.
#pragma once

#include "controls/PopupWinInPanelEMFSpecialPages.h"
#include "dialogs/SPTabMarginListCtrlEMF.h"

#include <memory>

namespace specialpages {

class DialogBuilder;
class RadioGroupEMFSpecialPages;
class SPCancelButCtrlEMF;
class SPNumInSeqLittleArrowControlEMF;
class SPNumInSeqTextEditCtrlEMF;
class SPRestoreButtonEMF;
class SPTabInchesTextEditCtrlEMF;
class SPTabMMTextEditCtrlEMF;
class SPTabStockOKButtonEMF;
class StaticTextEditControlEMFSpecialPages;

class SPTabStockWndEMF : public PopupWinInPanelEMFSpecialPages, public TabMarginControls {
  public:
    SPTabStockWndEMF();
    ~SPTabStockWndEMF() override;

    using BasePrintPanelEMFSpecialPages::CreatePanel;
    void CreatePanel(platform::Window* window, const char* theWinTitleStr) override;
    /// Opens without a rebuild of its controls; nothing without a window.
    std::int32_t ActivateWindow() override;

    SPTabMMLittleArrowControlEMF* getTabMarginMMLArrowPtr() override { return SPTabMarginMMLarrowCtrl; }
    SPTabInchesLittleArrowControlEMF* getTabMarginInchLArrowPtr() override {
        return SPTabMarginInchLarrowCtrl;
    }
    SPInchMMRadioButtonEMF* getTabMarginInchRadioButtonPtr() override {
        return SPTabMarginEditWndInchesRadioButPtr;
    }
    SPInchMMRadioButtonEMF* getTabMarginMMRadioButtonPtr() override {
        return SPTabMarginEditWndMMRadioButPtr;
    }

  private:
    void addNumber(DialogBuilder& add);
    void addMargin(DialogBuilder& add);
    void addUnits(DialogBuilder& add);

    StaticTextEditControlEMFSpecialPages* SPNumInSequenceSTextCtrl = nullptr;
    SPNumInSeqTextEditCtrlEMF* SPNumInSequenceWindowEtxtCtrl = nullptr;
    SPNumInSeqLittleArrowControlEMF* SPNumInSequenceWindowLarrCtrl = nullptr;
    StaticTextEditControlEMFSpecialPages* SPTabMarginListTitleCtrl = nullptr;
    SPTabMarginListCtrlEMF* SPTabMarginListCtrlPtr = nullptr;
    SPTabMMTextEditCtrlEMF* SPTabMarginMMTextEditCtrl = nullptr;
    SPTabMMLittleArrowControlEMF* SPTabMarginMMLarrowCtrl = nullptr;
    SPTabInchesTextEditCtrlEMF* SPTabMarginInchTextEditCtrl = nullptr;
    SPTabInchesLittleArrowControlEMF* SPTabMarginInchLarrowCtrl = nullptr;
    std::unique_ptr<RadioGroupEMFSpecialPages> SPTabMarginInchMmGroupPtr;
    SPInchMMRadioButtonEMF* SPTabMarginEditWndMMRadioButPtr = nullptr;
    SPInchMMRadioButtonEMF* SPTabMarginEditWndInchesRadioButPtr = nullptr;
    SPTabStockOKButtonEMF* SPTabMarginWndOKPushCtrl = nullptr;
    SPCancelButCtrlEMF* SPTabMarginWndCancelPushCtrl = nullptr;
    SPRestoreButtonEMF* SPTabMarginWndDefaultPushCtrl = nullptr;
};

} // namespace specialpages
