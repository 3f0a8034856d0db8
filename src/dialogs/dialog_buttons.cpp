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
    if (auto* dialog = dynamic_cast<ConflictChecking*>(ctrlParentPanelPtr)) {
        dialog->recheckConflicts();
    }
    return true;
}

} // namespace specialpages
