#include "dialogs/SPWarningWndEMF.h"

#include "controls/SPIconViewCtrlEMF.h"
#include "controls/StaticTextEditControlEMFSpecialPages.h"
#include "platform/foundation/Bundle.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/IconView.h"
#include "platform/toolkit/Window.h"
#include "support/identifiers.h"

#include <memory>
#include <utility>

namespace specialpages {

namespace {

constexpr std::int32_t kAgreed = 0;
constexpr std::int32_t kCancelled = 1;
constexpr const char* kWarningIcon = "Warning.bmp";
constexpr const char* kDeleteSelectedKey = "Delete Selected Special Pages";
constexpr const char* kDeleteAllKey = "Delete All Special Pages";

bool end_with(ControlPanel* panel, std::int32_t status) {
    if (auto* window = dynamic_cast<SPWarningWndEMF*>(panel)) {
        window->setWarningWndExitStatus(status);
        window->DeactivateWindow();
    }
    return true;
}

} // namespace

bool SPWarningWndOKButCtrlEMF::UIEventHandler() {
    return end_with(ctrlParentPanelPtr, kAgreed);
}

bool SPWarningWndCancelButCtrlEMF::UIEventHandler() {
    return end_with(ctrlParentPanelPtr, kCancelled);
}

void SPWarningWndEMF::CreatePanel(platform::Window* window, const char* theWinTitleStr) {
    PopupWinInPanel(window, theWinTitleStr);
    exitStatus = kCancelled;
    const auto view = [window](ControlTag tag) {
        return window == nullptr ? nullptr : window->viewWithTag(tag);
    };
    const auto addText = [this](StaticTextEditControlEMFSpecialPages*& field, platform::View* text,
                                const char* key) {
        auto control = std::make_unique<StaticTextEditControlEMFSpecialPages>();
        control->CreateControl(text, nullptr, nullptr, {}, key);
        RunTimeAddNewControl(std::move(control), field);
    };
    const auto addButton = [this]<typename Control>(Control*& field, platform::View* button,
                                                    const char* key) {
        auto control = std::make_unique<Control>();
        control->CreateControl(button, key);
        RunTimeAddNewControl(std::move(control), field);
    };
    WarningWndIconImage = dynamic_cast<platform::IconView*>(view(spWarningWndIconID));
    auto icon = std::make_unique<SPIconViewCtrlEMF>();
    icon->CreateControl(WarningWndIconImage, spWarningWndIconID, kWarningIcon);
    SPIconViewCtrlEMF* registered = nullptr;
    RunTimeAddNewControl(std::move(icon), registered);
    addText(spWarningTitleTextCtrlPtr, view(spWarningWndTitleID), "Delete Special Pages Title");
    addText(spWarningMessageTextCtrlPtr, view(spWarningWndMessageID), kDeleteSelectedKey);
    addButton(spWarningOKButPtr, view(spWarningWndOKButID), "SP Warning OK Btn");
    addButton(spWarningCancelButPtr, view(spWarningWndCancelButID), "SP Warning Cancel Btn");
}

std::int32_t SPWarningWndEMF::InitializeUserPaneTitle(platform::Bundle*) {
    if (windowRef != nullptr) {
        windowRef->setTitle({});
    }
    return 0;
}

std::int32_t SPWarningWndEMF::ActivateWindow() {
    if (windowRef != nullptr) {
        platform::Application::shared().runModalForWindow(*windowRef);
    }
    return 0;
}

void SPWarningWndEMF::setWarningStrWindow(std::int32_t kind) {
    if (spWarningMessageTextCtrlPtr == nullptr || pdeBundleRef == nullptr || kind < 0 || kind > 1) {
        return;
    }
    const std::string text = pdeBundleRef->localizedStringForKey(
        kind == 0 ? kDeleteSelectedKey : kDeleteAllKey, kNoTranslation, {});
    spWarningMessageTextCtrlPtr->SetExternalValueToUI(text, static_cast<std::uint32_t>(text.size()));
}

} // namespace specialpages
