#include "host/remembered_settings.h"

#include "host/HostError.h"
#include "host/settings_file.h"
#include "platform/foundation/atomic_file.h"

#include <system_error>

namespace specialpages::host {

namespace {

namespace fs = std::filesystem;

bool stays(char c, bool first) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
           (c == '.' && !first) || static_cast<unsigned char>(c) >= 0x80;
}

/// Empty when the printer has no file, whatever is asked of it.
fs::path file_of(std::string_view printer) {
    const auto name = remembered_settings_name(printer);
    return name ? remembered_settings_directory() / *name : fs::path();
}

/// Whether something, be it a link to nowhere, has the file's name. HostError when nobody can tell.
bool is_there(const fs::path& file) {
    std::error_code failure;
    const fs::file_status status = fs::symlink_status(file, failure);
    if (status.type() == fs::file_type::none) {
        throw HostError(ErrorCode::other, file.string(), "cannot be looked at: " + failure.message());
    }
    return status.type() != fs::file_type::not_found;
}

/// HostError (input) when something is there that is no settings file.
void check_own(const fs::path& file) {
    if (is_there(file)) {
        read_settings_file(file);
    }
}

} // namespace

fs::path remembered_settings_directory() {
    return platform::state_directory() / "printers";
}

std::optional<std::string> remembered_settings_name(std::string_view printer) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string name;
    for (const char c : printer) {
        if (stays(c, name.empty())) {
            name += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            name += {'_', kDigits[byte / 16U], kDigits[byte % 16U]};
        }
    }
    name += ".json";
    if (printer.empty() || name.size() > kMaxFileNameBytes) {
        return std::nullopt;
    }
    return name;
}

std::optional<platform::PrintSettings> recall_settings(std::string_view printer) {
    const fs::path file = file_of(printer);
    if (file.empty() || !is_there(file)) {
        return std::nullopt;
    }
    return read_settings_file(file);
}

void remember_settings(std::string_view printer, const platform::PrintSettings& settings) {
    const fs::path file = file_of(printer);
    if (file.empty()) {
        throw HostError(ErrorCode::other, std::string(printer),
                        "expected a printer's name that can be the name of a file");
    }
    check_own(file);
    write_settings_file(file, settings);
}

void forget_settings(std::string_view printer) {
    const fs::path file = file_of(printer);
    if (file.empty()) {
        return;
    }
    check_own(file);
    std::error_code failure;
    fs::remove(file, failure);
    if (failure) {
        throw HostError(ErrorCode::other, file.string(), "cannot be removed: " + failure.message());
    }
}

} // namespace specialpages::host
