#include "dialogs/custom_size_tables.h"
#include "dialogs/custom_size_values.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <string>

namespace specialpages {
namespace {

constexpr std::int32_t kMM = kLongMeasureMillimetres;
constexpr std::int32_t kInch = kLongMeasureInches;
constexpr EditValueRangeData kWidthMM = SPCustomSizeWidthMMEditValueRangeData;
constexpr EditValueRangeData kWidthInch = SPCustomSizeWidthInchEditValueRangeData;

TEST(CustomSizeValues, TextsAreTenthsOfAMillimetreOrHundredthsOfAnInch) {
    EXPECT_EQ(custom_size_value("210.0", kMM), 2100);
    EXPECT_EQ(custom_size_value("210", kMM), 2100);
    EXPECT_EQ(custom_size_value("210.05", kMM), 2100) << "half to even";
    EXPECT_EQ(custom_size_value("210.15", kMM), 2102);
    EXPECT_EQ(custom_size_value("8.27", kInch), 827);
    EXPECT_EQ(custom_size_value("11.69", kInch), 1169);
    EXPECT_EQ(custom_size_value("", kMM), 0);
    EXPECT_EQ(custom_size_value("wide", kInch), 0);
    EXPECT_EQ(custom_size_value("-1", kMM), -10);
    EXPECT_EQ(custom_size_value("99999999999999999999", kMM), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(custom_size_value("-1e400", kInch), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(custom_size_value("nan", kInch), 0);
}

TEST(CustomSizeValues, AnInchStepperIsFedInSinglePrecision) {
    EXPECT_EQ(custom_size_stepper_value("8.27", kInch), 827);
    EXPECT_EQ(custom_size_stepper_value("8.275", kInch), 828) << "the middle goes up";
    EXPECT_EQ(custom_size_stepper_value("8.2749", kInch), 827);
    EXPECT_EQ(custom_size_stepper_value("8", kInch), 800);
    EXPECT_EQ(custom_size_stepper_value("1e39", kInch), std::numeric_limits<std::int32_t>::max() / 10);
    EXPECT_EQ(custom_size_stepper_value("210.5", kMM), 2105);
}

TEST(CustomSizeValues, PrintedWithTheDecimalsOfTheUnit) {
    EXPECT_EQ(custom_size_text(2100, kMM), "210.0");
    EXPECT_EQ(custom_size_text(5, kMM), "0.5");
    EXPECT_EQ(custom_size_text(0, kMM), "0.0");
    EXPECT_EQ(custom_size_text(-5, kMM), "-0.5");
    EXPECT_EQ(custom_size_text(-2105, kMM), "-210.5");
    EXPECT_EQ(custom_size_text(827, kInch), "8.27");
    EXPECT_EQ(custom_size_text(5, kInch), "0.05");
    EXPECT_EQ(custom_size_text(1200, kInch), "12.00");
    EXPECT_EQ(custom_size_text(-827, kInch), "-8.27");
    EXPECT_EQ(custom_size_text(std::numeric_limits<std::int32_t>::min(), kInch), "-21474836.48");
}

TEST(CustomSizeValues, MillimetresTakeNoPointOrOneDecimal) {
    for (const char* accepted : {"210", "210.5", "100", "100.0", "330", "330.0", "0210.0"}) {
        EXPECT_TRUE(is_custom_size(accepted, kMM, kWidthMM)) << accepted;
    }
    for (const char* refused : {"", ".", ".5", "8.", "210.", "210.05", "2.10.0", "210..0", "99.9", "330.1",
                                "0", "-210", "99999999999999999999", "1000"}) {
        EXPECT_FALSE(is_custom_size(refused, kMM, kWidthMM)) << refused;
    }
}

TEST(CustomSizeValues, InchesTakeNoPointOrTwoDecimals) {
    for (const char* accepted : {"8", "8.50", "3.94", "12.99", "4"}) {
        EXPECT_TRUE(is_custom_size(accepted, kInch, kWidthInch)) << accepted;
    }
    for (const char* refused : {"", ".", ".50", "8.", "8.5", "8.500", "8.5.0", "3.93", "13.00", "3", "13"}) {
        EXPECT_FALSE(is_custom_size(refused, kInch, kWidthInch)) << refused;
    }
}

TEST(CustomSizeValues, EndsOfTheRangesAnswerEachOtherExactly) {
    EXPECT_EQ(custom_size_from_twin("3.94", kWidthInch, kMM, kWidthMM), 1000) << "and not 1001";
    EXPECT_EQ(custom_size_from_twin("12.99", kWidthInch, kMM, kWidthMM), 3300) << "and not 3299";
    EXPECT_EQ(custom_size_from_twin("100.0", kWidthMM, kInch, kWidthInch), 394);
    EXPECT_EQ(custom_size_from_twin("330.0", kWidthMM, kInch, kWidthInch), 1299);
    constexpr EditValueRangeData odd{.minimum = 500, .maximum = 1000};
    EXPECT_EQ(custom_size_from_twin("100.0", kWidthMM, kInch, odd), 500);
    EXPECT_EQ(custom_size_from_twin("330.0", kWidthMM, kInch, odd), 1000);
}

TEST(CustomSizeValues, BetweenTheEndsTheTwinIsConvertedAndHeldToTheRange) {
    EXPECT_EQ(custom_size_from_twin("8.27", kWidthInch, kMM, kWidthMM), 2101);
    EXPECT_EQ(custom_size_from_twin("8", kWidthInch, kMM, kWidthMM), 2032);
    EXPECT_EQ(custom_size_from_twin("210.0", kWidthMM, kInch, kWidthInch), 827);
    EXPECT_EQ(custom_size_from_twin("297.0", SPCustomSizeLengthMMEditValueRangeData, kInch,
                                    SPCustomSizeLengthInchEditValueRangeData),
              1169);
    EXPECT_EQ(custom_size_from_twin("50.0", kWidthMM, kInch, kWidthInch), 394);
    EXPECT_EQ(custom_size_from_twin("5000.0", kWidthMM, kInch, kWidthInch), 1299);
    EXPECT_EQ(custom_size_from_twin("", kWidthMM, kInch, kWidthInch), 394);
    EXPECT_EQ(custom_size_from_twin("1e400", kWidthInch, kMM, kWidthMM), 3300);
}

TEST(CustomSizeValues, AStoredTextMovesAnInchStepperInSinglePrecision) {
    EXPECT_EQ(custom_size_stepper_from_stored("210.0", kMM), 2100);
    EXPECT_EQ(custom_size_stepper_from_stored("210", kMM), 2100);
    EXPECT_EQ(custom_size_stepper_from_stored("210.0", kInch), 827);
    EXPECT_EQ(custom_size_stepper_from_stored("297.0", kInch), 1169);
    EXPECT_EQ(custom_size_stepper_from_stored("210.", kInch), 83) << "a trailing point: nothing was scaled";
    EXPECT_EQ(custom_size_stepper_from_stored("", kInch), 0);
}

TEST(CustomSizeValues, ARangeWithItsEndsExchangedGivesItsMinimum) {
    constexpr EditValueRangeData exchanged{.minimum = 3300, .maximum = 1000};
    EXPECT_EQ(held_to(exchanged, 2000), 3300);
    EXPECT_FALSE(is_custom_size("200.0", kMM, exchanged));
}

RC_GTEST_PROP(CustomSizeValuesProperty, EveryPrintedValueInTheRangeIsAcceptedAndReadBack, (bool inches)) {
    const std::int32_t unit = inches ? kInch : kMM;
    const EditValueRangeData range = inches ? kWidthInch : kWidthMM;
    const auto value = *rc::gen::inRange(range.minimum, range.maximum + 1);
    const std::string text = custom_size_text(value, unit);
    RC_ASSERT(is_custom_size(text, unit, range));
    RC_ASSERT(custom_size_value(text, unit) == value);
    RC_ASSERT(custom_size_stepper_value(text, unit) == value);
}

RC_GTEST_PROP(CustomSizeValuesProperty, EveryTwinTextGivesAValueInTheRange, (std::string text, bool inches)) {
    const std::int32_t value = inches ? custom_size_from_twin(text, kWidthMM, kInch, kWidthInch)
                                      : custom_size_from_twin(text, kWidthInch, kMM, kWidthMM);
    const EditValueRangeData range = inches ? kWidthInch : kWidthMM;
    RC_ASSERT(value >= range.minimum);
    RC_ASSERT(value <= range.maximum);
}

} // namespace
} // namespace specialpages
