// Cryptography, on OpenSSL's libcrypto: a random source, HMAC-SHA-256 (RFC 2104, FIPS 180-4), AES in CBC mode
// with PKCS #7 padding (FIPS 197, NIST SP 800-38A, RFC 5652 section 6.3), RSAES-OAEP with SHA-256 (RFC 8017)
// and Base64 (RFC 4648). Nothing here logs, and no error text holds anything of a key or of a secret text.
#pragma once

#include "platform/export.h"
#include "platform/status.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages::platform {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

/// The bytes of a text, unchanged.
inline ByteView bytes_of(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// Overwrites bytes that held a secret; no optimisation leaves it out.
SPECIALPAGES_PLATFORM_API void wipe(std::span<std::uint8_t> bytes);
/// Overwrites and empties a text that held a secret.
SPECIALPAGES_PLATFORM_API void wipe(std::string& text);

/// Bytes that are overwritten when they go.
template <std::size_t Size>
class SecretArray {
  public:
    SecretArray() = default;
    SecretArray(const SecretArray&) = delete;
    SecretArray& operator=(const SecretArray&) = delete;
    ~SecretArray() { wipe(bytes_); }
    std::span<std::uint8_t, Size> bytes() { return bytes_; }

  private:
    std::array<std::uint8_t, Size> bytes_{};
};

/// A cipher text is damaged: no whole blocks, or a padding that no encryption makes.
inline constexpr OSStatus kCipherTextErr = -25;
/// The library refused for a reason of its own.
inline constexpr OSStatus kCryptoErr = -26;

/// Fills `bytes` from the system's secure random source. 0, or kCryptoErr with the bytes not to be used.
SPECIALPAGES_PLATFORM_API OSStatus SecRandomCopyBytes(std::span<std::uint8_t> bytes);
/// Puts another source in its place, for tests; null brings the system's back.
using RandomSource = std::function<OSStatus(std::span<std::uint8_t> bytes)>;
SPECIALPAGES_PLATFORM_API void setRandomSource(RandomSource source);

inline constexpr std::size_t kSHA256Bytes = 32;

/// HMAC-SHA-256 of `data`; key and data may be empty. 0 or kCryptoErr.
SPECIALPAGES_PLATFORM_API OSStatus CCHmac(ByteView key, ByteView data,
                                          std::span<std::uint8_t, kSHA256Bytes> mac);

/// SHA-256 of `data`; all zero should the library fail.
SPECIALPAGES_PLATFORM_API std::array<std::uint8_t, kSHA256Bytes> sha256(ByteView data);

inline constexpr std::size_t kAESBlockBytes = 16;
enum class CCOperation { encrypt, decrypt };

/// AES-CBC with PKCS #7 padding. The key's length says which AES: 16, 24 or 32 bytes. Of the initialisation
/// vector the first 16 bytes count. `moved` becomes the number of bytes written. paramErr: a key of another
/// length or a shorter vector; memFullErr: the result does not fit `out`; kCipherTextErr: damaged cipher
/// text. Nothing is written on failure.
SPECIALPAGES_PLATFORM_API OSStatus CCCrypt(CCOperation operation, ByteView key, ByteView iv, ByteView in,
                                           std::span<std::uint8_t> out, std::size_t& moved);

/// Why a key was refused: the library's number, and its words in English.
struct CryptoError {
    std::int32_t code = 0;
    std::string description;
};

/// RSAES-OAEP with SHA-256 (for the label, which is empty, and for MGF1) under a public RSA key in DER: an
/// X.509 SubjectPublicKeyInfo or a PKCS #1 RSAPublicKey, and nothing after it. Null, and `error` says why,
/// for what is no such key and for a text that is too long for the key (more than its bytes less 66).
SPECIALPAGES_PLATFORM_API std::optional<Bytes> SecKeyCreateEncryptedData(ByteView publicKey, ByteView plain,
                                                                         CryptoError& error);

/// Base64 text of `data`, padded, without line breaks.
SPECIALPAGES_PLATFORM_API std::string base64_text(ByteView data);
/// The bytes of a Base64 text; blanks and line ends between the characters are skipped. Null for any other
/// character outside of the alphabet, for missing or surplus padding and for characters after it.
SPECIALPAGES_PLATFORM_API std::optional<Bytes> base64_bytes(std::string_view text);

} // namespace specialpages::platform
