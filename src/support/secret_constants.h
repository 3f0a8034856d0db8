// The constant material of password values and of blobs. All of it is this system's own, drawn once from a
// secure random source; changing any of it makes stored passwords unreadable. What is compiled in is no
// secret to whoever has the program: docs/security.md says what that means.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace specialpages {

/// The storage form's HMAC key, HMAC message and initialisation vector.
extern const std::array<std::uint8_t, 32> seed1;
extern const std::array<std::uint8_t, 32> seed2;
extern const std::array<std::uint8_t, 16> seed3;

/// What NSPEncrypt combines with its input.
extern const std::array<std::uint8_t, 4> kNSPEncryptTag;

/// The devices' public keys, inputs of the build: Base64 of an X.509 SubjectPublicKeyInfo in DER (RFC 5280),
/// without line breaks.
std::string_view RSA_PUBKEY_2048_OFFICIAL();
std::string_view RSA_PUBKEY_3072_OFFICIAL();

/// By which a device finds its key: the SHA-256 of that DER.
const std::array<std::uint8_t, 32>& pubkey2048_OFFICIAL_SHA256();
const std::array<std::uint8_t, 32>& pubkey3072_OFFICIAL_SHA256();

} // namespace specialpages
