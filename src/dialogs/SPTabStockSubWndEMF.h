// The small modal window behind a paper type that is tab stock, in the covers and inserts dialogs: the number
// of tabs in a sequence. The value lives in the dialog that is open below it and moves there with OK.
#pragma once

#include "controls/PopupWinInPanelEMFSpecialPages.h"

namespace specialpages {

class SPCancelButCtrlEMF;
class SPHelpButtonEMF;
class SPNumInSeqLittleArrowControlEMF;
class SPNumInSeqTextEditCtrlEMF;
class SPRestoreButtonEMF;
class SPTabStockOKButtonEMF;
class StaticTextEditControlEMFSpecialPages;

class SPTabStockSubWndEMF : public PopupWinInPanelEMFSpecialPages {
  public:
    using BasePrintPanelEMFSpecialPages::CreatePanel;
    void CreatePanel(platform::Window* window, const char* theWinTitleStr) override;
    /// Opens without a rebuild of its controls; nothing without a window.
    std::int32_t ActivateWindow() override;

  private:
    StaticTextEditControlEMFSpecialPages* SPNumInSequenceSubSTextCtrl = nullptr;
    SPNumInSeqTextEditCtrlEMF* SPNumInSequenceSubWindowEtxtCtrl = nullptr;
    SPNumInSeqLittleArrowControlEMF* SPNumInSequenceSubWindowLarrCtrl = nullptr;
    SPTabStockOKButtonEMF* SPTabMarginSubWndOKPushCtrl = nullptr;
    SPCancelButCtrlEMF* SPTabMarginSubWndCancelPushCtrl = nullptr;
    SPRestoreButtonEMF* SPTabMarginSubWndDefaultPushCtrl = nullptr;
    SPHelpButtonEMF* TabMarginWndHelpPushCtrl = nullptr;
};

} // namespace specialpages
