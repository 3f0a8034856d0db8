#include "dialogs/TabStockDialog.h"

#include "controls/ControlPanel.h"
#include "controls/PopupWinInPanelEMFSpecialPages.h"
#include "controls/SpecialPagesHub.h"

namespace specialpages {

namespace {

template <typename Dialog>
Dialog* if_active(PopupWinInPanelEMFSpecialPages* window) {
    return window != nullptr && window->IsActived() ? dynamic_cast<Dialog*>(window) : nullptr;
}

} // namespace

TabStockDialog* active_tab_stock_dialog(ControlPanel* panel) {
    SpecialPagesHub* hub = panel == nullptr ? nullptr : panel->hub();
    if (hub == nullptr) {
        return nullptr;
    }
    for (PopupWinInPanelEMFSpecialPages* window :
         {hub->getSPAddCoversWndPtr(), hub->getSPAddInsertWndPtr(), hub->getSPAddExceptionsWndPtr()}) {
        if (auto* dialog = if_active<TabStockDialog>(window)) {
            return dialog;
        }
    }
    return nullptr;
}

TabMarginDialog* active_tab_margin_dialog(ControlPanel* panel) {
    SpecialPagesHub* hub = panel == nullptr ? nullptr : panel->hub();
    return hub == nullptr ? nullptr : if_active<TabMarginDialog>(hub->getSPAddExceptionsWndPtr());
}

} // namespace specialpages
