#include "support/settings_access.h"

#include "platform/foundation/log.h"
#include "platform/foundation/numbers.h"
#include "platform/foundation/system_version.h"
#include "platform/foundation/text.h"
#include "support/leading_number.h"

#include <array>
#include <charconv>
#include <cstring>

namespace specialpages {

namespace {

constexpr std::string_view kFullwidthBrokenBar = "\xEF\xBF\xA4"; // U+FFE4

/// How much of the kernel release is looked at, in bytes.
constexpr std::size_t kMaxReleaseBytes = 15;

/// The version before anything is known of the release.
constexpr std::int32_t kVersionBase = 0x1000;

std::optional<std::int32_t>& cached_version() {
    static std::optional<std::int32_t> osVersion;
    return osVersion;
}

/// Kernel release "k.m" as a system version: four kernels behind k in the middle digits, m in the last.
std::int32_t version_of_release(std::string_view release) {
    release = release.substr(0, kMaxReleaseBytes);
    const std::size_t point = release.find('.');
    const std::int64_t kernel = leading_integer(release.substr(0, point)).value;
    const std::int64_t minor =
        point == std::string_view::npos ? 0 : leading_integer(release.substr(point + 1)).value;
    std::int32_t version = kVersionBase;
    if (kernel > 0) {
        version += static_cast<std::int32_t>((static_cast<std::uint64_t>(kernel) * 16 + 4032) & 4080);
    }
    if (minor > 0) {
        version += static_cast<std::int32_t>(minor & 15);
    }
    return version;
}

std::string hexadecimal(std::uint32_t value) {
    std::array<char, 8> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16);
    return {digits.data(), end};
}

} // namespace

platform::OSStatus SetValueToSettingsWithTicketKeyAndLock(std::optional<std::string_view> text,
                                                          platform::PrintSettings* settings,
                                                          std::optional<std::string_view> key, bool lock) {
    if (!text || settings == nullptr || !key || key->empty()) {
        return platform::paramErr;
    }
    const auto units = platform::utf16_length(*text);
    if (!units || *units > kMaxTicketUnits) {
        return platform::memFullErr;
    }
    return platform::PMPrintSettingsSetValue(settings, *key,
                                             platform::replace_all(*text, kFullwidthBrokenBar, "|"), lock);
}

bool SetCStringToTicket(platform::PrintSettings* settings, std::string_view text,
                        std::optional<std::string_view> key, bool lock) {
    if (text.size() > kMaxCStringTicketBytes || !platform::is_valid_utf8(text)) {
        text = {};
    }
    return SetValueToSettingsWithTicketKeyAndLock(text, settings, key, lock) == platform::noErr;
}

platform::OSStatus SetIntegerValueToSettings(std::int32_t value, platform::PrintSettings* settings,
                                             std::optional<std::string_view> key, bool lock) {
    return SetValueToSettingsWithTicketKeyAndLock(platform::decimal_text(value), settings, key, lock);
}

bool CreateKeyWithCurrentPrinter(std::optional<std::string_view> key, std::optional<std::string_view> printer,
                                 std::string* result) {
    if (!key || !printer || result == nullptr) {
        return false;
    }
    result->append(*printer).append(*key);
    return true;
}

std::int32_t SetPrinterString(const platform::PrintSession* session, std::string* string) {
    const platform::Printer* printer = nullptr;
    if (string == nullptr || platform::PMSessionGetCurrentPrinter(session, printer) != platform::noErr) {
        return 1;
    }
    string->append(platform::PMPrinterGetID(*printer));
    return 0;
}

platform::OSStatus GetTicketFromSession(const platform::PrintSession* session, std::string_view key,
                                        std::int32_t* result) {
    if (result == nullptr) {
        return platform::paramErr;
    }
    const platform::SessionData* data = nullptr;
    if (platform::PMSessionGetDataFromSession(session, key, data) != platform::noErr) {
        return platform::kPMNoSessionData;
    }
    const auto* number = std::get_if<std::int64_t>(data);
    if (number == nullptr) {
        return platform::kPMNoSessionData;
    }
    *result = static_cast<std::int32_t>(*number);
    return platform::noErr;
}

platform::OSStatus GetPPDRefFromSession(const platform::PrintSession* session, ppd_file_s** result) {
    if (result == nullptr) {
        return platform::paramErr;
    }
    *result = nullptr;
    const platform::SessionData* data = nullptr;
    const platform::OSStatus status = platform::PMSessionGetDataFromSession(session, "kPMPPDReference", data);
    if (status != platform::noErr) {
        return status;
    }
    std::uint32_t bits = 0;
    if (const auto* number = std::get_if<std::int64_t>(data)) {
        bits = static_cast<std::uint32_t>(*number);
    } else if (const auto& bytes = std::get<std::vector<std::byte>>(*data); bytes.size() >= sizeof bits) {
        std::memcpy(&bits, bytes.data(), sizeof bits);
    }
    // The session holds an address as a number; that is its form. NOLINTNEXTLINE(performance-no-int-to-ptr)
    *result = reinterpret_cast<ppd_file_s*>(static_cast<std::uintptr_t>(bits));
    return status;
}

std::int32_t system_version() {
    std::optional<std::int32_t>& version = cached_version();
    if (!version) {
        version = version_of_release(platform::kernel_release().value_or(std::string{}));
    }
    return *version;
}

void ResetGestalt_ALT() {
    cached_version().reset();
}

std::int32_t Gestalt_ALT(std::uint32_t selector, std::int32_t* out) {
    if (out == nullptr) {
        platform::NSLog("Gestalt_ALT : no place for the answer to selector '" + hexadecimal(selector) + "'.");
        return -1;
    }
    const std::int32_t version = system_version();
    switch (selector) {
    case kGestaltSystemVersion:
        *out = version;
        return 0;
    case kGestaltSystemVersionMajor:
        *out = ((version >> 12) & 15) * 10 + ((version >> 8) & 15);
        return 0;
    case kGestaltSystemVersionMinor:
        *out = (version >> 4) & 15;
        return 0;
    case kGestaltSystemVersionBugFix:
        *out = version & 15;
        return 0;
    default:
        platform::NSLog("Gestalt_ALT : selector '" + hexadecimal(selector) + "' not supported.");
        return -1;
    }
}

} // namespace specialpages
