#include "dialogs/dialog_buttons.h"

#include "controls/PopupWinInPanelEMFSpecialPages.h"

namespace specialpages {

bool SPCancelButCtrlEMF::UIEventHandler() {
    if (auto* window = dynamic_cast<PopupWinInPanelEMFSpecialPages*>(ctrlParentPanelPtr)) {
        window->ChangeActivedStatus(false);
        window->DeactivateWindow();
    }
    return true;
}

bool SPRestoreButtonEMF::UIEventHandler() {
    if (auto* window = dynamic_cast<PopupWinInPanelEMFSpecialPages*>(ctrlParentPanelPtr)) {
        window->SetDefaultValueToUI();
    }
    return true;
}

} // namespace specialpages
