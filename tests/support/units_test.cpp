#include "platform/foundation/comma_locale.h"
#include "support/units.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cfenv>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace specialpages {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto kLargest = std::numeric_limits<std::int32_t>::max();
constexpr auto kSmallest = std::numeric_limits<std::int32_t>::min();

std::string zeros(std::size_t count) {
    return std::string(count, '0');
}

std::string with_separator(std::string_view text, char separator = ',') {
    std::vector<std::string> pieces;
    getStringBySeparator(pieces, text, separator);
    std::string shown;
    for (const std::string& piece : pieces) {
        shown += "[" + piece + "]";
    }
    return shown;
}

std::string decoded(std::string text, std::int32_t limit = 1000) {
    numstrtochar(text, limit);
    return text;
}

std::pair<std::int32_t, std::string> transformed(std::int32_t points, std::int32_t decimals,
                                                 std::int32_t type) {
    std::string text = "untouched";
    const std::int32_t value = TransformPointByType(&text, points, decimals, type);
    return {value, text};
}

using Transformed = std::pair<std::int32_t, std::string>;

// Tenths as text.

TEST(Units, TenthsHaveAPointBeforeTheLastDigit) {
    EXPECT_EQ(ConvertIntToFloatStr(123), "12.3");
    EXPECT_EQ(ConvertIntToFloatStr(10), "1.0");
    EXPECT_EQ(ConvertIntToFloatStr(2147483647), "214748364.7");
    EXPECT_EQ(ConvertIntToFloatStr(kSmallest), "-214748364.8");
}

TEST(Units, ASingleDigitOfTenthsGetsAZeroButASignedOneDoesNot) {
    EXPECT_EQ(ConvertIntToFloatStr(5), "0.5");
    EXPECT_EQ(ConvertIntToFloatStr(0), "0.0");
    EXPECT_EQ(ConvertIntToFloatStr(-5), "-.5");
}

TEST(Units, TextToTenthsDeletesThePointWithoutScaling) {
    EXPECT_EQ(ConvertFloatStrToInt("12.3"), 123);
    EXPECT_EQ(ConvertFloatStrToInt("12.34"), 1234);
    EXPECT_EQ(ConvertFloatStrToInt(".5"), 5);
    EXPECT_EQ(ConvertFloatStrToInt("12."), 12);
    EXPECT_EQ(ConvertFloatStrToInt("-.5"), -5);
    EXPECT_EQ(ConvertFloatStrToInt("1.2.3"), 12);
}

TEST(Units, TextToTenthsScalesWithoutAPoint) {
    EXPECT_EQ(ConvertFloatStrToInt("012"), 120);
    EXPECT_EQ(ConvertFloatStrToInt("00"), 0);
    EXPECT_EQ(ConvertFloatStrToInt("-7"), -70);
    EXPECT_EQ(ConvertFloatStrToInt("0-7"), -70); // the zeros go first, and a sign is in front then
    EXPECT_EQ(ConvertFloatStrToInt("12,5"), 120);
}

TEST(Units, TextToTenthsOfLessThanTwoBytes) {
    EXPECT_EQ(ConvertFloatStrToInt(""), 0);
    EXPECT_EQ(ConvertFloatStrToInt("7"), 70);
    EXPECT_EQ(ConvertFloatStrToInt("."), 0);
    EXPECT_EQ(ConvertFloatStrToInt(std::string_view("7\0.5", 4)), 70);
}

TEST(Units, TextToTenthsSaturates) {
    EXPECT_EQ(ConvertFloatStrToInt("99999999999.9"), kLargest);
    EXPECT_EQ(ConvertFloatStrToInt("214748365"), kLargest);
    EXPECT_EQ(ConvertFloatStrToInt("-214748365"), kSmallest);
    EXPECT_EQ(ConvertFloatStrToInt("214748364"), 2147483640);
}

// Millimetres.

TEST(Units, MillimetresInTenthsFromText) {
    EXPECT_EQ(GetMillimetreFromStr("123"), 1230);
    EXPECT_EQ(GetMillimetreFromStr("123.4"), 1234);
    EXPECT_EQ(GetMillimetreFromStr("12.34"), 1234);
    EXPECT_EQ(GetMillimetreFromStr("0.5"), 5);
    EXPECT_EQ(GetMillimetreFromStr("-3.5"), -35);
    EXPECT_EQ(GetMillimetreFromStr("-1"), -10);
}

