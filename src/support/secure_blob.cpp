#include "support/secure_blob.h"

#include "platform/foundation/log.h"
#include "platform/foundation/numbers.h"
#include "platform/foundation/text.h"
#include "support/secret_constants.h"

#include <algorithm>
#include <fstream>
#include <string>

namespace specialpages {

namespace {

using platform::CCOperation;
using platform::decimal_text;
using platform::kSHA256Bytes;
using platform::NSLog;
using platform::SecretArray;

/// Longest description of a refused key, in bytes.
constexpr std::size_t kMaxDescriptionBytes = 511;
constexpr std::size_t kSaltBytes = 32;

/// The numbers that name a step in the log.
enum Step : std::int32_t {
    storageEncryptKey = 39,
    storageEncrypt = 52,
    storageDecryptKey = 84,
    blobLength = 88,
    storageDecrypt = 97,
    blobKeyType = 106,
    blobContentKey = 114,
    blobSalt = 122,
    blobDerivation = 131,
    blobVector = 139,
    blobWrap = 150,
    blobEncrypt = 161,
};

void log_step(Step step, const std::string& what, std::int64_t number) {
    NSLog("ERROR[" + decimal_text(step) + "]: " + what + "[" + decimal_text(number) + "].\n");
}

/// kSecBlobEncFailure, and a log line, for a step that failed; else 0.
std::int32_t outcome(Step step, const char* what, std::int32_t status) {
    if (status == 0) {
        return 0;
    }
    log_step(step, std::string(what) + " failed", status);
    return kSecBlobEncFailure;
}

std::int32_t run_aes(CCOperation operation, std::int32_t mode, ByteView key, ByteView iv, ByteView in,
                     std::span<std::uint8_t> out, std::uint32_t& outLength) {
    if (mode != kAESModeCBC) {
        NSLog("AES Error. Unsupported AES Mode.");
        return kSecBlobEncBadParameter;
    }
    std::size_t moved = 0;
    const platform::OSStatus status = platform::CCCrypt(operation, key, iv, in, out, moved);
    if (status != platform::noErr) {
        NSLog("AES Error[" + decimal_text(status) + "]\n");
        return kSecBlobEncFailure;
    }
    outLength = static_cast<std::uint32_t>(moved);
    return 0;
}

void put_little_endian(std::span<std::uint8_t> at, std::size_t value) {
    for (std::size_t i = 0; i < 4; ++i) {
        at[i] = static_cast<std::uint8_t>(value >> (8 * i) & 255U);
    }
}

/// The parts of a blob that are not the same in all.
struct BlobParts {
    std::int32_t mode = 0;
    std::int32_t keyType = 0;
    ByteView fingerprint;
    std::array<std::uint8_t, kSaltBytes> salt{};
    Bytes wrappedKey;
    Bytes vector;
    Bytes ciphertext;
};

/// The blob as it is laid out; its tag is empty.
Bytes lay_out(const BlobParts& parts) {
    Bytes bytes(blob::kWrappedKeyAt);
    const std::span<std::uint8_t> head(bytes);
    bytes[0] = blob::kFirstMarker;
    bytes[1] = blob::kSecondMarker;
    put_little_endian(head.subspan(blob::kCipherLengthAt), parts.ciphertext.size());
    put_little_endian(head.subspan(blob::kTotalLengthAt), blob::kWrappedKeyAt + parts.wrappedKey.size() +
                                                              parts.vector.size() + parts.ciphertext.size());
    bytes[blob::kAESModeAt] = static_cast<std::uint8_t>(parts.mode);
    bytes[blob::kKeyTypeAt] = static_cast<std::uint8_t>(parts.keyType);
    std::copy(parts.fingerprint.begin(), parts.fingerprint.end(), bytes.begin() + blob::kFingerprintAt);
    std::copy(parts.salt.begin(), parts.salt.end(), bytes.begin() + blob::kSaltAt);
    for (const Bytes* part : {&parts.wrappedKey, &parts.vector, &parts.ciphertext}) {
        bytes.insert(bytes.end(), part->begin(), part->end());
    }
    return bytes;
}

ByteView fingerprint_of(std::int32_t keyType) {
    switch (keyType) {
    case 0:
        return pubkey2048_OFFICIAL_SHA256();
    case 1:
        return pubkey3072_OFFICIAL_SHA256();
    default:
        return {};
    }
}

/// Fills salt, vector, wrapped key and cipher text, in the order of the steps. 0 or kSecBlobEncFailure.
std::int32_t encrypt_parts(BlobParts& parts, ByteView data, std::string_view publicKey) {
    constexpr const char* kRandom = "generate random";
    SecretArray<kSHA256Bytes> contentKey;
    SecretArray<kSHA256Bytes> aesKey;
    constexpr std::size_t kVectorBytes = 16;
    constexpr std::size_t kShortVectorBytes = 12;
    parts.vector.resize(parts.mode != 0 ? kVectorBytes : kShortVectorBytes);
    parts.wrappedKey.resize(kMaxWrappedKeyBytes);
    parts.ciphertext.resize(data.size() + platform::kAESBlockBytes);
    std::uint32_t wrapped = 0;
    std::uint32_t encrypted = 0;

    std::int32_t status =
        outcome(blobContentKey, kRandom, SecBlobEncInternal_GenerateRandom(contentKey.bytes()));
    if (status == 0) {
        status = outcome(blobSalt, kRandom, SecBlobEncInternal_GenerateRandom(parts.salt));
    }
    if (status == 0) {
        status = outcome(blobDerivation, "Key Derivation HMAC",
                         SecBlobEncInternal_GenerateHMAC(contentKey.bytes(), parts.salt, aesKey.bytes()));
    }
    if (status == 0) {
        status = outcome(blobVector, kRandom, SecBlobEncInternal_GenerateRandom(parts.vector));
    }
    if (status == 0) {
        status =
            outcome(blobWrap, "RSA Encrypt",
                    SecBlobEncInternal_RSAEncrypt(publicKey, contentKey.bytes(), parts.wrappedKey, wrapped));
    }
    if (status == 0) {
        status = outcome(blobEncrypt, "AES Encrypt",
                         SecBlobEncInternal_AESEncrypt(parts.mode, aesKey.bytes(), parts.vector, data,
                                                       parts.ciphertext, encrypted));
    }
    parts.wrappedKey.resize(wrapped);
    parts.ciphertext.resize(encrypted);
    return status;
}

} // namespace

std::int32_t SecBlobEncInternal_GenerateRandom(std::span<std::uint8_t> out) {
    const platform::OSStatus status = platform::SecRandomCopyBytes(out);
    if (status != platform::noErr) {
        NSLog("Generate Random Error[" + decimal_text(status) + "]");
        return kSecBlobEncFailure;
    }
    return 0;
}

std::int32_t Generate_Random(std::span<std::uint8_t> out) {
    return SecBlobEncInternal_GenerateRandom(out);
}

std::int32_t SecBlobEncInternal_GenerateHMAC(ByteView key, ByteView data,
                                             std::span<std::uint8_t, kSHA256Bytes> out) {
    return platform::CCHmac(key, data, out) == platform::noErr ? 0 : kSecBlobEncFailure;
}

std::optional<Bytes> SecBlobEnc_Decode_Key(std::string_view base64) {
    auto bytes = platform::base64_bytes(base64);
    return bytes && !bytes->empty() ? std::move(bytes) : std::nullopt;
}

std::int32_t SecBlobEncInternal_RSAEncrypt(std::string_view publicKey, ByteView data,
                                           std::span<std::uint8_t> out, std::uint32_t& outLength) {
    platform::CryptoError error{platform::paramErr, "the public key is no Base64 text"};
    const auto der = SecBlobEnc_Decode_Key(publicKey);
    const auto wrapped = der ? platform::SecKeyCreateEncryptedData(*der, data, error) : std::nullopt;
    if (wrapped && wrapped->size() > out.size()) {
        error = {platform::memFullErr, "the public key is too long"};
    }
    if (!wrapped || wrapped->size() > out.size()) {
        NSLog("RSA Error[" + decimal_text(error.code) + "] " +
              std::string(platform::utf8_prefix(error.description, kMaxDescriptionBytes)));
        return kSecBlobEncFailure;
    }
    std::copy(wrapped->begin(), wrapped->end(), out.begin());
    outLength = static_cast<std::uint32_t>(wrapped->size());
    return 0;
}

std::int32_t SecBlobEncInternal_AESEncrypt(std::int32_t mode, ByteView key, ByteView iv, ByteView in,
                                           std::span<std::uint8_t> out, std::uint32_t& outLength) {
    return run_aes(CCOperation::encrypt, mode, key, iv, in, out, outLength);
}

std::int32_t SecBlobEncInternal_AESDecrypt(std::int32_t mode, ByteView key, ByteView iv, ByteView in,
                                           std::span<std::uint8_t> out, std::uint32_t& outLength) {
    return run_aes(CCOperation::decrypt, mode, key, iv, in, out, outLength);
}

std::int32_t SecBlobEnc_DataStorage_Encrypt(ByteView in, ByteView hmacKey, ByteView hmacData, ByteView iv,
                                            std::span<std::uint8_t> out, std::uint32_t& outLength) {
    SecretArray<kSHA256Bytes> key;
    const std::int32_t status = outcome(storageEncryptKey, "Key Derivation HMAC",
                                        SecBlobEncInternal_GenerateHMAC(hmacKey, hmacData, key.bytes()));
    return status != 0
               ? status
               : outcome(storageEncrypt, "AES Encrypt",
                         SecBlobEncInternal_AESEncrypt(kAESModeCBC, key.bytes(), iv, in, out, outLength));
}

std::int32_t SecBlobEnc_DataStorage_Decrypt(ByteView in, ByteView hmacKey, ByteView hmacData, ByteView iv,
                                            std::span<std::uint8_t> out, std::uint32_t& outLength) {
    SecretArray<kSHA256Bytes> key;
    const std::int32_t status = outcome(storageDecryptKey, "Key Derivation HMAC",
                                        SecBlobEncInternal_GenerateHMAC(hmacKey, hmacData, key.bytes()));
    return status != 0
               ? status
               : outcome(storageDecrypt, "AES Decrypt",
                         SecBlobEncInternal_AESDecrypt(kAESModeCBC, key.bytes(), iv, in, out, outLength));
}

std::int32_t Encode_Storage(ByteView in, ByteView hmacKey, ByteView hmacData, ByteView iv,
                            std::span<std::uint8_t> out, std::uint32_t& outLength) {
    return SecBlobEnc_DataStorage_Encrypt(in, hmacKey, hmacData, iv, out, outLength);
}

std::int32_t Decode_Storage(ByteView in, ByteView hmacKey, ByteView hmacData, ByteView iv,
                            std::span<std::uint8_t> out, std::uint32_t& outLength) {
    return SecBlobEnc_DataStorage_Decrypt(in, hmacKey, hmacData, iv, out, outLength);
}

std::int32_t SecBlobEnc_KT_Encrypt(std::int32_t mode, std::int32_t keyType, ByteView data,
                                   std::string_view publicKey, std::span<std::uint8_t> out,
                                   std::uint32_t& outLength) {
    if (data.size() > kMaxBlobDataBytes) {
        log_step(blobLength, "too long bufLen ", static_cast<std::int64_t>(data.size()));
        return kSecBlobEncBadParameter;
    }
    BlobParts parts;
    parts.mode = mode;
    parts.keyType = keyType;
    parts.fingerprint = fingerprint_of(keyType);
    if (parts.fingerprint.empty()) {
        log_step(blobKeyType, "invalid key type", keyType);
        return kSecBlobEncBadParameter;
    }
    if (const std::int32_t status = encrypt_parts(parts, data, publicKey); status != 0) {
        return status;
    }
    const Bytes bytes = lay_out(parts);
    if (bytes.size() > out.size()) {
        return kSecBlobEncBadParameter;
    }
    std::copy(bytes.begin(), bytes.end(), out.begin());
    outLength = static_cast<std::uint32_t>(bytes.size());
    return 0;
}

std::int32_t Encode_Random(ByteView data, std::span<std::uint8_t> out, std::uint32_t& outLength) {
    return SecBlobEnc_KT_Encrypt(kAESModeCBC, 0, data, RSA_PUBKEY_2048_OFFICIAL(), out, outLength);
}

void outputData(ByteView data, const std::filesystem::path& path) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file) {
        NSLog("cannot open file");
        return;
    }
    file.write(reinterpret_cast<const char*>(data.data()), static_cast<std::streamsize>(data.size()));
}

} // namespace specialpages
