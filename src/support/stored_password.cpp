#include "support/stored_password.h"

#include "support/nsp_coders.h"
#include "support/secret_constants.h"
#include "support/secure_blob.h"
#include "support/units.h"

#include <algorithm>
#include <array>

namespace specialpages {

CipherResult encipher_password(std::string_view plain, std::size_t capacity) {
    if (plain.empty()) {
        return {0, ""};
    }
    const auto columns = static_cast<std::size_t>(GetUTF8StringLength(plain));
    if (columns == 0) {
        return {kSecBlobEncBadParameter, std::nullopt};
    }
    std::array<std::uint8_t, kTicketCipherBytes> cipher{};
    std::uint32_t size = 0;
    const std::int32_t status =
        Encode_Storage(platform::bytes_of(plain.substr(0, columns)), seed1, seed2, seed3,
                       std::span(cipher).first(std::min(capacity, cipher.size())), size);
    if (status != 0) {
        return {status, std::nullopt};
    }
    std::array<unsigned char, kMaxStoredPasswordBytes> base64{};
    std::uint32_t length = 0;
    if (NSPBinToB64(cipher.data(), static_cast<std::int32_t>(size), base64.data(), &length,
                    static_cast<std::int32_t>(base64.size())) != 0) {
        return {};
    }
    return {0, std::string(base64.begin(), base64.begin() + length)};
}

CipherResult decipher_password(std::string_view stored) {
    if (stored.empty()) { // it may have no pointer, which would be another failure
        return {kNSPBadLength, std::nullopt};
    }
    std::array<unsigned char, kMaxStoredPasswordBytes> cipher{};
    std::uint32_t size = 0;
    const platform::ByteView text = platform::bytes_of(stored.substr(0, kMaxStoredPasswordBytes));
    std::int32_t status = NSPB64ToBin(text.data(), static_cast<std::int32_t>(text.size()), cipher.data(),
                                      &size, static_cast<std::int32_t>(cipher.size()));
    if (status != 0) {
        return {status, std::nullopt};
    }
    platform::SecretArray<kMaxStoredPasswordBytes> plain;
    std::uint32_t plainSize = 0;
    status = Decode_Storage(std::span(cipher).first(size), seed1, seed2, seed3, plain.bytes(), plainSize);
    if (status != 0) {
        return {status, std::nullopt};
    }
    const auto bytes = plain.bytes().first(plainSize);
    return {0, std::string(bytes.begin(), std::find(bytes.begin(), bytes.end(), std::uint8_t{0}))};
}

} // namespace specialpages
