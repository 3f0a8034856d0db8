// How a control's password stands in a ticket or a preference: the Base64 text of its storage form, under
// this system's own seeds. It keeps a password from being read in passing, and no more (docs/security.md).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace specialpages {

/// Result of one direction of the cipher.
struct CipherResult {
    /// 0, or why the cipher or the reading of Base64 failed.
    std::int32_t status = 0;
    /// The text. Null with status 0: enciphered, but its Base64 text is too long to be stored, of which
    /// nothing is logged.
    std::optional<std::string> text;
};

/// Capacities of the cipher: a ticket's and a preference's.
inline constexpr std::size_t kTicketCipherBytes = 256;
inline constexpr std::size_t kPreferenceCipherBytes = 255;
/// Longest Base64 text that is stored.
inline constexpr std::size_t kMaxStoredPasswordBytes = 255;

/// As many bytes of `plain` are enciphered as it has columns (GetUTF8StringLength), so that a text beyond
/// ASCII loses its end: "é" leaves its first byte. An empty text stays empty. kSecBlobEncFailure when the
/// cipher text passes `capacity` bytes; kSecBlobEncBadParameter for ill-formed UTF-8, which has no columns.
CipherResult encipher_password(std::string_view plain, std::size_t capacity);

/// The text that was enciphered, up to its first zero byte; it need not be whole characters. The status of
/// NSPB64ToBin (kNSPBadLength for an empty text and for one past kMaxStoredPasswordBytes) or of
/// Decode_Storage on failure.
CipherResult decipher_password(std::string_view stored);

} // namespace specialpages
