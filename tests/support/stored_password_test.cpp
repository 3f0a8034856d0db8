#include "support/bytes.h"
#include "support/nsp_coders.h"
#include "support/secret_constants.h"
#include "support/secure_blob.h"
#include "support/stored_password.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>

namespace specialpages {
namespace {

using test::LoggedLines;
using testing::ElementsAre;
using testing::IsEmpty;

/// The Base64 text, or "(status)".
std::string stored(std::string_view plain, std::size_t capacity = kTicketCipherBytes) {
    const CipherResult result = encipher_password(plain, capacity);
    return result.status == 0 ? result.text.value_or("(too long)")
                              : "(" + std::to_string(result.status) + ")";
}

std::string read_back(std::string_view text) {
    const CipherResult result = decipher_password(text);
    return result.status == 0 ? result.text.value_or("(null)") : "(" + std::to_string(result.status) + ")";
}

/// What any bytes are stored as, whether a password holds them or not.
std::string stored_bytes(std::string_view bytes) {
    platform::Bytes cipher(256);
    std::uint32_t size = 0;
    EXPECT_EQ(Encode_Storage(platform::bytes_of(bytes), seed1, seed2, seed3, cipher, size), 0);
    cipher.resize(size);
    return platform::base64_text(cipher);
}

// With S1, S2 and S3 the seeds in hexadecimal:
//   K=$(echo -n $S2 | xxd -r -p | openssl dgst -sha256 -mac HMAC -macopt hexkey:$S1 -r | cut -d' ' -f1)
//   printf secret | openssl enc -aes-256-cbc -K $K -iv $S3 -base64 -A
TEST(StoredPassword, IsTheKnownText) {
    EXPECT_EQ(stored("secret"), "sUA4p7hcZW4z3x7PPSq0lQ==");
    EXPECT_EQ(stored("a"), "xmQMNcswXdNuniTwQYx05g==");
    EXPECT_EQ(stored(std::string(16, 'x')), "H8Ix5rNv2bNWagPD4b3HAK9DHqVUJHXcb61QkVpz/TU=");
    EXPECT_EQ(read_back("sUA4p7hcZW4z3x7PPSq0lQ=="), "secret");
    EXPECT_EQ(read_back("H8Ix5rNv2bNWagPD4b3HAK9DHqVUJHXcb61QkVpz/TU="), std::string(16, 'x'));
}

TEST(StoredPassword, AnEmptyOneStaysEmpty) {
    EXPECT_EQ(stored(""), "");
    EXPECT_EQ(stored("", 0), "");
}

// printf '\xc3' and printf '\xe3\x81\x82\xe3\x81' in place of the secret.
TEST(StoredPassword, HasAsManyBytesAsTheTextHasColumns) {
    EXPECT_EQ(stored("\xC3\xA9"), "OoZTAnBi7/KFsJ13m6YlNg==") << "an accented letter is one column";
    EXPECT_EQ(read_back(stored("\xC3\xA9")), "\xC3");
    EXPECT_EQ(stored("\xE3\x81\x82\xE3\x81\x84"), stored_bytes("\xE3\x81\x82\xE3"))
        << "two wide characters are four columns of their six bytes";
    EXPECT_EQ(read_back(stored("\xF0\x9F\x98\x80")), "\xF0\x9F\x98\x80")
        << "a surrogate pair is four columns";
    EXPECT_EQ(read_back(stored("\xD0\x96")), "\xD0\x96") << "and so are two bytes beyond Latin-1";
}

TEST(StoredPassword, IllFormedTextIsRefused) {
    const LoggedLines log;
    EXPECT_EQ(stored("\xFF"), "(2)");
    EXPECT_EQ(stored("secret\xC3"), "(2)");
    EXPECT_THAT(log.all(), IsEmpty());
}

TEST(StoredPassword, HoldsUpTo175Bytes) {
    EXPECT_EQ(stored(std::string(175, 'x')).size(), 236U);
    EXPECT_EQ(read_back(stored(std::string(175, 'x'))), std::string(175, 'x'));
    EXPECT_EQ(stored(std::string(176, 'x')), "(too long)");
    EXPECT_EQ(stored(std::string(239, 'x'), kPreferenceCipherBytes), "(too long)");
}

TEST(StoredPassword, ThePreferencesCipherHasAByteLess) {
    const LoggedLines log;
    EXPECT_EQ(stored(std::string(240, 'x'), kTicketCipherBytes), "(too long)");
    EXPECT_THAT(log.all(), IsEmpty()) << "the cipher itself did not fail";
    EXPECT_EQ(stored(std::string(240, 'x'), kPreferenceCipherBytes), "(99)");
    EXPECT_EQ(stored(std::string(256, 'x'), kTicketCipherBytes), "(99)");
    EXPECT_EQ(stored(std::string(100000, 'x'), kTicketCipherBytes), "(99)");
    EXPECT_EQ(stored("x", 15), "(99)");
    EXPECT_THAT(log.all().front(), "AES Error[-108]");
    EXPECT_THAT(log.all().at(1), "ERROR[52]: AES Encrypt failed[99].");
}

TEST(StoredPassword, ReadingStopsAtAZeroByte) {
    EXPECT_EQ(read_back(stored_bytes(std::string_view("ab\0cd", 5))), "ab");
    EXPECT_EQ(read_back(stored_bytes("")), "");
    EXPECT_EQ(read_back(stored_bytes("\xFF\xFE")), "\xFF\xFE") << "what was stored need not be text";
}

TEST(StoredPassword, WhatIsNotStoredFormIsRefused) {
    const LoggedLines log;
    EXPECT_EQ(read_back(""), "(-2)");
    EXPECT_EQ(read_back(std::string_view()), "(-2)");
    EXPECT_EQ(read_back("abc"), "(-2)");
    EXPECT_EQ(read_back("abcde"), "(-2)");
    EXPECT_EQ(read_back(std::string(256, 'A')), "(-2)") << "past what is ever stored";
    EXPECT_EQ(read_back(std::string(100000, 'A')), "(-2)");
    EXPECT_THAT(log.all(), IsEmpty());
    EXPECT_EQ(read_back("AAAA"), "(99)");
    EXPECT_EQ(read_back("===="), "(99)");
    EXPECT_EQ(read_back("sUA4p7hcZW4z3x7PPSq0lA=="), "(99)") << "the last bit is the padding's";
    EXPECT_EQ(log.all().size(), 6U);
    for (std::size_t i = 0; i < log.all().size(); i += 2) {
        EXPECT_EQ(log.all()[i], "AES Error[-25]");
        EXPECT_EQ(log.all()[i + 1], "ERROR[97]: AES Decrypt failed[99].");
    }
}

TEST(StoredPassword, NoLogLineHoldsAnythingSecret) {
    const LoggedLines log;
    encipher_password(std::string(256, 'S'), kTicketCipherBytes);
    decipher_password("U2VjcmV0U2VjcmV0");
    EXPECT_FALSE(log.all().empty());
    for (const std::string& line : log.all()) {
        EXPECT_EQ(line.find("SSS"), std::string::npos);
        EXPECT_EQ(line.find("Secret"), std::string::npos);
        EXPECT_EQ(line.find("U2Vj"), std::string::npos);
    }
}

RC_GTEST_PROP(StoredPasswordProperty, AnAsciiPasswordComesBack, ()) {
    const auto plain = *rc::gen::resize(175, rc::gen::container<std::string>(rc::gen::inRange<char>(1, 127)));
    RC_PRE(!plain.empty() && plain.size() <= 175);
    RC_ASSERT(read_back(stored(plain)) == plain);
    RC_ASSERT(stored(plain).size() <= kMaxStoredPasswordBytes);
}

} // namespace
} // namespace specialpages
