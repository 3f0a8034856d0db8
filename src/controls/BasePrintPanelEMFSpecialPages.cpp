#include "controls/BasePrintPanelEMFSpecialPages.h"

#include "controls/BaseControlEMFSpecialPages.h"
#include "platform/foundation/Bundle.h"
#include "platform/foundation/log.h"
#include "platform/print/PDEPluginCallback.h"
#include "platform/toolkit/View.h"
#include "platform/toolkit/Window.h"
#include "platform/toolkit/nib_texts.h"
#include "support/plugin_bundle.h"
#include "support/settings_access.h"

#include <utility>

namespace specialpages {

BasePrintPanelEMFSpecialPages::BasePrintPanelEMFSpecialPages() = default;
BasePrintPanelEMFSpecialPages::~BasePrintPanelEMFSpecialPages() = default;

void BasePrintPanelEMFSpecialPages::initWithCallback(platform::PDEPluginCallback* host) {
    m_pPDECallbackObj = host;
}

void BasePrintPanelEMFSpecialPages::CreatePanel(platform::Window* window) {
    fCtrlGroupArray.clear();
    fCtrlInstallableGroupArray.clear();
    fWindowGroupArray.clear();
    AllGroupNameStrArray.clear();
    ownedControls_.clear();
    windowRef = window;
    pParentPane = nullptr;
    pdeBundleRef = nullptr;
    currentPrintString.reset();
    currentPrintSession = nullptr;
    _control_num_item = 0;
    _installableControl_num_item = 0;
    _parentPane_num_item = 0;
    m_pSettings = nullptr;
    m_ptCurrentPPD = nullptr;
    preferenceDictionaryRef.reset();
    preferenceDictionaryAnyUserRef.reset();
}

template <typename Operation>
void BasePrintPanelEMFSpecialPages::forEachControl(Operation operation) {
    for (BaseControlEMFSpecialPages* control : fCtrlGroupArray) {
        if (control != nullptr) {
            operation(*control);
        }
    }
}

/// The first non-zero answer of a window, at which the walk ends; 0 when all answered 0.
template <typename Operation>
std::int32_t BasePrintPanelEMFSpecialPages::firstRefusal(Operation operation) {
    for (BasePrintPanelEMFSpecialPages* window : fWindowGroupArray) {
        if (window != nullptr) {
            if (const std::int32_t status = operation(*window); status != 0) {
                return status;
            }
        }
    }
    return 0;
}

std::int32_t BasePrintPanelEMFSpecialPages::RunTimeAddNewControl(BaseControlEMFSpecialPages* control) {
    if (control == nullptr || control->GetControlPtr() == nullptr) {
        return _control_num_item;
    }
    control->SetParenetPanel(this);
    fCtrlGroupArray.push_back(control);
    return _control_num_item++;
}

std::int32_t
BasePrintPanelEMFSpecialPages::RunTimeAddNewInstallableControl(BaseControlEMFSpecialPages* control) {
    if (control == nullptr) {
        return _installableControl_num_item;
    }
    control->SetParenetPanel(this);
    fCtrlInstallableGroupArray.push_back(control);
    return _installableControl_num_item++;
}

std::int32_t BasePrintPanelEMFSpecialPages::RunTimeAddNewWindow(BasePrintPanelEMFSpecialPages* window) {
    if (window == nullptr) {
        return _parentPane_num_item;
    }
    window->SetParenetPane(this);
    fWindowGroupArray.push_back(window);
    return _parentPane_num_item++;
}

BaseControlEMFSpecialPages* BasePrintPanelEMFSpecialPages::GetPanelControl(ControlTag tag) {
    for (const auto* registry : {&fCtrlGroupArray, &fCtrlInstallableGroupArray}) {
        for (BaseControlEMFSpecialPages* control : *registry) {
            if (control != nullptr && control->GetControlPtr() != nullptr &&
                control->GetControlPtr()->tag() == tag) {
                return control;
            }
        }
    }
    for (BasePrintPanelEMFSpecialPages* window : fWindowGroupArray) {
        if (window != nullptr) {
            if (BaseControlEMFSpecialPages* control = window->GetPanelControl(tag)) {
                return control;
            }
        }
    }
    return nullptr;
}

ppd_file_s* BasePrintPanelEMFSpecialPages::GetPPDRefFromCurrentPrintSession() {
    return GetCurrentPrintSession() == nullptr || m_pPDECallbackObj == nullptr ? nullptr
                                                                               : m_pPDECallbackObj->ppdFile();
}

std::int32_t BasePrintPanelEMFSpecialPages::Open() {
    forEachControl([](auto& control) { control.Open(); });
    firstRefusal([](auto& window) { return window.Open(); });
    return 0;
}

std::int32_t BasePrintPanelEMFSpecialPages::Close() {
    forEachControl([](auto& control) { control.Close(); });
    firstRefusal([](auto& window) { return window.Close(); });
    return 0;
}

std::int32_t BasePrintPanelEMFSpecialPages::GetSummaryText(std::map<std::string, std::string>* text,
                                                           std::vector<std::string>* orderArray) {
    forEachControl([&](auto& control) { control.GetSummaryText(text, orderArray); });
    firstRefusal([&](auto& window) { return window.GetSummaryText(text, orderArray); });
    return 0;
}

std::int32_t BasePrintPanelEMFSpecialPages::InitializeUserPaneControl(platform::Bundle* bundle,
                                                                      ppd_file_s* withPPD) {
    forEachControl([&](auto& control) { control.InitializeCtrl(bundle, withPPD); });
    return 0;
}

std::int32_t BasePrintPanelEMFSpecialPages::InitilaizeChildWindow(platform::Bundle* bundle,
                                                                  ppd_file_s* withPPD) {
    firstRefusal([&](auto& window) { return window.InitializeUserPane(bundle, withPPD); });
    return 0;
}

std::int32_t BasePrintPanelEMFSpecialPages::SetControlEventHandler() {
    forEachControl([](auto& control) { control.setTargetandAction(); });
    return 0;
}

std::int32_t BasePrintPanelEMFSpecialPages::ConstrainPanelControlFromPPD(ppd_file_s* ppd) {
    for (BaseControlEMFSpecialPages* control : fCtrlInstallableGroupArray) {
        control->ConstrainPanelControlFromPPD(ppd);
    }
    return 0;
}

std::int32_t BasePrintPanelEMFSpecialPages::UpdateConflictsPanelControlFromPPD(ppd_file_s* ppd) {
    forEachControl([&](auto& control) { control.UpdateConflictsPanelControlFromPPD(ppd); });
    return 0;
}

std::int32_t BasePrintPanelEMFSpecialPages::SetUIDataToIniData() {
    forEachControl([](auto& control) { control.SetUIValueToIniData(); });
    firstRefusal([](auto& window) { return window.SetUIDataToIniData(); });
    return 0;
}

std::int32_t BasePrintPanelEMFSpecialPages::SetDefaultValueToUI() {
    forEachControl([](auto& control) {
        control.SetDefaultValueToUI();
        control.SimulationUIEventHandler();
    });
    return 0;
}

std::int32_t BasePrintPanelEMFSpecialPages::SetCurrentValueToUI() {
    forEachControl([](auto& control) { control.SetControlValueToUI(); });
    forEachControl([](auto& control) { control.SimulationUIEventHandler(); });
    firstRefusal([](auto& window) { return window.SetCurrentValueToUI(); });
    return 0;
}

std::int32_t BasePrintPanelEMFSpecialPages::SetValueFromUIToControl() {
    forEachControl([](auto& control) {
        if (control.GetValueFromUI() != nullptr) {
            control.SetValueFromUIToControl();
        }
    });
    return 0;
}

bool BasePrintPanelEMFSpecialPages::GetValueFromPreset() {
    forEachControl([](auto& control) {
        if (!control.GetValueToPreset()) {
            control.SetControlValueToDefault();
        }
    });
    firstRefusal([](auto& window) { return window.GetValueFromPreset() ? 0 : 1; });
    return true;
}

std::int32_t BasePrintPanelEMFSpecialPages::GetValueFromPreference() {
    forEachControl([](auto& control) {
        if (!control.GetValueFromPreference()) {
            control.SetControlValueToDefault();
        }
    });
    firstRefusal([](auto& window) { return window.GetValueFromPreference(); });
    return 0;
}

std::int32_t BasePrintPanelEMFSpecialPages::GetValueFromPreferenceWithPrinterSettings() {
    forEachControl([](auto& control) {
        if (!control.GetValueFromPreferenceWithPrinterSettings()) {
            control.SetControlValueToDefault();
        }
    });
    firstRefusal([](auto& window) { return window.GetValueFromPreferenceWithPrinterSettings(); });
    return 0;
}

std::int32_t BasePrintPanelEMFSpecialPages::SetValueToPreference() {
    forEachControl([](auto& control) { control.SetValueToPreference(); });
    return firstRefusal([](auto& window) { return window.SetValueToPreference(); });
}

std::int32_t BasePrintPanelEMFSpecialPages::SetValueToPreferenceWithPrinterSettings() {
    forEachControl([](auto& control) { control.SetValueToPreferenceWithPrinterSettings(); });
    return firstRefusal([](auto& window) { return window.SetValueToPreferenceWithPrinterSettings(); });
}

std::int32_t BasePrintPanelEMFSpecialPages::SetValueToTicket(platform::PrintSettings* settings,
                                                             bool withParam) {
    forEachControl([&](auto& control) { control.SetValueToTicket(settings, withParam); });
    firstRefusal([&](auto& window) { return window.SetValueToTicket(settings, withParam); });
    return 0;
}

std::int32_t
BasePrintPanelEMFSpecialPages::SetValueToTicket(platform::PrintSettings* settings, bool withParam,
                                                const std::vector<platform::View*>* encryptArray) {
    forEachControl([&](auto& control) {
        if (encryptArray != nullptr) {
            control.SetValueToTicket(settings, withParam, *encryptArray);
        } else {
            control.SetValueToTicket(settings, withParam);
        }
    });
    firstRefusal([&](auto& window) { return window.SetValueToTicket(settings, withParam, encryptArray); });
    return 0;
}

std::int32_t BasePrintPanelEMFSpecialPages::ReInitializeUserPaneControl(platform::Bundle* bundle,
                                                                        ppd_file_s* withPPD) {
    forEachControl([&](auto& control) {
        control.ReInitializeCtrl(bundle, withPPD);
        control.ResetStatus();
    });
    return 0;
}

std::int32_t BasePrintPanelEMFSpecialPages::ResetControlStatus() {
    ResetCurrentControlStatus();
    firstRefusal([](auto& window) { return window.ResetControlStatus(); });
    if (ppd_file_s* ppd = GetPPDRefFromCurrentPrintSession()) {
        ConstrainPanelControlFromPPD(ppd);
    }
    return 0;
}

std::int32_t BasePrintPanelEMFSpecialPages::ResetCurrentControlStatus() {
    forEachControl([](auto& control) {
        if (control.GetControlPtr() != nullptr) {
            control.ResetStatus();
        }
    });
    return 0;
}

void BasePrintPanelEMFSpecialPages::SetxppdPtr(std::shared_ptr<ConstraintIndex> index) {
    xppd = std::move(index);
    for (BasePrintPanelEMFSpecialPages* window : fWindowGroupArray) {
        window->SetxppdPtr(xppd);
    }
}

std::int32_t BasePrintPanelEMFSpecialPages::InitializeUserPane(platform::Bundle* bundle,
                                                               ppd_file_s* withPPD) {
    pdeBundleRef = bundle;
    InitializeUserPaneControl(bundle, withPPD);
    SetControlEventHandler();
    InitilaizeChildWindow(bundle, withPPD);
    ConstrainPanelControlFromPPD(withPPD);
    return 0;
}

bool BasePrintPanelEMFSpecialPages::fillPrinterString(platform::PrintSession* session) {
    currentPrintString.emplace();
    return SetPrinterString(session, &*currentPrintString) == 0;
}

bool BasePrintPanelEMFSpecialPages::SetCurrentPrintSettings(platform::PrintSettings* settings,
                                                            ppd_file_s* andPPD,
                                                            platform::PDEPluginCallback* andCallbackObj,
                                                            platform::PrintSession* withPrintSession) {
    m_pSettings = settings;
    m_ptCurrentPPD = andPPD;
    m_pPDECallbackObj = andCallbackObj;
    if (!fillPrinterString(withPrintSession)) {
        return false;
    }
    return firstRefusal([&](auto& window) {
               return window.SetCurrentPrintSettings(settings, andPPD, andCallbackObj, withPrintSession) ? 0
                                                                                                         : 1;
           }) == 0;
}

bool BasePrintPanelEMFSpecialPages::SetCurrentPrinterString(platform::PrintSession* session) {
    SetCurrentPrintSession(session);
    return fillPrinterString(session);
}

void BasePrintPanelEMFSpecialPages::setPreferDictionary(
    std::shared_ptr<const PreferenceDictionary> dictionary,
    std::shared_ptr<const PreferenceDictionary> anyUserDictionary) {
    preferenceDictionaryRef = std::move(dictionary);
    preferenceDictionaryAnyUserRef = std::move(anyUserDictionary);
    for (BasePrintPanelEMFSpecialPages* window : fWindowGroupArray) {
        window->setPreferDictionary(preferenceDictionaryRef, preferenceDictionaryAnyUserRef);
    }
}

bool BasePrintPanelEMFSpecialPages::loadNibNamed(std::string_view name) {
    if (topLevelObjs) {
        return true;
    }
    const auto file =
        pluginBundle() ? pluginBundle()->CFBundleCopyResourceURL(name, "nib", {}) : std::nullopt;
    if (!file) {
        platform::NSLog("SpecialPagesPDE : nib " + std::string(name) + " is not in the bundle");
        return false;
    }
    std::string error;
    topLevelObjs = platform::Nib::loadNibFile(*file, *this, &error);
    if (!topLevelObjs) {
        platform::NSLog("SpecialPagesPDE : " + file->string() + ": " + error);
        return false;
    }
    platform::translate_nib_texts(topLevelObjs->topLevelViews(), [name](const std::string& text) {
        return pluginBundle()->localizedStringForKey(text, text, name);
    });
    return true;
}

bool BasePrintPanelEMFSpecialPages::connectOutlet(std::string_view, platform::View&) {
    return false;
}

std::unique_ptr<platform::NibObject> BasePrintPanelEMFSpecialPages::instantiate(std::string_view) {
    return nullptr;
}

bool BasePrintPanelEMFSpecialPages::connectObject(std::string_view, platform::NibObject&) {
    return false;
}

} // namespace specialpages
