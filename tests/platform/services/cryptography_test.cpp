#include "platform/services/cryptography.h"
#include "support/bytes.h"
#include "support/oaep_opener.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace specialpages::platform {
namespace {

using test::from_hex;
using test::TestKey;
using test::to_hex;
using test::to_text;

std::string hmac(ByteView key, std::string_view data) {
    std::array<std::uint8_t, kSHA256Bytes> mac{};
    EXPECT_EQ(CCHmac(key, bytes_of(data), mac), noErr);
    return to_hex(mac);
}

// RFC 4231, test cases 1, 2 and 6.
TEST(Hmac, GivesThePublishedValues) {
    EXPECT_EQ(hmac(Bytes(20, 0x0b), "Hi There"),
              "b0344c61d8db38535ca8afceaf0bf12b881dc200c9833da726e9376c2e32cff7");
    EXPECT_EQ(hmac(bytes_of("Jefe"), "what do ya want for nothing?"),
              "5bdcc146bf60754e6a042426089575c75a003f089d2739839dec58b964ec3843");
    EXPECT_EQ(hmac(Bytes(131, 0xaa), "Test Using Larger Than Block-Size Key - Hash Key First"),
              "60e431591ee0b67f0d8a26aacbf5b77f8e0bc6213728c5140546040f0ee37f54");
}

// python3 -c "import hmac; print(hmac.new(b'', b'', 'sha256').hexdigest())"
TEST(Hmac, TakesAnEmptyKeyAndEmptyData) {
    EXPECT_EQ(hmac({}, ""), "b613679a0814d9ec772f95d778c35fc5ff1697c493715653c6c712144292c5ad");
}

// FIPS 180-4, its example "abc".
TEST(Sha256, GivesThePublishedValue) {
    EXPECT_EQ(to_hex(sha256(bytes_of("abc"))),
              "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(to_hex(sha256({})), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

// NIST SP 800-38A, F.2.5 and F.2.6.
const std::string kKey256 = "603deb1015ca71be2b73aef0857d77811f352c073b6108d72d9810a30914dff4";
const std::string kVector = "000102030405060708090a0b0c0d0e0f";
const std::string kPlain = "6bc1bee22e409f96e93d7e117393172aae2d8a571e03ac9c9eb76fac45af8e51"
                           "30c81c46a35ce411e5fbc1191a0a52eff69f2445df4f9b17ad2b417be66c3710";
const std::string kCipher = "f58c4c04d6e5f1ba779eabfb5f7bfbd69cfc4e967edb808d679f777bc6702c7d"
                            "39f23369a9d9bacfa530e26304231461b2eb05e2c39be9fcda6c19078c6a9d1b";

struct Crypted {
    OSStatus status = 0;
    std::size_t moved = 999;
    Bytes out;
};

Crypted crypt(CCOperation operation, ByteView key, ByteView iv, ByteView in, std::size_t capacity) {
    Crypted result;
    result.out.assign(capacity, 0xEE);
    result.status = CCCrypt(operation, key, iv, in, result.out, result.moved);
    return result;
}

TEST(AesCbc, GivesThePublishedValuesAndABlockOfPadding) {
    const Crypted result =
        crypt(CCOperation::encrypt, from_hex(kKey256), from_hex(kVector), from_hex(kPlain), 80);
    EXPECT_EQ(result.status, noErr);
    EXPECT_EQ(result.moved, 80U);
    EXPECT_EQ(to_hex(result.out).substr(0, 128), kCipher);
    const Crypted back = crypt(CCOperation::decrypt, from_hex(kKey256), from_hex(kVector), result.out, 64);
    EXPECT_EQ(back.status, noErr);
    EXPECT_EQ(back.moved, 64U);
    EXPECT_EQ(to_hex(back.out), kPlain);
}

// printf abc | openssl enc -aes-128-cbc -K 000102030405060708090a0b0c0d0e0f -iv
// 0f0e0d0c0b0a09080706050403020100 and -aes-192-cbc with -K 000102030405060708090a0b0c0d0e0f1011121314151617
TEST(AesCbc, TheLengthOfTheKeySaysWhichAes) {
    const Bytes vector = from_hex("0f0e0d0c0b0a09080706050403020100");
    const Bytes key = from_hex("000102030405060708090a0b0c0d0e0f1011121314151617");
    EXPECT_EQ(to_hex(crypt(CCOperation::encrypt, ByteView(key).first(16), vector, bytes_of("abc"), 16).out),
              "ba531ab49213c52f3ac482de024dedbb");
    EXPECT_EQ(to_hex(crypt(CCOperation::encrypt, key, vector, bytes_of("abc"), 16).out),
              "3a8c5cf1c923b9908630f1b3aba8e458");
    for (const std::size_t size : {0U, 1U, 15U, 17U, 31U, 33U, 64U}) {
        EXPECT_EQ(crypt(CCOperation::encrypt, Bytes(size), vector, bytes_of("abc"), 16).status, paramErr)
            << size;
    }
}

TEST(AesCbc, OfTheVectorSixteenBytesCount) {
    const Bytes key(32);
    Bytes vector(17, 7);
    const Bytes longer = crypt(CCOperation::encrypt, key, vector, {}, 16).out;
    vector.resize(16);
    EXPECT_EQ(crypt(CCOperation::encrypt, key, vector, {}, 16).out, longer);
    vector.resize(15);
    EXPECT_EQ(crypt(CCOperation::encrypt, key, vector, {}, 16).status, paramErr);
}

TEST(AesCbc, WritesNothingThatDoesNotFit) {
    const Crypted result = crypt(CCOperation::encrypt, Bytes(32), Bytes(16), Bytes(16), 31);
    EXPECT_EQ(result.status, memFullErr);
    EXPECT_EQ(result.moved, 999U);
    EXPECT_EQ(result.out, Bytes(31, 0xEE));
    EXPECT_EQ(crypt(CCOperation::encrypt, Bytes(32), Bytes(16), Bytes(16), 32).status, noErr);
}

TEST(AesCbc, DecryptingNeedsRoomForThePlainTextOnly) {
    const Bytes cipher = crypt(CCOperation::encrypt, Bytes(32), Bytes(16), bytes_of("abc"), 16).out;
    EXPECT_EQ(crypt(CCOperation::decrypt, Bytes(32), Bytes(16), cipher, 2).status, memFullErr);
    const Crypted exact = crypt(CCOperation::decrypt, Bytes(32), Bytes(16), cipher, 3);
    EXPECT_EQ(exact.status, noErr);
    EXPECT_EQ(to_text(exact.out), "abc");
}

TEST(AesCbc, TellsDamagedCipherText) {
    Bytes cipher = crypt(CCOperation::encrypt, Bytes(32), Bytes(16), bytes_of("abc"), 16).out;
    EXPECT_EQ(crypt(CCOperation::decrypt, Bytes(32), Bytes(16), {}, 64).status, kCipherTextErr);
    EXPECT_EQ(crypt(CCOperation::decrypt, Bytes(32), Bytes(16), ByteView(cipher).first(15), 64).status,
              kCipherTextErr);
    cipher.push_back(0);
    EXPECT_EQ(crypt(CCOperation::decrypt, Bytes(32), Bytes(16), cipher, 64).status, kCipherTextErr);
    // A padding of no bytes, which no encryption makes: the last byte of the vector changes the padding's.
    cipher.pop_back();
    Bytes vector(16);
    vector.back() = 13; // the padding of "abc"
    const Crypted result = crypt(CCOperation::decrypt, Bytes(32), vector, cipher, 64);
    EXPECT_EQ(result.status, kCipherTextErr);
    EXPECT_EQ(result.out, Bytes(64, 0xEE));
}

TEST(RandomSource, GivesOtherBytesEachTime) {
    std::set<Bytes> seen;
    for (int i = 0; i < 100; ++i) {
        Bytes bytes(16);
        ASSERT_EQ(SecRandomCopyBytes(bytes), noErr);
        seen.insert(bytes);
    }
    EXPECT_EQ(seen.size(), 100U);
    EXPECT_EQ(SecRandomCopyBytes({}), noErr);
}

TEST(RandomSource, CanBeReplacedAndComesBack) {
    setRandomSource([](std::span<std::uint8_t> bytes) {
        std::fill(bytes.begin(), bytes.end(), std::uint8_t{7});
        return OSStatus{-1};
    });
    Bytes bytes(8);
    EXPECT_EQ(SecRandomCopyBytes(bytes), -1);
    EXPECT_EQ(bytes, Bytes(8, 7));
    setRandomSource(nullptr);
    EXPECT_EQ(SecRandomCopyBytes(bytes), noErr);
    EXPECT_NE(bytes, Bytes(8, 7));
}

TEST(RsaOaep, IsOpenedByTheRulesOfTheRfc) {
    for (const int bits : {2048, 3072}) {
        const TestKey key(bits);
        for (const Bytes& der : {key.publicDer(), key.publicPkcs1Der()}) {
            CryptoError error;
            const auto wrapped = SecKeyCreateEncryptedData(der, bytes_of("content key"), error);
            ASSERT_TRUE(wrapped) << error.description;
            EXPECT_EQ(wrapped->size(), static_cast<std::size_t>(bits) / 8);
            const auto opened = key.open(*wrapped);
            ASSERT_TRUE(opened);
            EXPECT_EQ(to_text(*opened), "content key");
            EXPECT_NE(SecKeyCreateEncryptedData(der, bytes_of("content key"), error), wrapped)
                << "each wrapping has a seed of its own";
        }
    }
}

// printf 'made elsewhere' | openssl pkeyutl -encrypt -inkey tests/data/keys/test-2048.pem
//     -pkeyopt rsa_padding_mode:oaep -pkeyopt rsa_oaep_md:sha256 -pkeyopt rsa_mgf1_md:sha256 | base64 -w0
TEST(RsaOaep, TheOpenerOpensWhatAnotherProgramWrapped) {
    const auto wrapped = base64_bytes(
        "kpz6J2zV/dVmC+0xOYQoAzFR3wv/KPCIMfqfCALLmZhpMR9B7G9h3gLZNF65v4PcWIR/ZHFdvgNQFt+xY/Bj+lkFWT"
        "kypE3PXzsIGn+SpNNTIxmksuI3JGTJqpoMbWyrGSj+gprIyZftWMwq1lcldhWH/hRRKNj+js2Og8vjwDlotxU+qix+"
        "BLhMufalKfYu0e5pFk8HBWcXqn0dgY+38ZkQvMGiLzwEJsgOtny7tePuw68It2jzk8tddlSsz8JIkprJapGwR66Kej"
        "usOfoimUsp44JiAJvrw7OQ6A0e45maFgMxprjW3XfQg+hNpVb5TmyIPtFOiOBSYGU3hVWYbw==");
    ASSERT_TRUE(wrapped);
    const auto opened = TestKey(2048).open(*wrapped);
    ASSERT_TRUE(opened);
    EXPECT_EQ(to_text(*opened), "made elsewhere");
    Bytes damaged = *wrapped;
    damaged.back() ^= 1U;
    EXPECT_FALSE(TestKey(2048).open(damaged)) << "an opener that opens everything would prove nothing";
}

TEST(RsaOaep, TakesAsMuchAsTheKeyHasRoomFor) {
    const TestKey key(2048);
    CryptoError error;
    EXPECT_TRUE(SecKeyCreateEncryptedData(key.publicDer(), Bytes(256 - 66), error));
    EXPECT_FALSE(SecKeyCreateEncryptedData(key.publicDer(), Bytes(256 - 65), error));
    EXPECT_NE(error.code, 0);
    EXPECT_FALSE(error.description.empty());
    EXPECT_TRUE(SecKeyCreateEncryptedData(key.publicDer(), {}, error)) << "nothing is a message too";
}

TEST(RsaOaep, RefusesWhatIsNoPublicRsaKey) {
    const Bytes whole = TestKey(2048).publicDer();
    Bytes longer = whole;
    longer.push_back(0);
    // openssl ecparam -name prime256v1 -genkey | openssl pkey -pubout -outform DER | xxd -p
    const Bytes curve = from_hex("3059301306072a8648ce3d020106082a8648ce3d03010703420004"
                                 "26e21a9399ac4967071e9a612317a9bc8833d84886627ef30c3cb774b3dc3f1fab6c92c0cb2"
                                 "2863e9479655ae5d96957ecee9473e86323f49b1e0e7143e0c57c");
    for (const Bytes& der :
         {Bytes{}, Bytes{0x30}, Bytes(300, 0xFF), Bytes(whole.begin(), whole.end() - 1), longer, curve}) {
        CryptoError error;
        EXPECT_FALSE(SecKeyCreateEncryptedData(der, bytes_of("x"), error)) << der.size();
        EXPECT_NE(error.code, 0) << der.size();
        EXPECT_FALSE(error.description.empty());
    }
}

// RFC 4648, section 10.
TEST(Base64, GivesThePublishedTextsBothWays) {
    const std::pair<const char*, const char*> vectors[] = {{"", ""},
                                                           {"f", "Zg=="},
                                                           {"fo", "Zm8="},
                                                           {"foo", "Zm9v"},
                                                           {"foob", "Zm9vYg=="},
                                                           {"fooba", "Zm9vYmE="},
                                                           {"foobar", "Zm9vYmFy"}};
    for (const auto& [plain, text] : vectors) {
        EXPECT_EQ(base64_text(bytes_of(plain)), text);
        const auto bytes = base64_bytes(text);
        ASSERT_TRUE(bytes) << text;
        EXPECT_EQ(to_text(*bytes), plain);
    }
}

TEST(Base64, ReadsOverLineEndsAndBlanks) {
    const auto bytes = base64_bytes("Zm9v\r\n YmFy\n");
    ASSERT_TRUE(bytes);
    EXPECT_EQ(to_text(*bytes), "foobar");
}

TEST(Base64, RefusesWhatIsNone) {
    for (const char* text : {"Z", "Zg", "Zg=", "Zg===", "Zg==Zg==", "Zm9v!", "Zm-v", "Zm_v", "Zm9v-", "=",
                             "====", "\xC3\xA9\xC3\xA9", "Zm9v-----END"}) {
        EXPECT_FALSE(base64_bytes(text)) << text;
    }
    EXPECT_FALSE(base64_bytes(std::string_view("Zm\0v", 4)));
}

TEST(Wiping, OverwritesBytesAndEmptiesTexts) {
    Bytes bytes(40, 7);
    wipe(bytes);
    EXPECT_EQ(bytes, Bytes(40, 0));
    std::string text(200, 'x');
    text.resize(20);
    const char* kept = text.data();
    wipe(text);
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(text.data(), kept);
    text.resize(text.capacity(), '\0'); // within the same memory: nothing of the old text is in sight
    EXPECT_EQ(text.find('x'), std::string::npos);
}

} // namespace
} // namespace specialpages::platform
