#include "controls/value_transfer.h"

#include "controls/BaseControlEMFSpecialPages.h"
#include "controls/ControlPanel.h"
#include "platform/foundation/log.h"
#include "platform/foundation/numbers.h"
#include "platform/foundation/preferences.h"
#include "platform/print/PrintSettings.h"
#include "platform/services/cryptography.h"
#include "platform/toolkit/View.h"
#include "support/settings_access.h"
#include "support/slash_decimal.h"
#include "support/units.h"
#include "support/user_service.h"

#include <algorithm>
#include <utility>

namespace specialpages {

namespace {

/// Longest text that a preference gives back, in bytes.
constexpr std::size_t kMaxPreferenceBytes = 255;
/// Status of a cipher that is not there, for the log.
constexpr std::int32_t kNoCipher = -1;

bool holdsPassword(std::string_view key) {
    return std::find(kJBApasswordStr.begin(), kJBApasswordStr.end(), key) != kJBApasswordStr.end();
}

/// Replaces the text by its stored form; the plain one is overwritten. False when that failed, with a log
/// line for a cipher that failed and none for a form that is too long.
bool encipher(std::string& text, std::size_t capacity, const char* complaint) {
    const auto& cipher = valueTransferServices().encipher;
    CipherResult result = cipher ? cipher(text, capacity) : CipherResult{kNoCipher, std::nullopt};
    platform::wipe(text);
    if (result.status != 0) {
        platform::NSLog(complaint + platform::decimal_text(result.status) + " ");
        return false;
    }
    if (!result.text) {
        return false;
    }
    text = std::move(*result.text);
    return true;
}

CipherResult decipher(std::string_view stored) {
    const auto& cipher = valueTransferServices().decipher;
    return cipher ? cipher(stored) : CipherResult{kNoCipher, std::nullopt};
}

bool hasKey(const char* key) {
    return key != nullptr && *key != '\0';
}

} // namespace

ValueTransferServices& valueTransferServices() {
    static ValueTransferServices services{IsUserAdmin, encipher_password, decipher_password};
    return services;
}

bool BaseControlEMFSpecialPages::ConvertToPreferenceString(std::string&) {
    return true;
}

bool BaseControlEMFSpecialPages::ConvertFromPreferenceString(std::string_view) {
    return true;
}

bool BaseControlEMFSpecialPages::ConvertToTickectData(std::string&) {
    return true;
}

bool BaseControlEMFSpecialPages::SetValueToTicket(platform::PrintSettings* settings, bool withParam) {
    if (ctrlDataAccessInfoPtr == nullptr || !hasKey(ctrlDataAccessInfoPtr->ticketKey)) {
        return false;
    }
    std::string text;
    if (!ConvertToTickectData(text)) {
        return false;
    }
    // Asking for null output empties a plain value only: an escaped one is written all the same.
    if (needs_slash_decimal(text)) {
        text = encode_slash_decimal(text);
    } else if (IsOutputNullToTicket()) {
        text.clear();
    }
    return SetValueToSettingsWithTicketKeyAndLock(text, settings, ctrlDataAccessInfoPtr->ticketKey,
                                                  withParam) == platform::noErr;
}

bool BaseControlEMFSpecialPages::SetValueToTicket(platform::PrintSettings* settings, bool withParam,
                                                  std::span<platform::View* const> encryptArray) {
    const bool enciphered =
        ControlPtr != nullptr &&
        std::any_of(encryptArray.begin(), encryptArray.end(), [this](const platform::View* view) {
            return view != nullptr && view->tag() == ControlPtr->tag();
        });
    return enciphered ? SetValueToTicketWithNSPEnc(settings, withParam)
                      : SetValueToTicket(settings, withParam);
}

bool BaseControlEMFSpecialPages::SetValueToTicketWithNSPEnc(platform::PrintSettings* settings,
                                                            bool withParam) {
    if (ctrlDataAccessInfoPtr == nullptr || !hasKey(ctrlDataAccessInfoPtr->ticketKey)) {
        return false;
    }
    std::string text;
    if (!ConvertToTickectData(text)) {
        return false;
    }
    // What has no columns is empty, or ill-formed and refused by the write.
    if (GetUTF8StringLength(text) != 0 &&
        !encipher(text, kTicketCipherBytes, "##Plugin debug## SetValueToTicketWithNSPEnc encode fail: ")) {
        return false;
    }
    if (IsOutputNullToTicket()) {
        text.clear();
    }
    return SetValueToSettingsWithTicketKeyAndLock(text, settings, ctrlDataAccessInfoPtr->ticketKey,
                                                  withParam) == platform::noErr;
}

std::optional<bool> BaseControlEMFSpecialPages::textForPreference(std::string& text) {
    if (ctrlDataAccessInfoPtr == nullptr || !hasKey(ctrlDataAccessInfoPtr->preferenceKey)) {
        return true;
    }
    if (!ctrlDataBlkPtr) {
        return false;
    }
    const auto& isUserAdmin = valueTransferServices().isUserAdmin;
    if (userNameinPreference != platform::kCFPreferencesCurrentUser && !(isUserAdmin && isUserAdmin())) {
        return true;
    }
    return ConvertToPreferenceString(text) ? std::nullopt : std::optional(false);
}

bool BaseControlEMFSpecialPages::makePrinterPreferenceKey(std::string& key) const {
    return ctrlParentPanelPtr != nullptr &&
           CreateKeyWithCurrentPrinter(ctrlDataAccessInfoPtr->preferenceKey,
                                       ctrlParentPanelPtr->GetCurrentPrinterString(), &key);
}

bool BaseControlEMFSpecialPages::SetValueToPreference() {
    std::string text;
    if (const auto answer = textForPreference(text)) {
        return *answer;
    }
    std::string key;
    if (!makePrinterPreferenceKey(key)) {
        return false;
    }
    if (system_version() >= kVersionWithoutPreferences) {
        return true;
    }
    platform::CFPreferencesSetValue(key, text, platform::kCFPreferencesAnyApplication, userNameinPreference,
                                    platform::kCFPreferencesCurrentHost);
    return platform::CFPreferencesSynchronize(platform::kCFPreferencesAnyApplication, userNameinPreference,
                                              platform::kCFPreferencesCurrentHost);
}

bool BaseControlEMFSpecialPages::GetValueFromPreference() {
    if (ctrlDataAccessInfoPtr == nullptr || !hasKey(ctrlDataAccessInfoPtr->preferenceKey)) {
        return true;
    }
    std::string key;
    if (!ctrlDataBlkPtr || !makePrinterPreferenceKey(key) || system_version() >= kVersionWithoutPreferences) {
        return false;
    }
    const auto text =
        platform::CFPreferencesCopyValue(key, platform::kCFPreferencesAnyApplication, userNameinPreference,
                                         platform::kCFPreferencesCurrentHost);
    return text && text->size() <= kMaxPreferenceBytes && ConvertFromPreferenceString(*text);
}

bool BaseControlEMFSpecialPages::SetValueToPreferenceWithPrinterSettings() {
    std::string text;
    if (const auto answer = textForPreference(text)) {
        return *answer;
    }
    if (holdsPassword(ctrlDataAccessInfoPtr->preferenceKey) && !text.empty() &&
        !encipher(text, kPreferenceCipherBytes, "##JBA debug##  SetValueToPreference encode fail: ")) {
        return false;
    }
    platform::PrintSettings* settings =
        ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->GetCurrentPMPrintSettings();
    return settings == nullptr ||
           platform::PMPrintSettingsSetValue(settings, ctrlDataAccessInfoPtr->preferenceKey, text, false) ==
               platform::noErr;
}

bool BaseControlEMFSpecialPages::GetValueFromPreferenceWithPrinterSettings() {
    if (ctrlDataAccessInfoPtr == nullptr || !hasKey(ctrlDataAccessInfoPtr->preferenceKey)) {
        return true;
    }
    if (!ctrlDataBlkPtr || ctrlParentPanelPtr == nullptr) {
        return false;
    }
    platform::SettingsValue value;
    if (platform::PMPrintSettingsGetValue(ctrlParentPanelPtr->GetCurrentPMPrintSettings(),
                                          ctrlDataAccessInfoPtr->preferenceKey, value) != platform::noErr) {
        return false;
    }
    const auto* text = std::get_if<std::string>(&value);
    if (text == nullptr || text->size() > kMaxPreferenceBytes) {
        return false;
    }
    if (!holdsPassword(ctrlDataAccessInfoPtr->preferenceKey)) {
        return ConvertFromPreferenceString(*text);
    }
    CipherResult result = decipher(*text);
    if (result.status != 0) {
        platform::NSLog("##JBA debug## GetValueFromPreference encode fail: " +
                        platform::decimal_text(result.status) + " ");
        return false;
    }
    if (!result.text) {
        return false;
    }
    const bool converted = ConvertFromPreferenceString(*result.text);
    platform::wipe(*result.text);
    return converted;
}

} // namespace specialpages
