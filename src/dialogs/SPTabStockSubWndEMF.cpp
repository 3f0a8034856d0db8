#include "dialogs/SPTabStockSubWndEMF.h"

#include "controls/SPHelpButtonEMF.h"
#include "controls/StaticTextEditControlEMFSpecialPages.h"
#include "dialogs/SPTabStockLittleArrowControlEMF.h"
#include "dialogs/SPTabStockOKButtonEMF.h"
#include "dialogs/SPTabStockTextEditCtrlEMF.h"
#include "dialogs/dialog_builder.h"
#include "dialogs/dialog_buttons.h"
#include "dialogs/tab_stock_tables.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/Window.h"
#include "support/input_filter.h"

namespace specialpages {

void SPTabStockSubWndEMF::CreatePanel(platform::Window* window, const char* theWinTitleStr) {
    PopupWinInPanel(window, theWinTitleStr);
    DialogBuilder add(*this, window);
    add.title(SPNumInSequenceSubSTextCtrl, SPNumInSequenceSubStaticTextID, "Number In Sequence Static Text");
    add.add(SPNumInSequenceSubWindowEtxtCtrl, SPNumInSequenceSubEditTextID,
            [](SPNumInSeqTextEditCtrlEMF& field, platform::View* view) {
                field.CreateControl(view, &SPNumInSequenceIniData, &SPNumInSequenceSubNumberEditCnstrnInfoPtr,
                                    &SPNumInSequenceTextEditAccessInfo, {}, &SPNumInSequenceSubFilterData,
                                    "Number In Sequence Text", &SPNumInSequenceEditValueRangeData);
            });
    add.add(SPNumInSequenceSubWindowLarrCtrl, SPNumInSequenceSubLittleArrowID,
            [](SPNumInSeqLittleArrowControlEMF& stepper, platform::View* view) {
                stepper.CreateControl(view, &SPNumInSequenceLittleArrowIniData,
                                      &SPNumInSequenceSubLittleArrayCnstrnInfoPtr,
                                      SPNumInSequenceSubLittleArrayValidateArray);
            });
    add.button(SPTabMarginSubWndOKPushCtrl, SPTabMarginSubOKButtonID, kOkButtonTitle);
    add.button(SPTabMarginSubWndCancelPushCtrl, SPTabMarginSubCancelButtonID, kCancelButtonTitle);
    add.button(SPTabMarginSubWndDefaultPushCtrl, SPTabMarginSubDefaultButtonID, kRestoreButtonTitle);
    add.help(TabMarginWndHelpPushCtrl, SPTabMarginSubHelpButtonID, "SpecialPagesNumInSequence.htm");
}

std::int32_t SPTabStockSubWndEMF::ActivateWindow() {
    if (windowRef != nullptr) {
        SetCurrentValueToUI();
        platform::Application::shared().runModalForWindow(*windowRef);
    }
    return 0;
}

} // namespace specialpages