TEST(Units, ATrailingPointSaysThatNothingWasScaled) {
    EXPECT_EQ(GetMillimetreFromStr("123."), 123);
}

TEST(Units, MillimetresOfNullEmptyAndUnreadableTextAreZero) {
    EXPECT_EQ(GetMillimetreFromStr(std::nullopt), 0);
    EXPECT_EQ(GetMillimetreFromStr(""), 0);
    EXPECT_EQ(GetMillimetreFromStr("."), 0);
    EXPECT_EQ(GetMillimetreFromStr("mm"), 0);
    EXPECT_EQ(GetMillimetreFromStr("\xFF\xFE"), 0);
}

TEST(Units, OnlyTheFirst32BytesOfALengthCount) {
    EXPECT_EQ(GetMillimetreFromStr(zeros(31) + "9"), 90);
    EXPECT_EQ(GetMillimetreFromStr(zeros(31) + "91234567"), 90);
    EXPECT_EQ(GetMillimetreFromStr(zeros(32) + "9"), 0);
    EXPECT_EQ(GetMillimetreFromStr(std::string(100000, '9')), kLargest);
    EXPECT_EQ(GetMillimetreFromStr("1." + zeros(100000)), kLargest);
}

TEST(Units, APointIsLookedForInTheFirst30BytesOnly) {
    EXPECT_EQ(GetMillimetreFromStr(zeros(28) + "1."), 1);   // at index 29
    EXPECT_EQ(GetMillimetreFromStr(zeros(29) + "1."), 10);  // at index 30
    EXPECT_EQ(GetMillimetreFromStr(zeros(29) + "1.5"), 10); // the half is not read by an integer reader
    EXPECT_EQ(GetMillimetreFromStr(zeros(30) + "1."), 10);  // at index 31
    EXPECT_EQ(TransformMillimetreToInchs(zeros(29) + "1.5"), "0.06");
}

TEST(Units, DeletingThePointOfAVeryLongLengthKeepsItsThirtyFirstByteTwice) {
    EXPECT_EQ(GetMillimetreFromStr(zeros(27) + "1.5"), 15);
    EXPECT_EQ(GetMillimetreFromStr(zeros(28) + "1.5"), 155);
    EXPECT_EQ(GetMillimetreFromStr(zeros(26) + "12.345"), 123445);
    EXPECT_EQ(TransformMillimetreToInchs(zeros(28) + "1.5"), "0.61");
}

TEST(Units, MillimetresToInches) {
    EXPECT_EQ(TransformMillimetreToInchs("210.0"), "8.27");
    EXPECT_EQ(TransformMillimetreToInchs("297.0"), "11.69");
    EXPECT_EQ(TransformMillimetreToInchs("100.0"), "3.94");
    EXPECT_EQ(TransformMillimetreToInchs("25.4"), "1.00");
    EXPECT_EQ(TransformMillimetreToInchs("0.0"), "0.00");
    EXPECT_EQ(TransformMillimetreToInchs("0.1"), "0.00");
    EXPECT_EQ(TransformMillimetreToInchs("0.2"), "0.01");
    EXPECT_EQ(TransformMillimetreToInchs("2.0"), "0.08");
}

TEST(Units, MillimetresToInchesDoNotCountTheDigitsAfterThePoint) {
    EXPECT_EQ(TransformMillimetreToInchs("12.34"), "4.86");
    EXPECT_EQ(TransformMillimetreToInchs("123.4"), "4.86");
    EXPECT_EQ(TransformMillimetreToInchs("1234."), "4.86");
    EXPECT_EQ(TransformMillimetreToInchs("1.2.3"), "0.05");
}

TEST(Units, MillimetresToInchesWithoutAPointScale) {
    EXPECT_EQ(TransformMillimetreToInchs("210"), "8.27");
    EXPECT_EQ(TransformMillimetreToInchs("1e2"), "3.94");
    EXPECT_EQ(TransformMillimetreToInchs("21,0"), "0.83");
}

TEST(Units, NegativeMillimetresLoseTheirSignInInches) {
    EXPECT_EQ(TransformMillimetreToInchs("-210.0"), "8.27");
    EXPECT_EQ(TransformMillimetreToInchs("-1"), "0.04");
}

TEST(Units, InchesOfNullAreNullAndOfUnreadableTextZero) {
    EXPECT_EQ(TransformMillimetreToInchs(std::nullopt), std::nullopt);
    EXPECT_EQ(TransformMillimetreToInchs(""), "0.00");
    EXPECT_EQ(TransformMillimetreToInchs("width"), "0.00");
    EXPECT_EQ(TransformMillimetreToInchs("nan"), "0.00");
    EXPECT_EQ(TransformMillimetreToInchs("inf"), "0.00");
}

