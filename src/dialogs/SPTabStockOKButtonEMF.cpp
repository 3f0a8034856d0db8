#include "dialogs/SPTabStockOKButtonEMF.h"

#include "controls/PopupWinInPanelEMFSpecialPages.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/Window.h"

#include <algorithm>

namespace specialpages {

bool SPTabStockOKButtonEMF::UIEventHandler() {
    auto* window = dynamic_cast<PopupWinInPanelEMFSpecialPages*>(ctrlParentPanelPtr);
    if (window == nullptr) {
        return true;
    }
    window->SycValueFromUI();
    const auto& controls = window->getCtrlGroupArrayRef();
    if (!std::all_of(controls.begin(), controls.end(), [](BaseControlEMFSpecialPages* control) {
            return control == nullptr || control->InvalidateData();
        })) {
        return false;
    }
    window->SetValueFromUIToControl();
    platform::Application::shared().stopModal();
    if (window->window() != nullptr) {
        window->window()->close();
    }
    return true;
}

} // namespace specialpages
