#include "platform/foundation/text.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace specialpages::platform {
namespace {

using namespace std::string_literals;

TEST(Utf8, AcceptsTheEndsOfEveryLength) {
    for (const std::string& text : {""s, "\0"s, "\x7F"s, "\xC2\x80"s, "\xDF\xBF"s, "\xE0\xA0\x80"s,
                                    "\xED\x9F\xBF"s, "\xEE\x80\x80"s, "\xEF\xBF\xBF"s, "\xF0\x90\x80\x80"s,
                                    "\xF4\x8F\xBF\xBF"s, "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80z"s}) {
        EXPECT_TRUE(is_valid_utf8(text)) << ::testing::PrintToString(text);
    }
}

TEST(Utf8, RefusesOverlongFormsSurrogatesStrayBytesAndCutSequences) {
    for (const std::string& text :
         {"\x80"s, "\xBF"s, "\xC0\x80"s, "\xC1\xBF"s, "\xE0\x9F\xBF"s, "\xED\xA0\x80"s, "\xED\xBF\xBF"s,
          "\xF0\x8F\xBF\xBF"s, "\xF4\x90\x80\x80"s, "\xF5\x80\x80\x80"s, "\xFE"s, "\xFF"s, "\xC3"s,
          "\xE2\x82"s, "\xF0\x9F\x98"s, "a\xC3z"s}) {
        EXPECT_FALSE(is_valid_utf8(text)) << ::testing::PrintToString(text);
        EXPECT_EQ(utf16_from_utf8(text), std::nullopt) << ::testing::PrintToString(text);
        EXPECT_EQ(utf16_length(text), std::nullopt) << ::testing::PrintToString(text);
    }
}

TEST(Utf16, CountsUnitsSoThatACharacterPastTheBasicPlaneIsTwo) {
    EXPECT_EQ(utf16_length(""), 0U);
    EXPECT_EQ(utf16_length("abc"), 3U);
    EXPECT_EQ(utf16_length("\xC3\xA4\xE2\x82\xAC"), 2U);
    EXPECT_EQ(utf16_length("\xF0\x9F\x98\x80"), 2U);
    EXPECT_EQ(utf16_length("e\xCC\x81"), 2U);
    EXPECT_EQ(utf16_length("a\0b"s), 3U);
    EXPECT_EQ(utf16_length(std::string(1'000'000, 'x')), 1'000'000U);
}

TEST(Utf16, ComesFromUtf8) {
    EXPECT_EQ(utf16_from_utf8(""), u"");
    EXPECT_EQ(utf16_from_utf8("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"), u"a\u00E4\u20AC\U0001F600");
    EXPECT_EQ(utf16_from_utf8("\0a"s), std::u16string(u"\0a", 2));
}

TEST(Utf16, GoesToUtf8WithAReplacementForEachLoneSurrogate) {
    EXPECT_EQ(utf8_from_utf16(u""), "");
    EXPECT_EQ(utf8_from_utf16(u"a\u00E4\u20AC\U0001F600"), "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(utf8_from_utf16(std::u16string{0xD83D}), "\xEF\xBF\xBD");
    EXPECT_EQ(utf8_from_utf16(std::u16string{0xDE00, 0xD83D}), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(utf8_from_utf16(std::u16string{u'a', 0xD83D, u'b'}), "a\xEF\xBF\xBD"
                                                                   "b");
    EXPECT_EQ(utf8_from_utf16(std::u16string(u"\0a", 2)), "\0a"s);
}

RC_GTEST_PROP(Utf16, RoundTripsEveryWellFormedText, (const std::vector<char16_t>& units)) {
    const std::string text = utf8_from_utf16({units.data(), units.size()});
    const std::u16string back = utf16_from_utf8(text).value_or(u"ill-formed");
    RC_ASSERT(is_valid_utf8(text));
    RC_ASSERT(back.size() == units.size()); // a lone surrogate is replaced by one unit
    RC_ASSERT(utf16_length(text) == units.size());
    RC_ASSERT(utf8_from_utf16(back) == text);
}

TEST(Utf8Prefix, CutsAtCharacterBoundaries) {
    constexpr std::string_view kText = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80z";
    const std::size_t expected[] = {0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10, 11, 11};
    for (std::size_t bytes = 0; bytes < std::size(expected); ++bytes) {
        EXPECT_EQ(utf8_prefix(kText, bytes), kText.substr(0, expected[bytes])) << bytes;
    }
    EXPECT_EQ(utf8_prefix("", 0), "");
    EXPECT_EQ(utf8_prefix("", 5), "");
}

TEST(Utf8Prefix, CutsALongTextNearItsEnd) {
    std::string text(300, 'x');
    text += "\xE2\x82\xAC";
    EXPECT_EQ(utf8_prefix(text, 302).size(), 300U);
    EXPECT_EQ(utf8_prefix(text, 303).size(), 303U);
}

TEST(Utf8Prefix, KeepsStrayBytesThatBelongToNoCharacter) {
    EXPECT_EQ(utf8_prefix("\x80\x80\x80\x80\x80\x80", 5), "\x80\x80\x80\x80\x80");
}

RC_GTEST_PROP(Utf8Prefix, IsTheLongestWellFormedHead, (const std::vector<char16_t>& units)) {
    const std::string text = utf8_from_utf16({units.data(), units.size()});
    const auto limit = *rc::gen::inRange<std::size_t>(0, text.size() + 2);
    const std::string_view head = utf8_prefix(text, limit);
    RC_ASSERT(head.size() <= limit);
    RC_ASSERT(text.starts_with(head));
    RC_ASSERT(is_valid_utf8(head));
    for (std::size_t longer = head.size() + 1; longer <= std::min(limit, text.size()); ++longer) {
        RC_ASSERT_FALSE(is_valid_utf8(std::string_view(text).substr(0, longer)));
    }
}

TEST(ReplaceAll, GoesLeftToRightAndNotIntoWhatWasPutIn) {
    EXPECT_EQ(replace_all("a.b.c", ".", ", "), "a, b, c");
    EXPECT_EQ(replace_all("aaa", "aa", "b"), "ba");
    EXPECT_EQ(replace_all("aaaa", "a", "aa"), "aaaaaaaa");
    EXPECT_EQ(replace_all("abcabc", "bc", ""), "aa");
    EXPECT_EQ(replace_all("\xEF\xBF\xA4x\xEF\xBF\xA4", "\xEF\xBF\xA4", "|"), "|x|");
    EXPECT_EQ(replace_all("a\0b"s, "\0"s, "-"), "a-b");
}

TEST(ReplaceAll, ChangesNothingForAnEmptyOrMissingPattern) {
    EXPECT_EQ(replace_all("abc", "", "x"), "abc");
    EXPECT_EQ(replace_all("", "", "x"), "");
    EXPECT_EQ(replace_all("abc", "d", "x"), "abc");
    EXPECT_EQ(replace_all("ab", "abc", "x"), "ab");
}

TEST(ComposedCharacters, EndWhereTheNextBaseBegins) {
    using Ends = std::vector<std::size_t>;
    EXPECT_EQ(composed_character_ends(u""), Ends{});
    EXPECT_EQ(composed_character_ends(u"abc"), (Ends{1, 2, 3}));
    EXPECT_EQ(composed_character_ends(u"e\u0301\u0302a"), (Ends{3, 4}));
    EXPECT_EQ(composed_character_ends(u"\u1112\u1161\u11ABa"), (Ends{3, 4}));
    EXPECT_EQ(composed_character_ends(u"a\r\nb"), (Ends{1, 3, 4}));
}

TEST(ComposedCharacters, HoldTheHalfWidthVoicedMarksBehindTheirBase) {
    using Ends = std::vector<std::size_t>;
    EXPECT_EQ(composed_character_ends(u"\uFF76\uFF9E\uFF8A\uFF9F"), (Ends{2, 4}));
    EXPECT_EQ(composed_character_ends(u"カ\uFF9Ea\uFF9F"), (Ends{2, 4}));
    EXPECT_EQ(composed_character_ends(u"\uFF9E\uFF9F"), (Ends{2}));
    EXPECT_EQ(composed_character_ends(u"\n\uFF9E"), (Ends{1, 2}));
}

TEST(ComposedCharacters, HoldSurrogatePairsTogetherAndLoneSurrogatesApart) {
    using Ends = std::vector<std::size_t>;
    EXPECT_EQ(composed_character_ends(u"\U0001F600\U0001F600"), (Ends{2, 4}));
    EXPECT_EQ(composed_character_ends(u"\U0001F600\uFF9E\U00020BB7\u0301"), (Ends{3, 6}));
    const std::u16string lone{char16_t{0xD83D}, u'a', char16_t{0xDE00}, char16_t{0xD83D}};
    EXPECT_EQ(composed_character_ends(lone), (Ends{1, 2, 3, 4}));
}

TEST(TextEncodings, ReadTheEncodingsThatPrinterDescriptionsName) {
    EXPECT_EQ(utf8_from_encoding("gr\xFC\xDF", "ISO-8859-1"), "gr\xC3\xBC\xC3\x9F");
    EXPECT_EQ(utf8_from_encoding("\x80", "windows-1252"), "\xE2\x82\xAC");
    EXPECT_EQ(utf8_from_encoding("\x8A", "macintosh"), "\xC3\xA4");
    EXPECT_EQ(utf8_from_encoding("\x83\x65", "Shift_JIS"), "\xE3\x83\x86");
    EXPECT_EQ(utf8_from_encoding("\xC3\xA4", "UTF-8"), "\xC3\xA4");
    EXPECT_EQ(utf8_from_encoding("", "ISO-8859-1"), "");
    EXPECT_EQ(utf8_from_encoding("a\0b"s, "ISO-8859-1"), "a\0b"s);
}

TEST(TextEncodings, RefuseUnknownNamesAndIllFormedBytes) {
    EXPECT_EQ(utf8_from_encoding("a", "no-such-encoding"), std::nullopt);
    EXPECT_EQ(utf8_from_encoding("a", ""), std::nullopt);
    EXPECT_EQ(utf8_from_encoding("a", nullptr), std::nullopt);
    EXPECT_EQ(utf8_from_encoding("a\xFF", "UTF-8"), std::nullopt);
    EXPECT_EQ(utf8_from_encoding("a\xC3", "UTF-8"), std::nullopt);
    EXPECT_EQ(utf8_from_encoding("a\x83", "Shift_JIS"), std::nullopt);
}

TEST(TextEncodings, ReadLongTexts) {
    const std::string text = utf8_from_encoding(std::string(100'000, '\xE4'), "ISO-8859-1").value_or("");
    EXPECT_EQ(utf16_length(text), 100'000U);
    EXPECT_EQ(text.size(), 200'000U);
}

} // namespace
} // namespace specialpages::platform
