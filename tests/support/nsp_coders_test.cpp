#include "platform/services/cryptography.h"
#include "support/bytes.h"
#include "support/nsp_coders.h"
#include "support/secret_constants.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <vector>

namespace specialpages {
namespace {

using platform::Bytes;
using platform::bytes_of;
using test::to_hex;
using test::to_text;

struct Coded {
    std::int32_t status = 0;
    std::uint32_t length = 777;
    Bytes out;
};

using Coder = std::int32_t (*)(const unsigned char*, std::int32_t, unsigned char*, std::uint32_t*,
                               std::int32_t);

/// One byte more than the capacity, which has to stay as it is.
Coded coded(Coder coder, std::string_view in, std::size_t capacity) {
    Coded result;
    result.out.assign(capacity + 1, 0xEE);
    // A copy without a byte behind it, so that a reader past the end is seen.
    const Bytes exact(in.begin(), in.end());
    result.status = coder(exact.data(), static_cast<std::int32_t>(exact.size()), result.out.data(),
                          &result.length, static_cast<std::int32_t>(capacity));
    EXPECT_EQ(result.out.back(), 0xEE);
    result.out.pop_back();
    return result;
}

std::string text_of(const Coded& result) {
    return result.length <= result.out.size() ? to_text(std::span(result.out).first(result.length))
                                              : "(none)";
}

// RFC 4648, section 10.
const std::pair<const char*, const char*> kVectors[] = {{"f", "Zg=="},         {"fo", "Zm8="},
                                                        {"foo", "Zm9v"},       {"foob", "Zm9vYg=="},
                                                        {"fooba", "Zm9vYmE="}, {"foobar", "Zm9vYmFy"}};

TEST(NspBase64, WritesThePublishedTexts) {
    for (const auto& [plain, text] : kVectors) {
        const Coded result = coded(NSPBinToB64, plain, 8);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(text_of(result), text);
        const Coded exact = coded(NSPBinToB64, plain, std::string_view(text).size());
        EXPECT_EQ(exact.status, 0) << "no room for a terminator is needed";
        EXPECT_EQ(text_of(exact), text);
    }
}

TEST(NspBase64, TellsTheSizeThatWritingNeeds) {
    for (const auto& [length, needed] :
         {std::pair(1U, 4U), {2U, 4U}, {3U, 4U}, {4U, 8U}, {6U, 8U}, {7U, 12U}}) {
        for (const std::size_t capacity : {std::size_t{0}, std::size_t{needed - 1}}) {
            const Coded result = coded(NSPBinToB64, std::string(length, 'x'), capacity);
            EXPECT_EQ(result.status, -3) << length;
            EXPECT_EQ(result.length, needed) << length;
            EXPECT_EQ(result.out, Bytes(capacity, 0xEE));
        }
    }
}

TEST(NspBase64, TellsTheSizeOfTheLongestInput) {
    const unsigned char byte = 0;
    std::uint32_t length = 0;
    EXPECT_EQ(NSPBinToB64(&byte, std::numeric_limits<std::int32_t>::max(), nullptr, &length, 0), -3);
    EXPECT_EQ(length, 2863311532U);
}

TEST(NspBase64, WritingChecksPointersFirst) {
    const unsigned char in = 'x';
    unsigned char out = 0;
    std::uint32_t length = 777;
    EXPECT_EQ(NSPBinToB64(nullptr, 1, &out, &length, 1), -1);
    EXPECT_EQ(NSPBinToB64(&in, 1, &out, nullptr, 1), -1);
    EXPECT_EQ(NSPBinToB64(&in, 1, nullptr, &length, 4), -1);
    EXPECT_EQ(NSPBinToB64(&in, 1, nullptr, &length, -1), -1);
    EXPECT_EQ(NSPBinToB64(nullptr, -1, nullptr, nullptr, -1), -1);
    EXPECT_EQ(NSPBinToB64(&in, 0, &out, &length, 1), -2);
    EXPECT_EQ(NSPBinToB64(&in, -1, &out, &length, 1), -2);
    EXPECT_EQ(NSPBinToB64(&in, 1, &out, &length, -1), -2);
    EXPECT_EQ(length, 777U);
    EXPECT_EQ(NSPBinToB64(&in, 1, nullptr, &length, 0), -3) << "no output is needed to ask for the size";
    EXPECT_EQ(length, 4U);
}

TEST(NspBase64, ReadsThePublishedTexts) {
    for (const auto& [plain, text] : kVectors) {
        const Coded result = coded(NSPB64ToBin, text, std::string_view(plain).size());
        EXPECT_EQ(result.status, 0) << text;
        EXPECT_EQ(text_of(result), plain);
    }
    EXPECT_EQ(text_of(coded(NSPB64ToBin, "QQ==", 1)), "A");
    EXPECT_EQ(to_hex(coded(NSPB64ToBin, "+/+/", 3).out), "fbffbf");
}

TEST(NspBase64, ReadingChecksPointersThenLengths) {
    const unsigned char in[] = {'Q', 'Q', '=', '='};
    unsigned char out = 0;
    std::uint32_t length = 777;
    EXPECT_EQ(NSPB64ToBin(nullptr, 4, &out, &length, 1), -1);
    EXPECT_EQ(NSPB64ToBin(in, 4, &out, nullptr, 1), -1);
    EXPECT_EQ(NSPB64ToBin(in, 4, nullptr, &length, 1), -1);
    EXPECT_EQ(NSPB64ToBin(in, 3, nullptr, &length, 1), -1);
    for (const std::int32_t size : {0, -4, 1, 2, 3}) {
        EXPECT_EQ(NSPB64ToBin(in, size, &out, &length, 1), -2) << size;
    }
    EXPECT_EQ(NSPB64ToBin(in, 4, &out, &length, -1), -2);
    EXPECT_EQ(length, 777U);
    EXPECT_EQ(NSPB64ToBin(in, 4, nullptr, &length, 0), -3);
    EXPECT_EQ(length, 1U);
}

TEST(NspBase64, TellsTheSizeThatReadingNeeds) {
    for (const auto& [text, needed] : {std::pair("Zg==", 1U),
                                       {"Zm8=", 2U},
                                       {"Zm9v", 3U},
                                       {"Zm9vYg==", 4U},
                                       {"=g==", 1U},
                                       {"====", 0U},
                                       {"QUJD====", 2U},
                                       {"QQ==    ", 6U}}) {
        const Coded asked = coded(NSPB64ToBin, text, 0);
        EXPECT_EQ(asked.status, -3) << text;
        EXPECT_EQ(asked.length, needed) << text;
        if (needed > 1) {
            EXPECT_EQ(coded(NSPB64ToBin, text, needed - 1).status, -3) << text;
        }
    }
}

TEST(NspBase64, SkipsBlanksAnywhere) {
    EXPECT_EQ(text_of(coded(NSPB64ToBin, " \t\n\v\f\rZg", 6)), "f");
    EXPECT_EQ(text_of(coded(NSPB64ToBin, "Z m\n9\tv\v", 6)), "foo");
    const Coded blanks = coded(NSPB64ToBin, "    ", 3);
    EXPECT_EQ(blanks.status, 0);
    EXPECT_EQ(blanks.length, 0U);
}

TEST(NspBase64, StopsAtAZeroByteAndAtTheFirstEqualsSign) {
    EXPECT_EQ(text_of(coded(NSPB64ToBin, std::string_view("Zm9v\0m9v", 8), 6)), "foo");
    EXPECT_EQ(text_of(coded(NSPB64ToBin, "Zg==Zm9v", 6)), "f");
    EXPECT_EQ(text_of(coded(NSPB64ToBin, "Zm9v=AAA", 6)), "foo");
    EXPECT_EQ(text_of(coded(NSPB64ToBin, "====", 1)), "");
}

TEST(NspBase64, ALastGroupMayBeShort) {
    EXPECT_EQ(coded(NSPB64ToBin, "Z===", 1).length, 0U) << "six bits are no byte";
    EXPECT_EQ(text_of(coded(NSPB64ToBin, std::string_view("Zm8\0", 4), 3)), "fo");
}

TEST(NspBase64, ACharacterOutOfTheAlphabetSpoilsItsNeighbours) {
    // 255 in place of each value: 255<<2|m>>4, m<<4|9>>2, 9<<6|v and so on, each cut to eight bits.
    EXPECT_EQ(to_hex(coded(NSPB64ToBin, "!m9v", 3).out), "fe6f6f");
    EXPECT_EQ(to_hex(coded(NSPB64ToBin, "Z!9v", 3).out), "6fff6f");
    EXPECT_EQ(to_hex(coded(NSPB64ToBin, "Zm!v", 3).out), "667fef");
    EXPECT_EQ(to_hex(coded(NSPB64ToBin, "Zm9!", 3).out), "666fff");
    EXPECT_EQ(to_hex(coded(NSPB64ToBin, "\x80\xFF\xC3\xA9", 3).out), "ffffff") << "no byte is past the table";
}

TEST(NspBase64, NeverWritesMoreThanThereIsRoomFor) {
    const Coded result = coded(NSPB64ToBin, "QUJD====", 2);
    EXPECT_EQ(result.status, -3) << "four signs take a byte too many off the needed size";
    EXPECT_EQ(result.length, 3U);
    EXPECT_EQ(text_of(coded(NSPB64ToBin, "QUJD====", 3)), "ABC");
}

RC_GTEST_PROP(NspBase64Property, ReadsBackWhatItWrote, (const Bytes& bytes)) {
    RC_PRE(!bytes.empty());
    Bytes text((bytes.size() + 2) / 3 * 4);
    std::uint32_t length = 0;
    RC_ASSERT(NSPBinToB64(bytes.data(), static_cast<std::int32_t>(bytes.size()), text.data(), &length,
                          static_cast<std::int32_t>(text.size())) == 0);
    RC_ASSERT(length == text.size());
    Bytes back(bytes.size());
    RC_ASSERT(NSPB64ToBin(text.data(), static_cast<std::int32_t>(length), back.data(), &length,
                          static_cast<std::int32_t>(back.size())) == 0);
    RC_ASSERT(length == bytes.size());
    RC_ASSERT(back == bytes);
    RC_ASSERT(platform::base64_bytes(to_text(text)) == bytes);
}

// Combining with the tag b8 f4 a2 8c.

TEST(NspEncrypt, RepeatsTheTagFromTheStart) {
    EXPECT_EQ(to_hex(kNSPEncryptTag), "b8f4a28c");
    EXPECT_EQ(to_hex(coded(NSPEncrypt, std::string(6, '\0'), 6).out), "b8f4a28cb8f4");
    EXPECT_EQ(to_hex(coded(NSPEncrypt, "abcde", 5).out), "d996c1e8dd");
}

TEST(NspEncrypt, UndoesItselfInPlace) {
    Bytes bytes{1, 2, 3, 4, 5, 6, 7};
    std::uint32_t length = 0;
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(NSPEncrypt(bytes.data(), 7, bytes.data(), &length, 7), 0);
        EXPECT_EQ(length, 7U);
        EXPECT_EQ(bytes == (Bytes{1, 2, 3, 4, 5, 6, 7}), i == 1);
    }
}

TEST(NspEncrypt, ChecksItsArguments) {
    const unsigned char in = 1;
    unsigned char out = 0;
    std::uint32_t length = 777;
    EXPECT_EQ(NSPEncrypt(nullptr, 1, &out, &length, 1), -1);
    EXPECT_EQ(NSPEncrypt(&in, 1, nullptr, &length, 1), -1);
    EXPECT_EQ(NSPEncrypt(&in, 1, &out, nullptr, 1), -1);
    EXPECT_EQ(NSPEncrypt(&in, 1, nullptr, &length, 0), -1) << "there is no size query here";
    EXPECT_EQ(NSPEncrypt(&in, 0, &out, &length, 1), -2);
    EXPECT_EQ(NSPEncrypt(&in, -1, &out, &length, 1), -2);
    EXPECT_EQ(NSPEncrypt(&in, 1, &out, &length, 0), -2);
    EXPECT_EQ(NSPEncrypt(&in, 1, &out, &length, -1), -2);
    EXPECT_EQ(length, 777U);
}

TEST(NspEncrypt, KeepsTheWholeStepsThatFit) {
    const Coded inFirst = coded(NSPEncrypt, "abcde", 3);
    EXPECT_EQ(inFirst.status, -3);
    EXPECT_EQ(inFirst.length, 0U);
    EXPECT_EQ(to_hex(inFirst.out), "eeeeee");
    const Coded inLast = coded(NSPEncrypt, "abcdefg", 6);
    EXPECT_EQ(inLast.status, -3);
    EXPECT_EQ(inLast.length, 4U);
    EXPECT_EQ(to_hex(inLast.out), "d996c1e8eeee");
    EXPECT_EQ(coded(NSPEncrypt, "abcd", 4).status, 0);
    EXPECT_EQ(coded(NSPEncrypt, "abc", 3).status, 0);
    EXPECT_EQ(coded(NSPEncrypt, "abc", 2).length, 0U);
}

} // namespace
} // namespace specialpages