TEST(Units, InchesBeyond32BitsSaturate) {
    EXPECT_EQ(TransformMillimetreToInchs("1e300"), "21474836.47");
    EXPECT_EQ(TransformMillimetreToInchs("-1e300"), "21474836.47");
    EXPECT_EQ(TransformMillimetreToInchs(std::string(500, '9')), "21474836.47");
}

// The divisor and its multiples by a half are exact doubles, so that these are true ties.
TEST(Units, InchesOnATieGoToTheEvenHundredth) {
    EXPECT_EQ(TransformMillimetreToInchs("1.26999998092651365e-17"), "0.00");
    EXPECT_EQ(TransformMillimetreToInchs("3.80999994277954095e-17"), "0.02");
    EXPECT_EQ(TransformMillimetreToInchs("6.34999990463256825e-17"), "0.02");
    EXPECT_EQ(TransformMillimetreToInchs("8.88999986648559555e-17"), "0.04");
}

class RoundingMode {
  public:
    explicit RoundingMode(int mode) { std::fesetround(mode); }
    ~RoundingMode() { std::fesetround(before_); }
    RoundingMode(const RoundingMode&) = delete;
    RoundingMode& operator=(const RoundingMode&) = delete;

  private:
    int before_ = std::fegetround();
};

TEST(Units, InchesDoNotDependOnTheRoundingMode) {
    for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO, FE_TONEAREST}) {
        const RoundingMode changed(mode);
        EXPECT_EQ(TransformMillimetreToInchs("210.0"), "8.27") << mode; // 826.77
        EXPECT_EQ(TransformMillimetreToInchs("100.0"), "3.94") << mode; // 393.70
        EXPECT_EQ(TransformMillimetreToInchs("123.4"), "4.86") << mode; // 485.83
        EXPECT_EQ(TransformMillimetreToInchs("101.0"), "3.98") << mode; // 397.64
        EXPECT_EQ(TransformMillimetreToInchs("30.0"), "1.18") << mode;  // 118.11
    }
}

TEST(Units, NumbersDoNotDependOnTheLocale) {
    const platform::testing::CommaLocale commas;
    EXPECT_EQ(TransformMillimetreToInchs("210.0"), "8.27");
    EXPECT_EQ(TransformMillimetreToInchs("21,0"), "0.83");
    EXPECT_EQ(TransformMillimetreToInchs(zeros(29) + "1.5"), "0.06");
    EXPECT_EQ(ConvertIntToFloatStr(12345678), "1234567.8");
    EXPECT_EQ(ConvertFloatStrToInt("12345.6"), 123456);
    EXPECT_EQ(transformed(612000, 2, kTransformInches), Transformed(850000, "8500.00"));
    EXPECT_EQ(itoa(1234567), "1234567");
}

// Points.

TEST(Units, PointsAsInches) {
    EXPECT_EQ(transformed(612, 2, kTransformInches), Transformed(850, "8.50"));
    EXPECT_EQ(transformed(595, 2, kTransformInches), Transformed(826, "8.26"));
    EXPECT_EQ(transformed(36, 2, kTransformInches), Transformed(50, ".50"));
    EXPECT_EQ(transformed(36, 0, kTransformInches), Transformed(1, "1"));
    EXPECT_EQ(transformed(35, 0, kTransformInches), Transformed(0, "0"));
}

TEST(Units, PointsAsMillimetresAlwaysEndInZero) {
    EXPECT_EQ(transformed(612, 1, kTransformMillimetres), Transformed(2160, "216.0"));
    EXPECT_EQ(transformed(595, 1, kTransformMillimetres), Transformed(2100, "210.0"));
    EXPECT_EQ(transformed(842, 1, kTransformMillimetres), Transformed(2970, "297.0"));
    EXPECT_EQ(transformed(612, 0, kTransformMillimetres), Transformed(220, "220"));
    EXPECT_EQ(transformed(1, 1, kTransformMillimetres), Transformed(0, ".0"));
    EXPECT_EQ(transformed(2, 1, kTransformMillimetres), Transformed(10, "1.0"));
}

