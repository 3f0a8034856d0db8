// Protection of secret texts: the storage form (AES-256-CBC under a key that an HMAC derives) and the
// transport blob, in which a random key is wrapped with a device's public key. Every function answers a
// status and leaves its output length alone on failure; what failed is logged by step, never with anything
// secret.
//
// The primitives are the platform's (platform/services/cryptography.h).
#pragma once

#include "platform/services/cryptography.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>

namespace specialpages {

using platform::Bytes;
using platform::ByteView;

inline constexpr std::int32_t kSecBlobEncBadParameter = 2;
inline constexpr std::int32_t kSecBlobEncFailure = 99;

/// The only AES mode: CBC with PKCS #7 padding.
inline constexpr std::int32_t kAESModeCBC = 1;

/// Fills `out` with random bytes. kSecBlobEncFailure: the source failed.
std::int32_t SecBlobEncInternal_GenerateRandom(std::span<std::uint8_t> out);
std::int32_t Generate_Random(std::span<std::uint8_t> out);

/// HMAC-SHA-256. 0; kSecBlobEncFailure only should the library itself fail.
std::int32_t SecBlobEncInternal_GenerateHMAC(ByteView key, ByteView data,
                                             std::span<std::uint8_t, platform::kSHA256Bytes> out);

/// The bytes of a Base64 text; null for any error and for an empty result.
std::optional<Bytes> SecBlobEnc_Decode_Key(std::string_view base64);

/// RSAES-OAEP with SHA-256 under a Base64 public key (DER, either form that the platform reads; its size is
/// its own modulus's). `out` is the capacity. kSecBlobEncFailure: no such key, too much data, no room.
std::int32_t SecBlobEncInternal_RSAEncrypt(std::string_view publicKey, ByteView data,
                                           std::span<std::uint8_t> out, std::uint32_t& outLength);

/// AES of 16, 24 or 32 bytes of key. `out` is the capacity. kSecBlobEncBadParameter: another mode than
/// kAESModeCBC; kSecBlobEncFailure: wrong key or vector length, damaged cipher text, no room.
std::int32_t SecBlobEncInternal_AESEncrypt(std::int32_t mode, ByteView key, ByteView iv, ByteView in,
                                           std::span<std::uint8_t> out, std::uint32_t& outLength);
std::int32_t SecBlobEncInternal_AESDecrypt(std::int32_t mode, ByteView key, ByteView iv, ByteView in,
                                           std::span<std::uint8_t> out, std::uint32_t& outLength);

/// The storage form: the HMAC of `hmacData` under `hmacKey` is the AES key. `out` is the capacity.
/// kSecBlobEncFailure for every failure.
std::int32_t SecBlobEnc_DataStorage_Encrypt(ByteView in, ByteView hmacKey, ByteView hmacData, ByteView iv,
                                            std::span<std::uint8_t> out, std::uint32_t& outLength);
std::int32_t SecBlobEnc_DataStorage_Decrypt(ByteView in, ByteView hmacKey, ByteView hmacData, ByteView iv,
                                            std::span<std::uint8_t> out, std::uint32_t& outLength);
std::int32_t Encode_Storage(ByteView in, ByteView hmacKey, ByteView hmacData, ByteView iv,
                            std::span<std::uint8_t> out, std::uint32_t& outLength);
std::int32_t Decode_Storage(ByteView in, ByteView hmacKey, ByteView hmacData, ByteView iv,
                            std::span<std::uint8_t> out, std::uint32_t& outLength);

/// Layout of a transport blob; integers are little-endian. After the fixed part come the wrapped key (as long
/// as the RSA modulus), the initialisation vector (16 bytes), no tag in kAESModeCBC, and the cipher text.
namespace blob {
inline constexpr std::uint8_t kFirstMarker = 8;
inline constexpr std::uint8_t kSecondMarker = 1;
inline constexpr std::size_t kCipherLengthAt = 2; ///< 4 bytes
inline constexpr std::size_t kTotalLengthAt = 6;  ///< 4 bytes
inline constexpr std::size_t kAESModeAt = 10;
inline constexpr std::size_t kKeyTypeAt = 11;
inline constexpr std::size_t kReservedAt = 12;    ///< 4 bytes, zero
inline constexpr std::size_t kFingerprintAt = 16; ///< 32 bytes, SHA-256 of the public key's DER
inline constexpr std::size_t kSaltAt = 48;        ///< 32 bytes, message of the key derivation
inline constexpr std::size_t kWrappedKeyAt = 80;
} // namespace blob

/// Most bytes that a blob takes.
inline constexpr std::size_t kMaxBlobDataBytes = 99500;
/// Most bytes of a wrapped key: RSA of 4096 bits.
inline constexpr std::size_t kMaxWrappedKeyBytes = 512;
/// Room that holds every blob of `dataBytes` bytes.
constexpr std::size_t blob_room(std::size_t dataBytes) {
    constexpr std::size_t kVectorAndTag = 32;
    return blob::kWrappedKeyAt + kMaxWrappedKeyBytes + kVectorAndTag + dataBytes + platform::kAESBlockBytes;
}

/// Makes a blob: a random content key, wrapped with `publicKey` (Base64 of DER); the HMAC of a random salt
/// under it is the AES key of the data. The key type (0: 2048 bits, 1: 3072 bits) chooses the fingerprint
/// that is written, whatever the given key is. kSecBlobEncBadParameter: more than kMaxBlobDataBytes, another
/// key type, or an `out` without room for the whole blob; kSecBlobEncFailure: a step failed, as the AES step
/// does for any mode but kAESModeCBC.
std::int32_t SecBlobEnc_KT_Encrypt(std::int32_t mode, std::int32_t keyType, ByteView data,
                                   std::string_view publicKey, std::span<std::uint8_t> out,
                                   std::uint32_t& outLength);

/// The blob for the devices' 2048-bit key.
std::int32_t Encode_Random(ByteView data, std::span<std::uint8_t> out, std::uint32_t& outLength);

/// Writes the bytes to a new file, or over an old one. One that can't be opened is logged.
void outputData(ByteView data, const std::filesystem::path& path);

} // namespace specialpages
