// What the transfer of control values to preferences and tickets needs of others: who is an administrator,
// and the cipher of the keys that hold passwords. The pane's module sets both; without them nothing secret is
// written.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace specialpages {

/// Preference keys whose values are stored enciphered.
inline constexpr std::array<std::string_view, 8> kJBApasswordStr{
    "com.norvalen.nb.rtz.printsettings.PrintTypePasswordReference",
    "com.norvalen.nb.rtz.printsettings.PrintTypeMBNPasswordReference",
    "com.norvalen.nb.rtz.printsettings.JBAUserPasswordTextEditReference",
    "com.norvalen.nb.rtz.printsettings.JBAStoragePasswordTextEditReference",
    "com.norvalen.nb.rtz.printsettings.JBAAdminUserPasswordTextEditReference",
    "com.norvalen.nb.rtz.printsettings.JBAAdminStoragePasswordTextEditReference",
    "com.norvalen.nb.rtz.printsettings.JBAInputUserPasswordTextEditReference",
    "com.norvalen.nb.rtz.printsettings.JBAInputStoragePasswordTextEditReference",
};

/// Result of one direction of the cipher: status 0 and the text, or the cipher's status.
struct CipherResult {
    std::int32_t status = 0;
    std::string text;
};

struct ValueTransferServices {
    /// Whether the user may write preferences that are not the user's own. Null: no.
    std::function<bool()> isUserAdmin;
    /// Plain text to the Base64 storage form (at most 255 characters), and back. Null: the transfer fails.
    std::function<CipherResult(std::string_view plain)> encipher;
    std::function<CipherResult(std::string_view stored)> decipher;
};

ValueTransferServices& valueTransferServices();

} // namespace specialpages