TEST(Units, AnotherTypeOfPointsIsRefusedAndLeavesTheText) {
    EXPECT_EQ(transformed(612, 2, 2), Transformed(-1, "untouched"));
    EXPECT_EQ(transformed(612, 2, -1), Transformed(-1, "untouched"));
    EXPECT_EQ(TransformPointByType(nullptr, 612, 2, 2), -1);
}

TEST(Units, PointsWithoutATextAnswerTheNumber) {
    EXPECT_EQ(TransformPointByType(nullptr, 612, 2, kTransformInches), 850);
    EXPECT_EQ(TransformPointByType(nullptr, 612, 1, kTransformMillimetres), 2160);
}

TEST(Units, FewerDigitsThanDecimalsGetNoZeroInFront) {
    EXPECT_EQ(transformed(0, 2, kTransformInches), Transformed(0, ".0"));
    EXPECT_EQ(transformed(3, 3, kTransformInches), Transformed(42, ".42"));
    EXPECT_EQ(transformed(-36, 2, kTransformInches), Transformed(-49, "-.49"));
    EXPECT_EQ(transformed(-612, 2, kTransformInches), Transformed(-849, "-8.49"));
}

TEST(Units, NoDecimalsOrNegativeOnesGiveNoPoint) {
    EXPECT_EQ(transformed(7200, 0, kTransformInches), Transformed(100, "100"));
    EXPECT_EQ(transformed(7200, -3, kTransformInches), Transformed(100, "100"));
    EXPECT_EQ(transformed(7200, kSmallest, kTransformInches), Transformed(100, "100"));
}

TEST(Units, ScalingPointsWrapsAroundIn32Bits) {
    EXPECT_EQ(transformed(1000000, 4, kTransformInches), Transformed(19584242, "1958.4242")); // 1410065408
    EXPECT_EQ(transformed(kLargest, 1, kTransformInches), Transformed(0, ".0"));              // -10
    EXPECT_EQ(transformed(kLargest, 2, kTransformInches), Transformed(0, ".0"));              // -100
    EXPECT_EQ(transformed(kLargest, 3, kTransformInches), Transformed(-13, ".-13"));          // -1000
    EXPECT_EQ(transformed(1, 32, kTransformInches), Transformed(0, ".0"));
    EXPECT_EQ(transformed(1, kLargest, kTransformMillimetres), Transformed(0, ".0"));
}

TEST(Units, TheEndsOfTheRangeOfPointsAreDefined) {
    EXPECT_EQ(transformed(kLargest, 0, kTransformMillimetres), Transformed(757584510, "757584510"));
    EXPECT_EQ(transformed(kSmallest, 0, kTransformMillimetres), Transformed(-757584500, "-757584500"));
    EXPECT_EQ(transformed(kLargest, 0, kTransformInches), Transformed(29826162, "29826162"));
    EXPECT_EQ(transformed(kSmallest, 0, kTransformInches), Transformed(-29826161, "-29826161"));
}

TEST(Units, AnInchHas72Points) {
    EXPECT_EQ(UnitsPerInch, 72.0F);
}

// The shape of a decimal text.

TEST(Units, CountsPoints) {
    EXPECT_EQ(GetStringPointCount(""), 0);
    EXPECT_EQ(GetStringPointCount("12"), 0);
    EXPECT_EQ(GetStringPointCount("1.2"), 1);
    EXPECT_EQ(GetStringPointCount("..1."), 3);
    EXPECT_EQ(GetStringPointCount("１．２"), 0); // a fullwidth full stop is none
}

TEST(Units, ThePositionOfThePointIs1BasedAndOnePastTheEndWithoutOne) {
    EXPECT_EQ(GetStringPointIndex(""), 1);
    EXPECT_EQ(GetStringPointIndex("."), 1);
    EXPECT_EQ(GetStringPointIndex("12.5"), 3);
    EXPECT_EQ(GetStringPointIndex("1.2.3"), 2);
    EXPECT_EQ(GetStringPointIndex("125"), 4);
}

TEST(Units, ThePositionOfThePointCountsUTF16Units) {
    EXPECT_EQ(GetStringPointIndex("é.5"), 2);
    EXPECT_EQ(GetStringPointIndex("😀.5"), 3);
    EXPECT_EQ(GetStringPointIndex("😀"), 3);
    EXPECT_EQ(GetStringPointIndex("\xFF.5"), 1); // ill-formed: as an empty text
}

