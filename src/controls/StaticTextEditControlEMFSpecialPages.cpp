#include "controls/StaticTextEditControlEMFSpecialPages.h"

#include "platform/foundation/Bundle.h"
#include "platform/foundation/text.h"
#include "platform/toolkit/TextField.h"
#include "support/identifiers.h"
#include "support/settings_access.h"

#include <utility>

namespace specialpages {

void StaticTextEditControlEMFSpecialPages::CreateControl(platform::View* view,
                                                         const ConstraintRecord* constrain,
                                                         const AccessInfo* accessInfo,
                                                         std::string_view usernamein,
                                                         const char* summaryInfo) {
    CreateControl(view);
    ctrlConstrainControlArray = constrain;
    ctrlDataAccessInfoPtr = accessInfo;
    userNameinPreference = usernamein;
    summarytextRef = summaryInfo;
}

bool StaticTextEditControlEMFSpecialPages::InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    return BaseControlEMFSpecialPages::InitializeCtrl(bundle, withPPD) && InitializeTitle(bundle);
}

bool StaticTextEditControlEMFSpecialPages::ReInitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    return BaseControlEMFSpecialPages::ReInitializeCtrl(bundle, withPPD) && InitializeTitle(bundle);
}

bool StaticTextEditControlEMFSpecialPages::InitializeTitle(platform::Bundle* bundle) {
    if (bundle == nullptr) {
        return true;
    }
    return summarytextRef != nullptr && showText(localized(*bundle, summarytextRef, kNoTranslation));
}

bool StaticTextEditControlEMFSpecialPages::SetExternalValueToUI(const ControlValue& value, std::uint32_t) {
    const auto* text = std::get_if<std::string>(&value);
    return text != nullptr && showText(*text);
}

bool StaticTextEditControlEMFSpecialPages::showText(std::string text) {
    auto* view = dynamic_cast<platform::TextField*>(ControlPtr);
    if (view == nullptr) {
        return false;
    }
    view->setStringValue(std::move(text));
    return true;
}

void StaticTextEditControlEMFSpecialPages::setViewEnabled(bool enabled) {
    BaseControlEMFSpecialPages::setViewEnabled(enabled);
    if (auto* view = dynamic_cast<platform::TextField*>(ControlPtr)) {
        view->setTextColor(enabled ? platform::TextColor::controlTextColor
                                   : platform::TextColor::lightGrayColor);
    }
}

void VersionStringSTextEMFSpecialPages::CreateControl(platform::View* view, const char* withTitle,
                                                      bool CDFSupport) {
    CreateControl(view, nullptr, nullptr, {}, withTitle);
    IsCDFSupported = CDFSupport;
}

bool VersionStringSTextEMFSpecialPages::InitializeCtrl(platform::Bundle*, ppd_file_s*) {
    if (ControlPtr != nullptr) {
        ControlPtr->setHidden(true);
    }
    return true;
}

bool VersionStringSTextEMFSpecialPages::InitializeTitle(platform::Bundle* bundle) {
    const auto version =
        bundle == nullptr ? std::nullopt : bundle->objectForInfoDictionaryKey("CFBundleVersion");
    return version &&
           showText("Ver." + platform::replace_all(*version, " Build ", ".") + (IsCDFSupported ? "" : "."));
}

void VersionStringSTextEMFSpecialPages::ResetStatus() {
    StaticTextEditControlEMFSpecialPages::ResetStatus();
    if (system_version() < kVersionWithoutPreferences && ControlPtr != nullptr) {
        ControlPtr->setHidden(true);
    }
}

} // namespace specialpages
