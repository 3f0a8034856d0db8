#include "support/input_filter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {

static bool operator==(const CodeRange& a, const CodeRange& b) {
    return a.low == b.low && a.high == b.high;
}

static void PrintTo(const CodeRange& range, std::ostream* stream) {
    *stream << range.low << " to " << range.high;
}

namespace {

using ::testing::ElementsAreArray;

constexpr std::string_view kIllFormed = "1\xFF";

/// A field that accepts these ranges, byte-wise and character-wise.
TextEditFilterData accepting(InputFilterData set) {
    return {set, set, "key"};
}

constexpr std::array kKatakanaKa{CodeRange{0x30AB, 0x30AB}};
constexpr std::array kLetters{CodeRange{'a', 'z'}};

// The tables.

struct TableRow {
    const char* name;
    const TextEditFilterData& table;
    std::vector<CodeRange> ranges;
    const char* messageKey;
};

std::vector<TableRow> all_tables() {
    const std::vector<CodeRange> digits{{48, 57}};
    const std::vector<CodeRange> decimal{{46, 46}, {48, 57}};
    return {
        {"width mm", SPCustomSizeWidthMMFilterData, decimal, "Message22_Millimeters_Width"},
        {"length mm", SPCustomSizeLengthMMFilterData, decimal, "Message22_Millimeters_Length"},
        {"length inch", SPCustomSizeLengthInchFilterData, decimal, "Message22_Inchs_Length"},
        {"width inch", SPCustomSizeWidthInchFilterData, decimal, "Message22_Inchs_Width"},
        {"page define", pageDefineFilterData, {{32, 32}, {44, 44}, {48, 57}, {45, 45}}, "Warning46"},
        {"insert pages", SPInstPageNumEditFilterData, {{48, 57}, {44, 45}, {32, 32}}, "Warning44"},
        {"insert quantity", SPInstQuantityEditFilterData, digits, "Warning45"},
        {"sequence sub", SPNumInSequenceSubFilterData, digits, "Message22k"},
        {"sequence", SPNumInSequenceFilterData, digits, "Message22k"},
        {"tab margin mm", SPTabMarginMMFilterData, decimal, "Message22b"},
        {"tab margin inch", SPTabMarginInchFilterData, decimal, "Message22b2"},
    };
}

TEST(InputFilterTables, HoldTheirRangesInBothSetsAndTheirMessage) {
    for (const TableRow& row : all_tables()) {
        SCOPED_TRACE(row.name);
        EXPECT_THAT(row.table.byteSet, ElementsAreArray(row.ranges));
        EXPECT_THAT(row.table.characterSet, ElementsAreArray(row.ranges));
        EXPECT_STREQ(row.table.messageKey, row.messageKey);
        EXPECT_LE(row.table.byteSet.size(), kMaxFilterRanges);
    }
}

TEST(InputFilterTables, AcceptExactlyTheirCharactersOfAllASCII) {
    for (const TableRow& row : all_tables()) {
        SCOPED_TRACE(row.name);
        for (char code = 0; code < 127; ++code) {
            bool expected = false;
            for (const CodeRange& range : row.ranges) {
                expected = expected || (range.low <= code && code <= range.high);
            }
            const std::string text(1, code);
            EXPECT_EQ(validateInput(text, row.table), expected) << int{code};
            EXPECT_EQ(validateInputForUTF8(text, row.table), expected) << int{code};
            EXPECT_EQ(validateDensityInput(text, row.table), expected) << int{code};
        }
    }
}

// validateInput

TEST(ValidateInput, AcceptsAnEmptyTextWhateverTheTable) {
    for (const TableRow& row : all_tables()) {
        EXPECT_TRUE(validateInput("", row.table)) << row.name;
        EXPECT_TRUE(validateInputForUTF8("", row.table)) << row.name;
        EXPECT_TRUE(validateDensityInput("", row.table)) << row.name;
    }
    EXPECT_TRUE(validateInput("", TextEditFilterData{}));
    EXPECT_TRUE(validateInputForUTF8("", TextEditFilterData{}));
    EXPECT_TRUE(validateDensityInput("", TextEditFilterData{}));
}

TEST(ValidateInput, RefusesEveryCharacterWithoutRanges) {
    EXPECT_FALSE(validateInput("1", TextEditFilterData{}));
    EXPECT_FALSE(validateInputForUTF8("1", TextEditFilterData{}));
    EXPECT_FALSE(validateDensityInput("1", TextEditFilterData{}));
}

TEST(ValidateInput, KnowsAPageListFromItsSemicolonCousin) {
    EXPECT_TRUE(validateInput("1-3, 5", pageDefineFilterData));
    EXPECT_FALSE(validateInput("1;3", pageDefineFilterData));
    EXPECT_FALSE(validateInput("1-3, 5;", pageDefineFilterData));
    EXPECT_FALSE(validateInput(";1-3, 5", pageDefineFilterData));
}

TEST(ValidateInput, ReadsTheCharacterSetOnly) {
    const TextEditFilterData split{kLetters, kKatakanaKa, "key"};
    EXPECT_TRUE(validateInput("カ", split));
    EXPECT_FALSE(validateInput("a", split));
    EXPECT_TRUE(validateInputForUTF8("カ", split));
    EXPECT_FALSE(validateInputForUTF8("a", split));
    EXPECT_TRUE(validateDensityInput("a", split));
    EXPECT_FALSE(validateDensityInput("カ", split));
}

TEST(ValidateInput, IncludesBothBoundsOfARange) {
    constexpr std::array range{CodeRange{'b', 'd'}};
    EXPECT_TRUE(validateInput("bcd", accepting(range)));
    EXPECT_FALSE(validateInput("a", accepting(range)));
    EXPECT_FALSE(validateInput("e", accepting(range)));
}

TEST(ValidateInput, AcceptsAHalfWidthMarkAfterABaseOfTheSetWithoutLookingItUp) {
    EXPECT_TRUE(validateInput("カ\uFF9E", accepting(kKatakanaKa)));
    EXPECT_TRUE(validateInput("カ\uFF9F", accepting(kKatakanaKa)));
    EXPECT_TRUE(validateInput("カ\uFF9Eカカ\uFF9F", accepting(kKatakanaKa)));
    EXPECT_FALSE(validateInputForUTF8("カ\uFF9E", accepting(kKatakanaKa)));
    EXPECT_FALSE(validateInputForUTF8("カ\uFF9F", accepting(kKatakanaKa)));
}

TEST(ValidateInput, RefusesAHalfWidthMarkAfterABaseOutsideTheSet) {
    EXPECT_FALSE(validateInput("キ\uFF9E", accepting(kKatakanaKa)));
    EXPECT_FALSE(validateInput("キ\uFF9Eカ", accepting(kKatakanaKa)));
}

TEST(ValidateInput, LooksAHalfWidthMarkUpThatHasNoBase) {
    EXPECT_FALSE(validateInput("\uFF9E", accepting(kKatakanaKa)));
    constexpr std::array mark{CodeRange{0xFF9E, 0xFF9E}};
    EXPECT_TRUE(validateInput("\uFF9E", accepting(mark)));
    // After a line break the mark stands alone as well.
    constexpr std::array lineBreak{CodeRange{'\n', '\n'}};
    EXPECT_FALSE(validateInput("\n\uFF9E", accepting(lineBreak)));
}

TEST(ValidateInput, LooksUpEveryMarkButTheLast) {
    EXPECT_FALSE(validateInput("カ\uFF9E\uFF9F", accepting(kKatakanaKa)));
    constexpr std::array kaAndMark{CodeRange{0x30AB, 0x30AB}, CodeRange{0xFF9E, 0xFF9E}};
    EXPECT_TRUE(validateInput("カ\uFF9E\uFF9F", accepting(kaAndMark)));
    EXPECT_FALSE(validateInput("カ\uFF9F\uFF9E", accepting(kaAndMark)));
}

TEST(ValidateInput, RefusesTheNeighboursOfTheHalfWidthMarks) {
    // U+FF9D and U+FFA0 are characters of their own.
    EXPECT_FALSE(validateInput("カ\uFF9D", accepting(kKatakanaKa)));
    EXPECT_FALSE(validateInput("カ\uFFA0", accepting(kKatakanaKa)));
}

TEST(ValidateInput, RefusesAnyOtherCombiningMarkAfterAValidLetter) {
    EXPECT_FALSE(validateInput("e\u0301", accepting(kLetters)));
    EXPECT_FALSE(validateInputForUTF8("e\u0301", accepting(kLetters)));
    // The full-width voiced sound mark is such a mark too.
    EXPECT_FALSE(validateInput("カ\u3099", accepting(kKatakanaKa)));
    EXPECT_FALSE(validateInputForUTF8("カ\u3099", accepting(kKatakanaKa)));
}

TEST(ValidateInput, RefusesACombiningMarkThatTheSetHolds) {
    constexpr std::array letterAndMark{CodeRange{'e', 'e'}, CodeRange{0x301, 0x301}};
    EXPECT_FALSE(validateInput("e\u0301", accepting(letterAndMark)));
    EXPECT_TRUE(validateInputForUTF8("e\u0301", accepting(letterAndMark)));
}

TEST(ValidateInput, RefusesASurrogatePairWhoseHalvesTheSetHolds) {
    constexpr std::array surrogates{CodeRange{0xD800, 0xDFFF}};
    EXPECT_FALSE(validateInput("\U0001F600", accepting(surrogates)));
    EXPECT_TRUE(validateInputForUTF8("\U0001F600", accepting(surrogates)));
    EXPECT_FALSE(validateInputForUTF8("\U0001F600", accepting(kLetters)));
}

TEST(ValidateInput, LooksUpBothHalvesOfASurrogatePairBeforeAHalfWidthMark) {
    constexpr std::array both{CodeRange{0xD83D, 0xD83D}, CodeRange{0xDE00, 0xDE00}};
    constexpr std::array firstOnly{CodeRange{0xD83D, 0xD83D}};
    EXPECT_TRUE(validateInput("\U0001F600\uFF9E", accepting(both)));
    EXPECT_FALSE(validateInput("\U0001F600\uFF9E", accepting(firstOnly)));
}

TEST(ValidateInput, TakesALineBreakOfTwoUnitsForOneCharacter) {
    constexpr std::array breaks{CodeRange{'\n', '\n'}, CodeRange{'\r', '\r'}};
    EXPECT_TRUE(validateInput("\n\r", accepting(breaks)));
    EXPECT_FALSE(validateInput("\r\n", accepting(breaks)));
    EXPECT_TRUE(validateInputForUTF8("\r\n", accepting(breaks)));
}

TEST(ValidateInput, RefusesIllFormedTextWhateverTheSet) {
    constexpr std::array everything{CodeRange{0, 0xFFFF}};
    EXPECT_FALSE(validateInput(kIllFormed, accepting(everything)));
    EXPECT_FALSE(validateInputForUTF8(kIllFormed, accepting(everything)));
}

TEST(ValidateInput, GoesPastAZeroCharacter) {
    using namespace std::string_view_literals;
    EXPECT_FALSE(validateInput("1\0"sv, SPInstQuantityEditFilterData));
    EXPECT_FALSE(validateInputForUTF8("1\0"sv, SPInstQuantityEditFilterData));
    EXPECT_FALSE(validateDensityInput("1\0"sv, SPInstQuantityEditFilterData));
}

TEST(ValidateInput, RefusesDigitsOfOtherScripts) {
    EXPECT_FALSE(validateInput("７", SPInstQuantityEditFilterData));
    EXPECT_FALSE(validateInputForUTF8("٣", SPInstQuantityEditFilterData));
}

TEST(ValidateInput, FindsTheOneWrongCharacterAtTheEndOfALongText) {
    std::string text(100000, '7');
    EXPECT_TRUE(validateInput(text, SPInstQuantityEditFilterData));
    text.back() = ',';
    EXPECT_FALSE(validateInput(text, SPInstQuantityEditFilterData));
    EXPECT_FALSE(validateInputForUTF8(text, SPInstQuantityEditFilterData));
}

// Single codes and bytes.

TEST(InputFilterCodes, LieInTheRangesOrNot) {
    constexpr std::array ranges{CodeRange{'0', '9'}, CodeRange{0x3000, 0x3001}};
    for (const auto check : {ISWordValid, ISWordSpace}) {
        EXPECT_TRUE(check(u'0', ranges));
        EXPECT_TRUE(check(u'9', ranges));
        EXPECT_TRUE(check(u'\u3001', ranges));
        EXPECT_FALSE(check(u'/', ranges));
        EXPECT_FALSE(check(u':', ranges));
        EXPECT_FALSE(check(u'\u3002', ranges));
        EXPECT_FALSE(check(u'0', InputFilterData{}));
    }
}

TEST(InputFilterCodes, ARangeWithItsBoundsExchangedHoldsNothing) {
    constexpr std::array exchanged{CodeRange{'9', '0'}};
    EXPECT_FALSE(ISWordValid(u'5', exchanged));
    EXPECT_FALSE(ISByteValid('5', exchanged));
}

TEST(InputFilterCodes, TheLastOfTwentyRangesCountsToo) {
    std::array<CodeRange, kMaxFilterRanges> ranges{};
    ranges.fill({'a', 'a'});
    ranges.back() = {'z', 'z'};
    EXPECT_TRUE(ISWordValid(u'z', ranges));
    EXPECT_TRUE(ISByteValid('z', ranges));
    EXPECT_TRUE(validateInput("az", accepting(ranges)));
}

TEST(InputFilterBytes, AreComparedWithTheLowBytesOfTheBounds) {
    constexpr std::array ranges{CodeRange{0x3041, 0x3043}};
    EXPECT_TRUE(ISByteValid(0x41, ranges));
    EXPECT_TRUE(ISByteValid(0x43, ranges));
    EXPECT_FALSE(ISByteValid(0x40, ranges));
    EXPECT_FALSE(ISByteValid(0x44, ranges));
    EXPECT_FALSE(ISWordValid(0x41, ranges));
    EXPECT_TRUE(validateDensityInput("ABC", accepting(ranges)));
    EXPECT_FALSE(validateDensityInput("ABCD", accepting(ranges)));
}

TEST(InputFilterBytes, AreUnsigned) {
    constexpr std::array upper{CodeRange{0x80, 0xFF}};
    EXPECT_TRUE(ISByteValid(0x80, upper));
    EXPECT_TRUE(ISByteValid(0xFF, upper));
    EXPECT_FALSE(ISByteValid(0x7F, upper));
    // No text is asked for here: any bytes will do.
    EXPECT_TRUE(validateDensityInput("\xFF\x80", accepting(upper)));
    EXPECT_FALSE(validateDensityInput("\xFF\x7F", accepting(upper)));
}

TEST(InputFilterBytes, AreNoneInAnEmptySet) {
    EXPECT_FALSE(ISByteValid(0, InputFilterData{}));
    EXPECT_FALSE(ISByteValid('0', InputFilterData{}));
}

// Spaces.

TEST(IsAllSpace, HoldsForSpacesAndIdeographicSpacesAndForNothing) {
    EXPECT_TRUE(IsAllSpace(""));
    EXPECT_TRUE(IsAllSpace("   "));
    EXPECT_TRUE(IsAllSpace("\u3000\u3000"));
    EXPECT_TRUE(IsAllSpace(" \u3000 "));
}

TEST(IsAllSpace, DoesNotHoldForAnythingElse) {
    EXPECT_FALSE(IsAllSpace(" a "));
    EXPECT_FALSE(IsAllSpace("\t"));
    EXPECT_FALSE(IsAllSpace("\n"));
    EXPECT_FALSE(IsAllSpace("\u00A0"));
    EXPECT_FALSE(IsAllSpace("\u3001"));
    EXPECT_FALSE(IsAllSpace(" \xFF"));
}

TEST(RemoveAllSpaces, TakesOutU0020OnlyAndKeepsTheOrder) {
    EXPECT_EQ(RemoveAllSpaces(" 1 -  3, 5 "), u"1-3,5");
    EXPECT_EQ(RemoveAllSpaces(""), u"");
    EXPECT_EQ(RemoveAllSpaces("   "), u"");
    EXPECT_EQ(RemoveAllSpaces("a\tb\u00A0c"), u"a\tb\u00A0c");
}

TEST(RemoveAllSpaces, LeavesIdeographicSpacesIn) {
    EXPECT_EQ(RemoveAllSpaces("\u3000 \u3000"), u"\u3000\u3000");
}

TEST(RemoveAllSpaces, CountsInUnits) {
    EXPECT_EQ(RemoveAllSpaces("\U0001F600 カ"), u"\U0001F600カ");
    EXPECT_EQ(RemoveAllSpaces("\U0001F600 カ").size(), 3U);
}

TEST(RemoveAllSpaces, FindsNoUnitsInIllFormedText) {
    EXPECT_EQ(RemoveAllSpaces(kIllFormed), u"");
}

// Digits.

TEST(ExistNumericString, AZeroAloneIsNotNumeric) {
    EXPECT_FALSE(ExistNumericString("a0"));
    EXPECT_FALSE(ExistNumericString("0"));
    EXPECT_FALSE(ExistNumericString("000"));
}

TEST(ExistNumericString, FindsEveryOtherDigitAnywhere) {
    EXPECT_TRUE(ExistNumericString("a7"));
    EXPECT_TRUE(ExistNumericString("10"));
    for (char digit = '1'; digit <= '9'; ++digit) {
        EXPECT_TRUE(ExistNumericString(std::string(1, digit))) << digit;
        EXPECT_TRUE(ExistNumericString("カ" + std::string(1, digit) + "0")) << digit;
    }
}

TEST(ExistNumericString, FindsNoneInOtherTexts) {
    EXPECT_FALSE(ExistNumericString(""));
    EXPECT_FALSE(ExistNumericString("abc"));
    EXPECT_FALSE(ExistNumericString("７"));
    EXPECT_FALSE(ExistNumericString(kIllFormed));
}

// Locations.

TEST(OldLocationLength, OfZeroIsZeroOnAnyText) {
    EXPECT_EQ(getOldLocationlength("", 0), 0);
    EXPECT_EQ(getOldLocationlength("abc", 0), 0);
    EXPECT_EQ(getOldLocationlength("e\u0301a", 0), 0);
    EXPECT_EQ(getOldLocationlength(kIllFormed, 0), 0);
}

TEST(OldLocationLength, OfABoundaryIsTheBoundary) {
    // Units: a, e U+0301, a surrogate pair, カ U+FF9E.
    const std::string text = "ae\u0301\U0001F600カ\uFF9E";
    for (const std::int32_t boundary : {0, 1, 3, 5, 7}) {
        EXPECT_EQ(getOldLocationlength(text, boundary), boundary);
    }
}

TEST(OldLocationLength, InsideACharacterIsTheEndOfTheNextOne) {
    const std::string text = "ae\u0301\U0001F600カ\uFF9E";
    EXPECT_EQ(getOldLocationlength(text, 2), 5);
    EXPECT_EQ(getOldLocationlength(text, 4), 7);
    EXPECT_EQ(getOldLocationlength("e\u0301\u0302a", 1), 4);
    EXPECT_EQ(getOldLocationlength("e\u0301\u0302a", 2), 4);
}

TEST(OldLocationLength, InsideTheLastCharacterIsTheEnd) {
    EXPECT_EQ(getOldLocationlength("ae\u0301", 2), 3);
}

TEST(OldLocationLength, PastTheEndIsTheEnd) {
    EXPECT_EQ(getOldLocationlength("abc", 4), 3);
    EXPECT_EQ(getOldLocationlength("abc", std::numeric_limits<std::int32_t>::max()), 3);
    EXPECT_EQ(getOldLocationlength("", 5), 0);
    EXPECT_EQ(getOldLocationlength(kIllFormed, 1), 0);
}

TEST(OldLocationLength, BeforeTheStartIsTheEndOfTheFirstCharacter) {
    EXPECT_EQ(getOldLocationlength("e\u0301a", -1), 2);
    EXPECT_EQ(getOldLocationlength("abc", std::numeric_limits<std::int32_t>::min()), 1);
    EXPECT_EQ(getOldLocationlength("", -1), 0);
}

} // namespace
} // namespace specialpages
