#include "platform/services/cryptography.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <openssl/crypto.h>
#include <openssl/decoder.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <openssl/rand.h>
#include <openssl/rsa.h>
#include <openssl/sha.h>
#include <utility>

namespace specialpages::platform {

namespace {

template <auto Free>
struct Freer {
    template <class T>
    void operator()(T* object) const {
        Free(object);
    }
};
using CipherContext = std::unique_ptr<EVP_CIPHER_CTX, Freer<EVP_CIPHER_CTX_free>>;
using Key = std::unique_ptr<EVP_PKEY, Freer<EVP_PKEY_free>>;
using KeyContext = std::unique_ptr<EVP_PKEY_CTX, Freer<EVP_PKEY_CTX_free>>;
using Decoder = std::unique_ptr<OSSL_DECODER_CTX, Freer<OSSL_DECODER_CTX_free>>;
using Base64Context = std::unique_ptr<EVP_ENCODE_CTX, Freer<EVP_ENCODE_CTX_free>>;

/// The library counts in int.
constexpr std::size_t kMaxLibraryBytes = std::size_t{1} << 30U;

RandomSource& current_source() {
    static RandomSource source;
    return source;
}

const std::uint8_t* pointer(ByteView view) {
    static constexpr std::uint8_t kNothing = 0;
    return view.empty() ? &kNothing : view.data();
}

const EVP_CIPHER* aes_cbc(std::size_t keyBytes) {
    switch (keyBytes) {
    case 16:
        return EVP_aes_128_cbc();
    case 24:
        return EVP_aes_192_cbc();
    case 32:
        return EVP_aes_256_cbc();
    default:
        return nullptr;
    }
}

/// The reason that the library gave last; its queue is empty afterwards.
CryptoError library_error() {
    const unsigned long code = ERR_peek_last_error();
    const char* reason = ERR_reason_error_string(code);
    ERR_clear_error();
    const int number = ERR_GET_REASON(code);
    return {number != 0 ? number : kCryptoErr, reason != nullptr ? reason : "unknown error"};
}

Key public_rsa_key(ByteView der) {
    EVP_PKEY* read = nullptr;
    const Decoder decoder(
        OSSL_DECODER_CTX_new_for_pkey(&read, "DER", nullptr, "RSA", EVP_PKEY_PUBLIC_KEY, nullptr, nullptr));
    const std::uint8_t* at = der.data();
    std::size_t left = der.size();
    const bool done = decoder && OSSL_DECODER_from_data(decoder.get(), &at, &left) == 1;
    Key key(read);
    return done && left == 0 ? std::move(key) : nullptr;
}

std::optional<Bytes> encrypt_oaep(EVP_PKEY* key, ByteView plain) {
    const KeyContext context(EVP_PKEY_CTX_new_from_pkey(nullptr, key, nullptr));
    std::size_t size = 0;
    if (!context || EVP_PKEY_encrypt_init(context.get()) <= 0 ||
        EVP_PKEY_CTX_set_rsa_padding(context.get(), RSA_PKCS1_OAEP_PADDING) <= 0 ||
        EVP_PKEY_CTX_set_rsa_oaep_md(context.get(), EVP_sha256()) <= 0 ||
        EVP_PKEY_CTX_set_rsa_mgf1_md(context.get(), EVP_sha256()) <= 0 ||
        EVP_PKEY_encrypt(context.get(), nullptr, &size, pointer(plain), plain.size()) <= 0) {
        return std::nullopt;
    }
    Bytes wrapped(size);
    if (EVP_PKEY_encrypt(context.get(), wrapped.data(), &size, pointer(plain), plain.size()) <= 0) {
        return std::nullopt;
    }
    wrapped.resize(size);
    return wrapped;
}

} // namespace

void wipe(std::span<std::uint8_t> bytes) {
    OPENSSL_cleanse(bytes.data(), bytes.size());
}

void wipe(std::string& text) {
    // What a text held before it became shorter may still stand behind its end.
    text.resize(text.capacity());
    OPENSSL_cleanse(text.data(), text.size());
    text.clear();
}

OSStatus SecRandomCopyBytes(std::span<std::uint8_t> bytes) {
    if (current_source()) {
        return current_source()(bytes);
    }
    if (bytes.size() > kMaxLibraryBytes || RAND_bytes(bytes.data(), static_cast<int>(bytes.size())) != 1) {
        ERR_clear_error();
        return kCryptoErr;
    }
    return noErr;
}

void setRandomSource(RandomSource source) {
    current_source() = std::move(source);
}

OSStatus CCHmac(ByteView key, ByteView data, std::span<std::uint8_t, kSHA256Bytes> mac) {
    unsigned int size = 0;
    const bool done =
        key.size() <= kMaxLibraryBytes && HMAC(EVP_sha256(), pointer(key), static_cast<int>(key.size()),
                                               pointer(data), data.size(), mac.data(), &size) != nullptr;
    if (!done) {
        ERR_clear_error();
    }
    return done ? noErr : kCryptoErr;
}

std::array<std::uint8_t, kSHA256Bytes> sha256(ByteView data) {
    std::array<std::uint8_t, kSHA256Bytes> digest{};
    SHA256(pointer(data), data.size(), digest.data());
    return digest;
}

OSStatus CCCrypt(CCOperation operation, ByteView key, ByteView iv, ByteView in, std::span<std::uint8_t> out,
                 std::size_t& moved) {
    const EVP_CIPHER* cipher = aes_cbc(key.size());
    if (cipher == nullptr || iv.size() < kAESBlockBytes || in.size() > kMaxLibraryBytes) {
        return paramErr;
    }
    const bool encrypt = operation == CCOperation::encrypt;
    const CipherContext context(EVP_CIPHER_CTX_new());
    // Room for a whole block more, so that the library never writes into the caller's bytes what it then
    // drops.
    Bytes result(in.size() + kAESBlockBytes);
    int updated = 0;
    int last = 0;
    const bool done =
        context &&
        EVP_CipherInit_ex2(context.get(), cipher, key.data(), iv.data(), encrypt ? 1 : 0, nullptr) == 1 &&
        EVP_CipherUpdate(context.get(), result.data(), &updated, pointer(in), static_cast<int>(in.size())) ==
            1 &&
        EVP_CipherFinal_ex(context.get(), result.data() + updated, &last) == 1;
    const auto size = static_cast<std::size_t>(updated) + static_cast<std::size_t>(last);
    OSStatus status = noErr;
    if (!done) {
        ERR_clear_error();
        status = encrypt ? kCryptoErr : kCipherTextErr;
    } else if (size > out.size()) {
        status = memFullErr;
    } else {
        std::copy_n(result.begin(), size, out.begin());
        moved = size;
    }
    wipe(result);
    return status;
}

std::optional<Bytes> SecKeyCreateEncryptedData(ByteView publicKey, ByteView plain, CryptoError& error) {
    ERR_clear_error();
    const Key key = public_rsa_key(publicKey);
    auto wrapped = key ? encrypt_oaep(key.get(), plain) : std::nullopt;
    if (!wrapped) {
        error = library_error();
    }
    return wrapped;
}

std::string base64_text(ByteView data) {
    if (data.size() > kMaxLibraryBytes) {
        return {};
    }
    // The library ends its text with a zero byte, for which a std::string has room.
    std::string text((data.size() + 2) / 3 * 4, '\0');
    EVP_EncodeBlock(reinterpret_cast<unsigned char*>(text.data()), pointer(data),
                    static_cast<int>(data.size()));
    return text;
}

std::optional<Bytes> base64_bytes(std::string_view text) {
    // The library takes a "-" for the end of the text and drops what follows.
    if (text.size() > kMaxLibraryBytes || text.find('-') != std::string_view::npos) {
        return std::nullopt;
    }
    const Base64Context context(EVP_ENCODE_CTX_new());
    Bytes bytes(text.size() / 4 * 3 + 3);
    int updated = 0;
    int last = 0;
    if (!context) {
        return std::nullopt;
    }
    EVP_DecodeInit(context.get());
    const ByteView view = bytes_of(text);
    if (EVP_DecodeUpdate(context.get(), bytes.data(), &updated, pointer(view),
                         static_cast<int>(view.size())) < 0 ||
        EVP_DecodeFinal(context.get(), bytes.data() + updated, &last) < 0) {
        ERR_clear_error();
        return std::nullopt;
    }
    bytes.resize(static_cast<std::size_t>(updated) + static_cast<std::size_t>(last));
    return bytes;
}

} // namespace specialpages::platform