TEST(Units, LeadingZerosGo) {
    const auto filtered = [](std::string text) {
        filterHeadZero(text);
        return text;
    };
    EXPECT_EQ(filtered("000"), "");
    EXPECT_EQ(filtered(""), "");
    EXPECT_EQ(filtered("0.5"), ".5");
    EXPECT_EQ(filtered("00120"), "120");
    EXPECT_EQ(filtered("-05"), "-05");
    EXPECT_EQ(filtered(" 05"), " 05");
    EXPECT_EQ(filtered(zeros(100000) + "7"), "7");
}

// Slash-separated numbers.

TEST(Units, DecodesNumbersBetweenSlashes) {
    EXPECT_EQ(decoded("/65/66"), "AB");
    EXPECT_EQ(decoded("/227/129/130"), "\xE3\x81\x82");
    EXPECT_EQ(decoded("/255"), "\xFF");
    EXPECT_EQ(decoded("/065/ 66/+67"), "ABC");
    EXPECT_EQ(decoded("/65x/66"), "AB");
}

TEST(Units, ATextThatDoesNotBeginWithASlashOrIsTooShortIsNotDecoded) {
    EXPECT_EQ(decoded("65/66"), "65/66");
    EXPECT_EQ(decoded("/"), "/");
    EXPECT_EQ(decoded(""), "");
    EXPECT_EQ(decoded(std::string("/\0/65", 5)), std::string("/\0/65", 5));
}

TEST(Units, ANumberOf256OrMoreEndsTheDecodedText) {
    EXPECT_EQ(decoded("/65/256/66"), "A");
    EXPECT_EQ(decoded("/65/99999999999/66"), "A");
    EXPECT_EQ(decoded("/256"), "");
    EXPECT_EQ(decoded("/65/0/66"), "A");
}

TEST(Units, AnEmptyPieceEndsTheDecodedText) {
    EXPECT_EQ(decoded("/65/"), "A");
    EXPECT_EQ(decoded("/65//66"), "A");
    EXPECT_EQ(decoded("//"), "");
    EXPECT_EQ(decoded("/x"), "");
}

TEST(Units, ANegativeNumberWrapsIntoTheByte) {
    EXPECT_EQ(decoded("/-1/66"), "\xFF"
                                 "B");
    EXPECT_EQ(decoded("/-256/66"), "");
}

TEST(Units, SlashesFromTheLimitOnDoNotSeparate) {
    EXPECT_EQ(decoded("/65/66/67", 9), "ABC");
    EXPECT_EQ(decoded("/65/66/67", 7), "ABC");
    EXPECT_EQ(decoded("/65/66/67", 6), "AB");
    EXPECT_EQ(decoded("/65/66/67", 4), "AB");
    EXPECT_EQ(decoded("/65/66/67", 3), "A");
    EXPECT_EQ(decoded("/65/66/67", 0), "A");
    EXPECT_EQ(decoded("/65/66/67", -5), "A");
}

// Integers.

TEST(Units, ItoaOfZeroIsEmpty) {
    EXPECT_EQ(itoa(0), "");
}

TEST(Units, ItoaWritesDigitsAndNeverASign) {
    EXPECT_EQ(itoa(7), "7");
    EXPECT_EQ(itoa(1024), "1024");
    EXPECT_EQ(itoa(kLargest), "2147483647");
    EXPECT_EQ(itoa(-12), "12");
    EXPECT_EQ(itoa(kSmallest), "2147483648");
}

TEST(Units, TheLengthOfAnIntegerCountsItsSign) {
    EXPECT_EQ(GetIntegerLength(0), 1);
    EXPECT_EQ(GetIntegerLength(9), 1);
    EXPECT_EQ(GetIntegerLength(10), 2);
    EXPECT_EQ(GetIntegerLength(-1), 2);
    EXPECT_EQ(GetIntegerLength(kSmallest), 11);
}

// Columns.

TEST(Units, TheThreeColumnCountsDifferOnPurpose) {
    EXPECT_EQ(GetStringLength("é"), 2);
    EXPECT_EQ(GetUTF8StringLength("é"), 1);
    EXPECT_EQ(GetShortenString("é", 1), "");
}

TEST(Units, ColumnsAtTheEdgesOfTheirRanges) {
    EXPECT_EQ(GetStringLength("\x7F"), 1);
    EXPECT_EQ(GetStringLength("\xC2\x80"), 2); // U+0080
    EXPECT_EQ(GetUTF8StringLength("\xC2\x80"), 1);
    EXPECT_EQ(GetUTF8StringLength("\xC3\xBF"), 1); // U+00FF
    EXPECT_EQ(GetUTF8StringLength("\xC4\x80"), 2); // U+0100
    EXPECT_EQ(GetStringLength("abc"), 3);
    EXPECT_EQ(GetStringLength("表紙"), 4);
    EXPECT_EQ(GetStringLength("ｶ"), 2); // half width, and still two columns
}

