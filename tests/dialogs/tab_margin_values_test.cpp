#include "dialogs/tab_margin_values.h"
#include "dialogs/tab_stock_tables.h"
#include "platform/foundation/comma_locale.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <string>

namespace specialpages {
namespace {

constexpr std::int32_t kMM = kLongMeasureMillimetres;
constexpr std::int32_t kInch = kLongMeasureInches;
constexpr EditValueRangeData kMMRange = SPTabMarginMMEditValueRangeData;
constexpr EditValueRangeData kInchRange = SPTabMarginInchEditValueRangeData;
constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

TEST(TabMarginValues, MillimetresAreCutOffBehindTheirTenths) {
    EXPECT_EQ(tab_margin_stepper_value("12.7", kMM), 127);
    EXPECT_EQ(tab_margin_stepper_value("12.79", kMM), 127) << "never rounded";
    EXPECT_EQ(tab_margin_stepper_value("15", kMM), 150);
    EXPECT_EQ(tab_margin_stepper_value("-0.19", kMM), -1);
    EXPECT_EQ(tab_margin_stepper_value("", kMM), 0);
    EXPECT_EQ(tab_margin_stepper_value("wide", kMM), 0);
    EXPECT_EQ(tab_margin_stepper_value("1e30", kMM), kHighest);
    EXPECT_EQ(tab_margin_stepper_value("-1e30", kMM), kLowest);
}

TEST(TabMarginValues, InchesAreRoundedToHundredthsInSinglePrecision) {
    EXPECT_EQ(tab_margin_stepper_value("0.50", kInch), 50);
    EXPECT_EQ(tab_margin_stepper_value("0.29", kInch), 29) << "0.29 * 100 is a little less in doubles";
    EXPECT_EQ(tab_margin_stepper_value("0.57", kInch), 57);
    EXPECT_EQ(tab_margin_stepper_value("0.075", kInch), 8) << "the middle goes up";
    EXPECT_EQ(tab_margin_stepper_value("0.0749", kInch), 7);
    EXPECT_EQ(tab_margin_stepper_value("1", kInch), 100);
    EXPECT_EQ(tab_margin_stepper_value("123.45", kInch), 12345);
    EXPECT_EQ(tab_margin_stepper_value("1e39", kInch), kHighest / 10);
    EXPECT_EQ(tab_margin_stepper_value("2147483.7", kInch), kHighest / 10) << "the first float beyond it";
}

TEST(TabMarginValues, EveryHundredthAndTenthIsReadBackAsPrinted) {
    for (std::int32_t value = 0; value <= 150; ++value) {
        EXPECT_EQ(tab_margin_stepper_value(tab_margin_text(value, kMM), kMM), value);
    }
    for (std::int32_t value = 0; value <= 59; ++value) {
        EXPECT_EQ(tab_margin_stepper_value(tab_margin_text(value, kInch), kInch), value);
    }
}

TEST(TabMarginValues, TextsHaveOneDecimalOrAZeroAndTwo) {
    EXPECT_EQ(tab_margin_text(0, kMM), "0.0");
    EXPECT_EQ(tab_margin_text(127, kMM), "12.7");
    EXPECT_EQ(tab_margin_text(-5, kMM), "-0.5");
    EXPECT_EQ(tab_margin_text(0, kInch), "0.00");
    EXPECT_EQ(tab_margin_text(9, kInch), "0.09");
    EXPECT_EQ(tab_margin_text(50, kInch), "0.50");
    EXPECT_EQ(tab_margin_text(-7, kInch), "-0.07");
    EXPECT_EQ(tab_margin_text(123, kInch), "0.123") << "the digit in front of the point is always 0";
    EXPECT_EQ(tab_margin_text(kLowest, kMM), "-214748364.8");
}

TEST(TabMarginValues, AcceptedAreWholeNumbersAndExactDecimalsInTheRange) {
    for (const char* text : {"0", "0.0", "15", "15.0", "12.7", "07.5"}) {
        EXPECT_TRUE(is_tab_margin(text, kMM, kMMRange)) << text;
    }
    for (const char* text : {"", ".", ".5", "5.", "15.1", "16", "1.25", "1.2.3", "..", "-1"}) {
        EXPECT_FALSE(is_tab_margin(text, kMM, kMMRange)) << text;
    }
    for (const char* text : {"0", "0.00", "0.59", "0.50", "00.5"}) {
        EXPECT_EQ(is_tab_margin(text, kInch, kInchRange), std::string(text) != "00.5") << text;
    }
    EXPECT_TRUE(is_tab_margin("1.00", kInch, {100, 100}));
    for (const char* text : {"", ".50", "0.", "0.5", "0.60", "1", "0.123", "0.5.0", "-0.01"}) {
        EXPECT_FALSE(is_tab_margin(text, kInch, kInchRange)) << text;
    }
}

TEST(TabMarginValues, AHiddenFieldFollowsItsTwin) {
    EXPECT_EQ(tab_margin_from_twin("0.50", kMM, kMMRange), 127);
    EXPECT_EQ(tab_margin_from_twin("0.24", kMM, kMMRange), 61);
    EXPECT_EQ(tab_margin_from_twin("0", kMM, kMMRange), 0);
    EXPECT_EQ(tab_margin_from_twin("0.59", kMM, kMMRange), 150) << "149.86, up from the middle";
    EXPECT_EQ(tab_margin_from_twin("0.99", kMM, kMMRange), 150) << "no more than the maximum";
    EXPECT_EQ(tab_margin_from_twin("12.7", kInch, kInchRange), 50);
    EXPECT_EQ(tab_margin_from_twin("6.1", kInch, kInchRange), 24);
    EXPECT_EQ(tab_margin_from_twin("15.0", kInch, kInchRange), 59);
    EXPECT_EQ(tab_margin_from_twin("99", kInch, kInchRange), 59);
    EXPECT_EQ(tab_margin_from_twin("", kInch, kInchRange), 0);
    EXPECT_EQ(tab_margin_from_twin("1e300", kInch, kInchRange), 59);
}

TEST(TabMarginValues, ANegativeTwinIsRoundedAwayFromZeroAndHeldToTheMinimum) {
    EXPECT_EQ(tab_margin_from_twin("-0.5", kMM, kMMRange), 0);
    EXPECT_EQ(tab_margin_from_twin("-0.50", kMM, {-200, 150}), -127);
    EXPECT_EQ(tab_margin_from_twin("-0.99", kMM, {-200, 150}), -200);
    EXPECT_EQ(tab_margin_from_twin("-12.7", kInch, {-59, 59}), -50);
    EXPECT_EQ(tab_margin_from_twin("-99", kInch, {-59, 59}), -59);
}

TEST(TabMarginValues, TheEndsAreNoExceptionUnlikeInTheCustomSizes) {
    EXPECT_EQ(tab_margin_from_twin("0.10", kMM, {0, 150}), 25);
    EXPECT_EQ(tab_margin_from_twin("0.00", kMM, {10, 150}), 0) << "not held to the minimum";
}

TEST(TabMarginValues, DoNotDependOnTheProcessLocale) {
    const platform::testing::CommaLocale comma;
    EXPECT_EQ(tab_margin_stepper_value("12.7", kMM), 127);
    EXPECT_EQ(tab_margin_stepper_value("0.57", kInch), 57);
    EXPECT_EQ(tab_margin_text(127, kMM), "12.7");
    EXPECT_EQ(tab_margin_from_twin("12.7", kInch, kInchRange), 50);
    EXPECT_TRUE(is_tab_margin("12.7", kMM, kMMRange));
    EXPECT_FALSE(is_tab_margin("12,7", kMM, {0, 10}));
}

RC_GTEST_PROP(TabMarginValues, AnyTextIsJudgedWithoutHarm, (const std::string& text)) {
    for (const std::int32_t measure : {kMM, kInch}) {
        const auto& range = measure == kMM ? kMMRange : kInchRange;
        tab_margin_stepper_value(text, measure);
        RC_ASSERT(tab_margin_from_twin(text, measure, range) <= range.maximum);
        if (is_tab_margin(text, measure, range)) {
            RC_ASSERT(tab_margin_stepper_value(text, measure) >= range.minimum);
            RC_ASSERT(text.find('.') != 0 && text.back() != '.');
        }
    }
}

} // namespace
} // namespace specialpages
