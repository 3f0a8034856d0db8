#include "support/slash_decimal.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace specialpages {
namespace {

using namespace std::string_literals;
using Reason = SlashDecimalError::Reason;

TEST(SlashDecimal, IsNeededForALeadingSlashAnApostropheACommaOrABackslash) {
    EXPECT_TRUE(needs_slash_decimal("/x"));
    EXPECT_TRUE(needs_slash_decimal("/"));
    EXPECT_TRUE(needs_slash_decimal("a'b"));
    EXPECT_TRUE(needs_slash_decimal("1,2"));
    EXPECT_TRUE(needs_slash_decimal("a\\"));
}

TEST(SlashDecimal, IsNotNeededForOtherTexts) {
    EXPECT_FALSE(needs_slash_decimal(""));
    EXPECT_FALSE(needs_slash_decimal("abc"));
    EXPECT_FALSE(needs_slash_decimal("a/b"));
    EXPECT_FALSE(needs_slash_decimal("\"{;}\" \n\xc3\xa9"));
}

TEST(SlashDecimal, EncodesEveryByteNotOnlyTheSpecialOnes) {
    EXPECT_EQ(encode_slash_decimal("1,2"), "/49/44/50");
    EXPECT_EQ(encode_slash_decimal("abc"), "/97/98/99");
    EXPECT_EQ(encode_slash_decimal(""), "");
}

TEST(SlashDecimal, EncodesBytesUnsignedAndWithoutPadding) {
    EXPECT_EQ(encode_slash_decimal("\x01\x09\x7f\x80\xff"), "/1/9/127/128/255");
    EXPECT_EQ(encode_slash_decimal("\0"s), "/0");
}

TEST(SlashDecimal, StoresTextsPlainlyOrEncodedAsNeeded) {
    EXPECT_EQ(ticket_text("/x"), "/47/120");
    EXPECT_EQ(ticket_text("a'b"), "/97/39/98");
    EXPECT_EQ(ticket_text("a\\b"), "/97/92/98");
    EXPECT_EQ(ticket_text("abc"), "abc");
    EXPECT_EQ(ticket_text("a/b"), "a/b");
    EXPECT_EQ(ticket_text("12"), "12");
    EXPECT_EQ(ticket_text(""), "");
}

TEST(SlashDecimal, StoresTheCommandsOfAnExampleJob) {
    EXPECT_EQ(
        ticket_text("0,1,print-none,NORMAL,white,21000,29700"),
        "/48/44/49/44/112/114/105/110/116/45/110/111/110/101/44/78/79/82/77/65/76/44/119/104/105/116/101/"
        "44/50/49/48/48/48/44/50/57/55/48/48");
    EXPECT_EQ(
        ticket_text("1,3,1,white,21000,29700,NORMAL"),
        "/49/44/51/44/49/44/119/104/105/116/101/44/50/49/48/48/48/44/50/57/55/48/48/44/78/79/82/77/65/76");
    EXPECT_EQ(
        ticket_text("1,1,1,5,7,two-sided-long-edge,NORMAL,white,21000,29700"),
        "/49/44/49/44/49/44/53/44/55/44/116/119/111/45/115/105/100/101/100/45/108/111/110/103/45/101/100/"
        "103/101/44/78/79/82/77/65/76/44/119/104/105/116/101/44/50/49/48/48/48/44/50/57/55/48/48");
}

TEST(SlashDecimal, SeesTheFirst255BytesOfAPlainText) {
    EXPECT_EQ(ticket_text(std::string(255, 'a')), std::string(255, 'a'));
    EXPECT_EQ(ticket_text(std::string(256, 'a')), std::string(255, 'a'));
    EXPECT_EQ(ticket_text(std::string(100'000, 'a')), std::string(255, 'a'));
}

TEST(SlashDecimal, ASpecialBytePastTheFirst255IsNotSeen) {
    EXPECT_EQ(ticket_text(std::string(255, 'a') + ","), std::string(255, 'a'));
    EXPECT_EQ(ticket_text(std::string(254, 'a') + ","), encode_slash_decimal(std::string(254, 'a') + ","));
}

TEST(SlashDecimal, NeverCutsTheEncodedForm) {
    const std::string longest(255, '\xff');
    const auto stored = ticket_text("," + longest);
    EXPECT_EQ(stored.size(), 3U + 254U * 4U);
    EXPECT_EQ(decode_slash_decimal(stored), "," + longest.substr(0, 254));
}

TEST(SlashDecimal, AZeroByteEndsTheText) {
    EXPECT_EQ(ticket_text("ab\0,c"s), "ab");
    EXPECT_EQ(ticket_text("a,\0b"s), "/97/44");
    EXPECT_EQ(ticket_text("\0,"s), "");
}

TEST(SlashDecimal, DecodesWhatItEncodes) {
    EXPECT_EQ(decode_slash_decimal("/49/44/50"), "1,2");
    EXPECT_EQ(decode_slash_decimal("/0"), "\0"s);
    EXPECT_EQ(decode_slash_decimal("/255/1"), "\xff\x01");
}

TEST(SlashDecimal, AnswersPlainTextsAsTheyAre) {
    EXPECT_EQ(decode_slash_decimal(""), "");
    EXPECT_EQ(decode_slash_decimal("abc"), "abc");
    EXPECT_EQ(decode_slash_decimal("a/999/b"), "a/999/b");
}

TEST(SlashDecimal, ReadsZerosAtTheHeadOfANumber) {
    EXPECT_EQ(decode_slash_decimal("/065/0000000000000066"), "AB");
}

TEST(SlashDecimal, RefusesAMissingNumberAndSaysWhere) {
    EXPECT_EQ(decode_slash_decimal("/"), std::nullopt);
    EXPECT_EQ(decode_slash_decimal("/65/"), std::nullopt);
    EXPECT_EQ(decode_slash_decimal("//65"), std::nullopt);
    EXPECT_EQ(std::get<SlashDecimalError>(read_slash_decimal("/")),
              (SlashDecimalError{Reason::empty_piece, 1}));
    EXPECT_EQ(std::get<SlashDecimalError>(read_slash_decimal("/65/")),
              (SlashDecimalError{Reason::empty_piece, 4}));
    EXPECT_EQ(std::get<SlashDecimalError>(read_slash_decimal("/65//66")),
              (SlashDecimalError{Reason::empty_piece, 4}));
}

TEST(SlashDecimal, RefusesAByteThatIsNoDigitAndSaysWhere) {
    EXPECT_EQ(std::get<SlashDecimalError>(read_slash_decimal("/6a")),
              (SlashDecimalError{Reason::non_digit, 2}));
    EXPECT_EQ(std::get<SlashDecimalError>(read_slash_decimal("/65/-1")),
              (SlashDecimalError{Reason::non_digit, 4}));
    EXPECT_EQ(std::get<SlashDecimalError>(read_slash_decimal("/ 65")),
              (SlashDecimalError{Reason::non_digit, 1}));
    EXPECT_EQ(decode_slash_decimal("/65 "), std::nullopt);
    EXPECT_EQ(decode_slash_decimal("/6\0"s), std::nullopt);
}

TEST(SlashDecimal, RefusesANumberAboveAByteAndSaysWhere) {
    EXPECT_EQ(std::get<SlashDecimalError>(read_slash_decimal("/65/256")),
              (SlashDecimalError{Reason::above_255, 4}));
    EXPECT_EQ(decode_slash_decimal("/99999999999999999999999999"), std::nullopt);
    EXPECT_EQ(decode_slash_decimal("/2555"), std::nullopt);
}

RC_GTEST_PROP(SlashDecimalProperty, EveryTextComesBackFromItsEncodedForm, (const std::string& text)) {
    RC_ASSERT(decode_slash_decimal(encode_slash_decimal(text)) == text);
}

RC_GTEST_PROP(SlashDecimalProperty, EveryShortTextComesBackFromWhatIsStored, ()) {
    const auto bytes = rc::gen::suchThat(rc::gen::arbitrary<char>(), [](char byte) { return byte != '\0'; });
    auto text = *rc::gen::container<std::string>(bytes);
    text.resize(std::min(text.size(), kMaxTicketTextBytes));
    const auto stored = ticket_text(text);
    RC_ASSERT(decode_slash_decimal(stored) == text);
    RC_ASSERT(stored.find_first_of("',\\") == std::string::npos);
}

} // namespace
} // namespace specialpages
