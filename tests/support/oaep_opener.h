// Opens what RSAES-OAEP closed, by the words of RFC 8017, section 7.1.2, on the raw RSA operation alone: an
// opener that shares nothing with what it checks but the arithmetic.
#pragma once

#include "platform/services/cryptography.h"
#include "testing/paths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <openssl/bn.h>
#include <openssl/core_names.h>
#include <openssl/evp.h>
#include <openssl/param_build.h>
#include <openssl/pem.h>
#include <openssl/rsa.h>
#include <optional>
#include <string>

namespace specialpages::test {

/// A private key that protects nothing: of tests/data/keys, or of published numbers.
class TestKey {
  public:
    /// Modulus, public and private exponent, highest byte first.
    TestKey(platform::ByteView n, platform::ByteView e, platform::ByteView d) {
        OSSL_PARAM_BLD* numbers = OSSL_PARAM_BLD_new();
        BIGNUM* modulus = number(n);
        BIGNUM* publicExponent = number(e);
        BIGNUM* privateExponent = number(d);
        OSSL_PARAM_BLD_push_BN(numbers, OSSL_PKEY_PARAM_RSA_N, modulus);
        OSSL_PARAM_BLD_push_BN(numbers, OSSL_PKEY_PARAM_RSA_E, publicExponent);
        OSSL_PARAM_BLD_push_BN(numbers, OSSL_PKEY_PARAM_RSA_D, privateExponent);
        OSSL_PARAM* parameters = OSSL_PARAM_BLD_to_param(numbers);
        EVP_PKEY_CTX* context = EVP_PKEY_CTX_new_from_name(nullptr, "RSA", nullptr);
        if (EVP_PKEY_fromdata_init(context) != 1 ||
            EVP_PKEY_fromdata(context, &key_, EVP_PKEY_KEYPAIR, parameters) != 1) {
            ADD_FAILURE() << "these numbers are no RSA key";
        }
        EVP_PKEY_CTX_free(context);
        OSSL_PARAM_free(parameters);
        OSSL_PARAM_BLD_free(numbers);
        for (BIGNUM* each : {modulus, publicExponent, privateExponent}) {
            BN_free(each);
        }
    }
    explicit TestKey(int bits) {
        const std::string path =
            paths::source_dir() + "/tests/data/keys/test-" + std::to_string(bits) + ".pem";
        BIO* file = BIO_new_file(path.c_str(), "r");
        key_ = PEM_read_bio_PrivateKey(file, nullptr, nullptr, nullptr);
        BIO_free(file);
        if (key_ == nullptr) {
            ADD_FAILURE() << "cannot read " << path;
        }
    }
    ~TestKey() { EVP_PKEY_free(key_); }
    TestKey(const TestKey&) = delete;
    TestKey& operator=(const TestKey&) = delete;

    std::size_t modulusBytes() const { return static_cast<std::size_t>(EVP_PKEY_get_size(key_)); }

    /// The public half: X.509 SubjectPublicKeyInfo, or PKCS #1 RSAPublicKey, in DER.
    platform::Bytes publicDer() const {
        unsigned char* der = nullptr;
        const int size = i2d_PUBKEY(key_, &der);
        return taken(der, size);
    }
    platform::Bytes publicPkcs1Der() const {
        unsigned char* der = nullptr;
        const int size = i2d_PublicKey(key_, &der);
        return taken(der, size);
    }

    /// The message, or an empty optional for what is no OAEP of SHA-256 with an empty label.
    std::optional<platform::Bytes> open(platform::ByteView wrapped) const {
        platform::Bytes block = rawDecrypt(wrapped);
        constexpr std::size_t kHash = platform::kSHA256Bytes;
        if (block.size() < 2 * kHash + 2 || block[0] != 0) {
            return std::nullopt;
        }
        const platform::ByteView maskedData = platform::ByteView(block).subspan(1 + kHash);
        const platform::Bytes seed =
            combined(platform::ByteView(block).subspan(1, kHash), mask(maskedData, kHash));
        const platform::Bytes data = combined(maskedData, mask(seed, maskedData.size()));
        const auto labelHash = platform::sha256({});
        if (!std::equal(labelHash.begin(), labelHash.end(), data.begin())) {
            return std::nullopt;
        }
        const auto one = std::find_if(data.begin() + kHash, data.end(), [](auto byte) { return byte != 0; });
        return one != data.end() && *one == 1 ? std::optional(platform::Bytes(one + 1, data.end()))
                                              : std::nullopt;
    }

  private:
    static BIGNUM* number(platform::ByteView bytes) {
        return BN_bin2bn(bytes.data(), static_cast<int>(bytes.size()), nullptr);
    }

    static platform::Bytes taken(unsigned char* der, int size) {
        platform::Bytes bytes(der, der + std::max(size, 0));
        OPENSSL_free(der);
        return bytes;
    }

    platform::Bytes rawDecrypt(platform::ByteView wrapped) const {
        EVP_PKEY_CTX* context = EVP_PKEY_CTX_new(key_, nullptr);
        platform::Bytes block(modulusBytes());
        std::size_t size = block.size();
        const bool done = EVP_PKEY_decrypt_init(context) == 1 &&
                          EVP_PKEY_CTX_set_rsa_padding(context, RSA_NO_PADDING) == 1 &&
                          EVP_PKEY_decrypt(context, block.data(), &size, wrapped.data(), wrapped.size()) == 1;
        EVP_PKEY_CTX_free(context);
        return done && size == block.size() ? block : platform::Bytes{};
    }

    /// MGF1 with SHA-256 (RFC 8017, B.2.1).
    static platform::Bytes mask(platform::ByteView seed, std::size_t size) {
        platform::Bytes all;
        for (std::uint32_t counter = 0; all.size() < size; ++counter) {
            platform::Bytes block(seed.begin(), seed.end());
            for (const unsigned shift : {24U, 16U, 8U, 0U}) {
                block.push_back(static_cast<std::uint8_t>(counter >> shift & 255U));
            }
            const auto digest = platform::sha256(block);
            all.insert(all.end(), digest.begin(), digest.end());
        }
        all.resize(size);
        return all;
    }

    static platform::Bytes combined(platform::ByteView a, platform::ByteView b) {
        platform::Bytes result(a.begin(), a.end());
        for (std::size_t i = 0; i < result.size(); ++i) {
            result[i] = static_cast<std::uint8_t>(result[i] ^ b[i]);
        }
        return result;
    }

    EVP_PKEY* key_ = nullptr;
};

} // namespace specialpages::test