TEST(Units, ASurrogatePairCountsFourColumns) {
    EXPECT_EQ(GetStringLength("😀"), 4);
    EXPECT_EQ(GetUTF8StringLength("😀"), 4);
    EXPECT_EQ(GetShortenString("😀", 4), "😀");
}

TEST(Units, ColumnsOfEmptyAndIllFormedTextAreZero) {
    EXPECT_EQ(GetStringLength(""), 0);
    EXPECT_EQ(GetUTF8StringLength(""), 0);
    EXPECT_EQ(GetStringLength("ab\xFF"), 0);
    EXPECT_EQ(GetUTF8StringLength("ab\xFF"), 0);
    EXPECT_EQ(GetUTF8StringLength("\xED\xA0\x80"), 0); // a surrogate in UTF-8
    EXPECT_EQ(GetShortenString("ab\xFF", 5), "");
}

TEST(Units, ShortensToTheLongestHeadThatFits) {
    EXPECT_EQ(GetShortenString("abcdef", 3), "abc");
    EXPECT_EQ(GetShortenString("abcdef", 6), "abcdef");
    EXPECT_EQ(GetShortenString("abcdef", 1000), "abcdef");
    EXPECT_EQ(GetShortenString("a表b", 2), "a");
    EXPECT_EQ(GetShortenString("a表b", 3), "a表");
    EXPECT_EQ(GetShortenString("a表b", 4), "a表b");
}

TEST(Units, ShorteningToNoColumnsLeavesNothing) {
    EXPECT_EQ(GetShortenString("abc", 0), "");
    EXPECT_EQ(GetShortenString("abc", -1), "");
    EXPECT_EQ(GetShortenString("", 5), "");
}

TEST(Units, ShorteningNeverKeepsHalfASurrogatePair) {
    EXPECT_EQ(GetShortenString("a😀b", 3), "a");
    EXPECT_EQ(GetShortenString("a😀b", 4), "a");
    EXPECT_EQ(GetShortenString("a😀b", 5), "a😀");
    EXPECT_EQ(GetShortenString("😀", 2), "");
}

// Pieces between separators.

TEST(Units, ATrailingSeparatorHasAnEmptyLastPiece) {
    EXPECT_EQ(with_separator("1,2,"), "[1][2][]");
    EXPECT_EQ(with_separator(","), "[][]");
    EXPECT_EQ(with_separator(",,1"), "[][][1]");
}

TEST(Units, AnEmptyTextHasOneEmptyPiece) {
    EXPECT_EQ(with_separator(""), "[]");
    EXPECT_EQ(with_separator("abc"), "[abc]");
}

TEST(Units, ANewlineSeparatesToo) {
    EXPECT_EQ(with_separator("1\n2,3\n"), "[1][2][3][]");
    EXPECT_EQ(with_separator("1\r\n2"), "[1\r][2]");
    EXPECT_EQ(with_separator("1\n2", '\n'), "[1][2]");
}

TEST(Units, PiecesAreAppended) {
    std::vector<std::string> pieces{"before"};
    getStringBySeparator(pieces, "1;2", ';');
    EXPECT_THAT(pieces, ElementsAre("before", "1", "2"));
}

TEST(Units, TextBeyondASCIILosesItsEndInPieces) {
    EXPECT_EQ(with_separator("é,1"), "[é][]");   // three units, so the "1" in the fourth byte is not taken
    EXPECT_EQ(with_separator("1é"), "[1]");      // the cut goes through the character
    EXPECT_EQ(with_separator("表紙,1"), "[表]"); // four units: one character and a byte
    EXPECT_EQ(with_separator("😀,1"), "[😀]");
    EXPECT_EQ(with_separator("表"), "[]");
}

TEST(Units, IllFormedTextHasNoPieces) {
    std::vector<std::string> pieces;
    getStringBySeparator(pieces, "1,\xFF", ',');
    EXPECT_THAT(pieces, IsEmpty());
}

TEST(Units, APieceEndsAtAZeroByte) {
    EXPECT_EQ(with_separator(std::string_view("1\0x,2", 5)), "[1][2]");
}

} // namespace
} // namespace specialpages
