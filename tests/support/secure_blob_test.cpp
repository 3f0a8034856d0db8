#include "platform/foundation/TemporaryDirectory.h"
#include "support/bytes.h"
#include "support/oaep_opener.h"
#include "support/secret_constants.h"
#include "support/secure_blob.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace specialpages {
namespace {

using platform::bytes_of;
using platform::OSStatus;
using test::from_hex;
using test::LoggedLines;
using test::TestKey;
using test::to_hex;
using test::to_text;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

constexpr std::uint32_t kUntouched = 777;

/// A random source that fails at its n-th question (from 1) and else answers 1, 1, ..., then 2, 2, ...
class CountedRandom {
  public:
    explicit CountedRandom(int failing = 0) {
        platform::setRandomSource([this, failing](std::span<std::uint8_t> bytes) {
            ++asked_;
            std::fill(bytes.begin(), bytes.end(), static_cast<std::uint8_t>(asked_));
            return asked_ == failing ? OSStatus{-7} : platform::noErr;
        });
    }
    ~CountedRandom() { platform::setRandomSource(nullptr); }
    CountedRandom(const CountedRandom&) = delete;
    CountedRandom& operator=(const CountedRandom&) = delete;
    int asked() const { return asked_; }

  private:
    int asked_ = 0;
};

/// Reads a blob as a device does, without anything of the code that makes it.
struct OpenedBlob {
    explicit OpenedBlob(ByteView blob, const TestKey& key) {
        const auto little = [&](std::size_t at) {
            return std::size_t{blob[at]} | std::size_t{blob[at + 1]} << 8U |
                   std::size_t{blob[at + 2]} << 16U | std::size_t{blob[at + 3]} << 24U;
        };
        markers = to_hex(blob.subspan(0, 2));
        cipherLength = little(2);
        totalLength = little(6);
        mode = blob[10];
        keyType = blob[11];
        reserved = little(12);
        fingerprint = to_hex(blob.subspan(16, 32));
        salt = Bytes(blob.begin() + 48, blob.begin() + 80);
        const std::size_t r = key.modulusBytes();
        vector = Bytes(blob.begin() + 80 + static_cast<std::ptrdiff_t>(r),
                       blob.begin() + 96 + static_cast<std::ptrdiff_t>(r));
        const auto opened = key.open(blob.subspan(80, r));
        if (!opened) {
            ADD_FAILURE() << "the wrapped key does not open";
            return;
        }
        contentKey = *opened;
        std::array<std::uint8_t, 32> aesKey{};
        platform::CCHmac(contentKey, salt, aesKey);
        Bytes out(cipherLength);
        std::size_t moved = 0;
        EXPECT_EQ(platform::CCCrypt(platform::CCOperation::decrypt, aesKey, vector,
                                    blob.subspan(96 + r, cipherLength), out, moved),
                  0);
        plain = to_text(std::span(out).first(moved));
    }
    std::string markers, fingerprint, plain;
    std::size_t cipherLength = 0, totalLength = 0, reserved = 0;
    int mode = 0, keyType = 0;
    Bytes salt, vector, contentKey;
};

struct Made {
    std::int32_t status = 0;
    std::uint32_t length = kUntouched;
    Bytes out;
};

Made made(std::int32_t mode, std::int32_t keyType, ByteView data, std::string_view publicKey,
          std::size_t room) {
    Made blob;
    blob.out.resize(room);
    blob.status = SecBlobEnc_KT_Encrypt(mode, keyType, data, publicKey, blob.out, blob.length);
    return blob;
}

std::string public_text(const TestKey& key) {
    return platform::base64_text(key.publicDer());
}

TEST(TransportBlob, IsOpenedFieldByField) {
    const std::string secret = "a secret of 23 bytes...";
    const std::pair<int, std::int32_t> kinds[] = {{2048, 0}, {3072, 1}};
    for (const auto& [bits, keyType] : kinds) {
        const TestKey key(bits);
        const Made blob = made(1, keyType, bytes_of(secret), public_text(key), blob_room(secret.size()));
        ASSERT_EQ(blob.status, 0);
        const std::size_t r = key.modulusBytes();
        EXPECT_EQ(blob.length, 80 + r + 16 + 32);
        const OpenedBlob opened(std::span(blob.out).first(blob.length), key);
        EXPECT_EQ(opened.markers, "0801");
        EXPECT_EQ(opened.cipherLength, 32U);
        EXPECT_EQ(opened.totalLength, blob.length);
        EXPECT_EQ(opened.mode, 1);
        EXPECT_EQ(opened.keyType, keyType);
        EXPECT_EQ(opened.reserved, 0U);
        EXPECT_EQ(opened.fingerprint,
                  to_hex(keyType == 0 ? pubkey2048_OFFICIAL_SHA256() : pubkey3072_OFFICIAL_SHA256()));
        EXPECT_EQ(opened.contentKey.size(), 32U);
        EXPECT_EQ(opened.plain, secret);
    }
}

TEST(TransportBlob, TakesRandomBytesInTheOrderOfItsSteps) {
    const TestKey key(2048);
    const CountedRandom random;
    const Made blob = made(1, 0, bytes_of("x"), public_text(key), blob_room(1));
    ASSERT_EQ(blob.status, 0);
    const OpenedBlob opened(std::span(blob.out).first(blob.length), key);
    EXPECT_EQ(opened.contentKey, Bytes(32, 1));
    EXPECT_EQ(opened.salt, Bytes(32, 2));
    EXPECT_EQ(opened.vector, Bytes(16, 3));
    EXPECT_EQ(opened.plain, "x");
    // K=$(printf '\2%.0s' {1..32} | openssl dgst -sha256 -mac HMAC -r
    //     -macopt hexkey:$(printf '01%.0s' {1..32}) | cut -d' ' -f1)
    // printf x | openssl enc -aes-256-cbc -K $K -iv $(printf '03%.0s' {1..16}) | xxd -p
    EXPECT_EQ(to_hex(std::span(blob.out).subspan(80 + 256 + 16, 16)), "8b6a4e81dfe56bc2057fb4f40e2238f1");
    EXPECT_EQ(random.asked(), 3);
}

TEST(TransportBlob, TakesUpToItsLimit) {
    const TestKey key(2048);
    const LoggedLines log;
    const Bytes data(99500, 'x');
    const Made most = made(1, 0, data, public_text(key), blob_room(data.size()));
    ASSERT_EQ(most.status, 0);
    EXPECT_EQ(most.length, 80U + 256 + 16 + 99504);
    EXPECT_EQ(OpenedBlob(std::span(most.out).first(most.length), key).plain, std::string(99500, 'x'));
    const CountedRandom random;
    const Made more = made(1, 9, Bytes(99501), "no key", 200000);
    EXPECT_EQ(more.status, 2);
    EXPECT_EQ(more.length, kUntouched);
    EXPECT_EQ(random.asked(), 0);
    EXPECT_THAT(log.all(), ElementsAre("ERROR[88]: too long bufLen [99501]."));
}

TEST(TransportBlob, TakesNothingToo) {
    const TestKey key(2048);
    const Made blob = made(1, 0, {}, public_text(key), blob_room(0));
    ASSERT_EQ(blob.status, 0);
    const OpenedBlob opened(std::span(blob.out).first(blob.length), key);
    EXPECT_EQ(opened.cipherLength, 16U);
    EXPECT_EQ(opened.plain, "");
}

TEST(TransportBlob, KnowsTwoTypesOfKeys) {
    for (const std::int32_t keyType : {2, -1, 256, 257}) {
        const LoggedLines log;
        const CountedRandom random;
        EXPECT_EQ(made(1, keyType, {}, "no key", 1000).status, 2);
        EXPECT_EQ(random.asked(), 0);
        EXPECT_THAT(log.all(), ElementsAre("ERROR[106]: invalid key type[" + std::to_string(keyType) + "]."));
    }
}

TEST(TransportBlob, AnotherModeFailsAfterTheKeyWasWrapped) {
    const TestKey key(2048);
    for (const std::int32_t mode : {0, 2, -1}) {
        const LoggedLines log;
        const CountedRandom random;
        const Made blob = made(mode, 0, bytes_of("x"), public_text(key), 1000);
        EXPECT_EQ(blob.status, 99);
        EXPECT_EQ(blob.length, kUntouched);
        EXPECT_EQ(blob.out, Bytes(1000));
        EXPECT_EQ(random.asked(), 3);
        EXPECT_THAT(log.all(),
                    ElementsAre("AES Error. Unsupported AES Mode.", "ERROR[161]: AES Encrypt failed[2]."));
    }
    const LoggedLines log;
    EXPECT_EQ(made(0, 0, {}, "no key", 1000).status, 99);
    EXPECT_THAT(log.all(), ElementsAre(MatchesRegex("RSA Error\\[-?[0-9]+\\] .+"),
                                       "ERROR[150]: RSA Encrypt failed[99]."))
        << "wrapping comes first";
}

TEST(TransportBlob, TellsWhichRandomStepFailed) {
    const TestKey key(2048);
    const std::string text = public_text(key);
    const std::pair<int, const char*> steps[] = {{1, "114"}, {2, "122"}, {3, "139"}};
    for (const auto& [question, number] : steps) {
        const LoggedLines log;
        const CountedRandom random(question);
        const Made blob = made(1, 0, bytes_of("x"), text, 1000);
        EXPECT_EQ(blob.status, 99);
        EXPECT_EQ(blob.length, kUntouched);
        EXPECT_EQ(random.asked(), question) << "nothing is tried again";
        EXPECT_THAT(log.all(),
                    ElementsAre("Generate Random Error[-7]",
                                std::string("ERROR[") + number + "]: generate random failed[99]."));
    }
}

TEST(TransportBlob, NeedsRoomForAllOfIt) {
    const TestKey key(2048);
    const std::string text = public_text(key);
    EXPECT_EQ(made(1, 0, bytes_of("x"), text, 80 + 256 + 16 + 16).status, 0);
    const Made blob = made(1, 0, bytes_of("x"), text, 80 + 256 + 16 + 15);
    EXPECT_EQ(blob.status, 2);
    EXPECT_EQ(blob.length, kUntouched);
    EXPECT_EQ(blob.out, Bytes(367));
}

TEST(TransportBlob, ForDevicesIsMadeWithTheBuildsKey) {
    Bytes out(blob_room(5));
    std::uint32_t length = kUntouched;
    ASSERT_EQ(Encode_Random(bytes_of("12345"), out, length), 0);
    EXPECT_EQ(length, 80U + 256 + 16 + 16);
    EXPECT_EQ(to_hex(std::span(out).first(16)), "08011000000070010000010000000000");
    EXPECT_EQ(to_hex(std::span(out).subspan(16, 32)), to_hex(pubkey2048_OFFICIAL_SHA256()));
}

// Steps on their own.

TEST(SecureSteps, RandomFailureIsLogged) {
    const LoggedLines log;
    const CountedRandom random(2);
    Bytes bytes(4);
    EXPECT_EQ(Generate_Random(bytes), 0);
    EXPECT_EQ(bytes, Bytes(4, 1));
    EXPECT_EQ(SecBlobEncInternal_GenerateRandom(bytes), 99);
    EXPECT_THAT(log.all(), ElementsAre("Generate Random Error[-7]"));
}

TEST(SecureSteps, KeysAreReadFromBase64) {
    EXPECT_EQ(SecBlobEnc_Decode_Key("QUI="), (Bytes{'A', 'B'}));
    EXPECT_EQ(SecBlobEnc_Decode_Key(""), std::nullopt);
    EXPECT_EQ(SecBlobEnc_Decode_Key(" \n"), std::nullopt);
    EXPECT_EQ(SecBlobEnc_Decode_Key("QUI"), std::nullopt);
    EXPECT_EQ(SecBlobEnc_Decode_Key("Q!I="), std::nullopt);
}

TEST(SecureSteps, WrappingNeedsAKeyAndRoom) {
    const TestKey key(2048);
    Bytes out(255);
    std::uint32_t length = kUntouched;
    for (const std::string& text : {std::string(), std::string("QUJD"), public_text(key).substr(0, 100),
                                    "-----BEGIN PUBLIC KEY-----" + public_text(key), public_text(key)}) {
        const LoggedLines log;
        EXPECT_EQ(SecBlobEncInternal_RSAEncrypt(text, bytes_of("x"), out, length), 99) << text;
        EXPECT_THAT(log.all(), ElementsAre(MatchesRegex("RSA Error\\[-?[0-9]+\\] .+"))) << text;
    }
    EXPECT_EQ(length, kUntouched);
    EXPECT_EQ(out, Bytes(255)) << "the last key is a good one, but its 256 bytes do not fit";
    out.resize(256);
    EXPECT_EQ(SecBlobEncInternal_RSAEncrypt(public_text(key), bytes_of("x"), out, length), 0);
    EXPECT_EQ(length, 256U);
}

TEST(SecureSteps, AesKnowsOneMode) {
    const LoggedLines log;
    Bytes out(16);
    std::uint32_t length = kUntouched;
    EXPECT_EQ(SecBlobEncInternal_AESEncrypt(0, Bytes(32), Bytes(16), {}, out, length), 2);
    EXPECT_EQ(SecBlobEncInternal_AESDecrypt(2, Bytes(32), Bytes(16), {}, out, length), 2);
    EXPECT_EQ(SecBlobEncInternal_AESEncrypt(1, Bytes(31), Bytes(16), {}, out, length), 99);
    EXPECT_EQ(SecBlobEncInternal_AESDecrypt(1, Bytes(32), Bytes(16), {}, out, length), 99);
    EXPECT_EQ(length, kUntouched);
    EXPECT_THAT(log.all(), ElementsAre("AES Error. Unsupported AES Mode.", "AES Error. Unsupported AES Mode.",
                                       "AES Error[-50]", "AES Error[-25]"));
    EXPECT_EQ(SecBlobEncInternal_AESEncrypt(1, Bytes(16), Bytes(16), {}, out, length), 0);
    EXPECT_EQ(length, 16U);
}

TEST(SecureSteps, HmacOfPublishedText) {
    std::array<std::uint8_t, 32> out{};
    EXPECT_EQ(
        SecBlobEncInternal_GenerateHMAC(bytes_of("Jefe"), bytes_of("what do ya want for nothing?"), out), 0);
    EXPECT_EQ(to_hex(out), "5bdcc146bf60754e6a042426089575c75a003f089d2739839dec58b964ec3843");
}

// The storage form.

// K=$(printf data | openssl dgst -sha256 -hmac key -r | cut -d' ' -f1)
// printf 'plain text' | openssl enc -aes-256-cbc -K $K -iv 000102030405060708090a0b0c0d0e0f | xxd -p
TEST(StorageForm, IsAesUnderADerivedKey) {
    const Bytes vector = from_hex("000102030405060708090a0b0c0d0e0f");
    Bytes out(16);
    std::uint32_t length = kUntouched;
    ASSERT_EQ(Encode_Storage(bytes_of("plain text"), bytes_of("key"), bytes_of("data"), vector, out, length),
              0);
    EXPECT_EQ(length, 16U);
    EXPECT_EQ(to_hex(out), "775c7d6398e993ee1983a3ef30b79d9f");
    Bytes back(10);
    ASSERT_EQ(Decode_Storage(out, bytes_of("key"), bytes_of("data"), vector, back, length), 0);
    EXPECT_EQ(length, 10U);
    EXPECT_EQ(to_text(back), "plain text");
}

TEST(StorageForm, FailuresNameTheirStep) {
    const LoggedLines log;
    Bytes out(15, 0xEE);
    std::uint32_t length = kUntouched;
    EXPECT_EQ(Encode_Storage(bytes_of("x"), {}, {}, Bytes(16), out, length), 99);
    EXPECT_EQ(Encode_Storage(bytes_of("x"), {}, {}, Bytes(15), out, length), 99);
    EXPECT_EQ(Decode_Storage(Bytes(15), {}, {}, Bytes(16), out, length), 99);
    EXPECT_EQ(length, kUntouched);
    EXPECT_EQ(out, Bytes(15, 0xEE));
    EXPECT_THAT(log.all(), ElementsAre("AES Error[-108]", "ERROR[52]: AES Encrypt failed[99].",
                                       "AES Error[-50]", "ERROR[52]: AES Encrypt failed[99].",
                                       "AES Error[-25]", "ERROR[97]: AES Decrypt failed[99]."));
}

// Writing bytes out.

TEST(OutputData, WritesTheBytesToTheFile) {
    const platform::testing::TemporaryDirectory directory;
    const LoggedLines log;
    outputData(bytes_of(std::string_view("a\0\xFF\r\n", 5)), directory / "blob");
    EXPECT_EQ(platform::testing::read_test_file(directory / "blob"), std::string("a\0\xFF\r\n", 5));
    outputData({}, directory / "blob");
    EXPECT_EQ(platform::testing::read_test_file(directory / "blob"), "");
    EXPECT_THAT(log.all(), IsEmpty());
}

TEST(OutputData, SaysThatAFileCannotBeOpened) {
    const platform::testing::TemporaryDirectory directory;
    const LoggedLines log;
    outputData(bytes_of("x"), directory / "missing/blob");
    outputData(bytes_of("x"), directory.path());
    outputData(bytes_of("x"), "");
    EXPECT_FALSE(std::filesystem::exists(directory / "missing"));
    EXPECT_THAT(log.all(), ElementsAre("cannot open file", "cannot open file", "cannot open file"));
}

// The constants.

TEST(SecretConstants, FingerprintsAreOfTheKeysThatAreBuiltIn) {
    const auto small = SecBlobEnc_Decode_Key(RSA_PUBKEY_2048_OFFICIAL());
    const auto large = SecBlobEnc_Decode_Key(RSA_PUBKEY_3072_OFFICIAL());
    ASSERT_TRUE(small && large);
    EXPECT_EQ(pubkey2048_OFFICIAL_SHA256(), platform::sha256(*small));
    EXPECT_EQ(pubkey3072_OFFICIAL_SHA256(), platform::sha256(*large));
    platform::CryptoError error;
    EXPECT_EQ(platform::SecKeyCreateEncryptedData(*small, {}, error)->size(), 2048U / 8);
    EXPECT_EQ(platform::SecKeyCreateEncryptedData(*large, {}, error)->size(), 3072U / 8);
}

} // namespace
} // namespace specialpages
