// What the transfer of control values to preferences and tickets needs of others: who is an administrator,
// and the cipher of the keys that hold passwords. Both are there from the start and can be put aside; without
// them nothing secret is written.
#pragma once

#include "support/stored_password.h"

#include <array>
#include <cstddef>
#include <functional>
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

struct ValueTransferServices {
    /// Whether the user may write preferences that are not the user's own: IsUserAdmin. Null: no.
    std::function<bool()> isUserAdmin;
    /// Plain text to the stored form with a cipher of that capacity, and back: encipher_password and
    /// decipher_password. Null: the transfer fails.
    std::function<CipherResult(std::string_view plain, std::size_t capacity)> encipher;
    std::function<CipherResult(std::string_view stored)> decipher;
};

/// The services in use, initially the real ones.
ValueTransferServices& valueTransferServices();

} // namespace specialpages
