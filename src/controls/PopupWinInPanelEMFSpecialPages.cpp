#include "controls/PopupWinInPanelEMFSpecialPages.h"

#include "controls/BaseControlEMFSpecialPages.h"
#include "platform/foundation/Bundle.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/Window.h"
#include "ppd/ppd_access.h"
#include "support/identifiers.h"

namespace specialpages {

void PopupWinInPanelEMFSpecialPages::PopupWinInPanel(platform::Window* window, const char* theWinTitleStr) {
    CreatePanel(window);
    winTitleTextRef = theWinTitleStr;
    isActived = false;
}

void PopupWinInPanelEMFSpecialPages::CreatePanel(platform::Window* window, const char* theWinTitleStr) {
    PopupWinInPanel(window, theWinTitleStr);
}

std::int32_t PopupWinInPanelEMFSpecialPages::InitializeUserPane(platform::Bundle* bundle,
                                                                ppd_file_s* withPPD) {
    if (withPPD != nullptr && !LocalizeTableName) {
        const ppd_attr_t* index = ppdFindAttr_ALT(withPPD, kLocalizationAttribute);
        if (index != nullptr && index->value != nullptr) {
            LocalizeTableName = localizable_table_name(index->value);
        }
    }
    InitializeUserPaneTitle(bundle);
    InitializeUserPaneControl(bundle, withPPD);
    pdeBundleRef = bundle;
    currentPPD = withPPD;
    SetControlEventHandler();
    return 0;
}

std::int32_t PopupWinInPanelEMFSpecialPages::ReInitializeUserPane() {
    ReInitializeUserPaneControl(pdeBundleRef, currentPPD);
    ReInitializeUserPaneTitle();
    SetControlEventHandler();
    return 0;
}

std::int32_t PopupWinInPanelEMFSpecialPages::InitializeUserPaneTitle(platform::Bundle* bundle) {
    if (bundle == nullptr || winTitleTextRef == nullptr || windowRef == nullptr) {
        return 0;
    }
    windowRef->setTitle(bundle->localizedStringForKey(winTitleTextRef, kNoTranslation, {}));
    return 1;
}

std::int32_t PopupWinInPanelEMFSpecialPages::ActivateWindow() {
    if (windowRef == nullptr) {
        return 0;
    }
    ReInitializeUserPane();
    SetUIDataToIniData();
    SetCurrentValueToUI();
    platform::Application::shared().runModalForWindow(*windowRef);
    return 0;
}

std::int32_t PopupWinInPanelEMFSpecialPages::DeactivateWindow() {
    platform::Application::shared().stopModal();
    if (windowRef != nullptr) {
        windowRef->close();
    }
    return 0;
}

std::int32_t PopupWinInPanelEMFSpecialPages::SycValueFromUI() {
    for (BaseControlEMFSpecialPages* control : fCtrlGroupArray) {
        if (control != nullptr && control->GetControlPtr() != nullptr) {
            control->GetValueFromUI();
        }
    }
    return 0;
}

std::optional<std::string> PopupWinInPanelEMFSpecialPages::GetCurrentPrinterString() {
    return pParentPane == nullptr ? std::nullopt : pParentPane->GetCurrentPrinterString();
}

} // namespace specialpages
