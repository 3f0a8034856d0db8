#include "platform/foundation/comma_locale.h"
#include "platform/foundation/numbers.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace specialpages::platform {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(IntValue, ReadsTheNumberAtTheHead) {
    EXPECT_EQ(int_value("0"), 0);
    EXPECT_EQ(int_value("12"), 12);
    EXPECT_EQ(int_value("+12"), 12);
    EXPECT_EQ(int_value("-12"), -12);
    EXPECT_EQ(int_value(" \t\n\v\f\r12"), 12);
    EXPECT_EQ(int_value("12abc"), 12);
    EXPECT_EQ(int_value("12.9"), 12);
    EXPECT_EQ(int_value("12,9"), 12);
    EXPECT_EQ(int_value("1e3"), 1);
    EXPECT_EQ(int_value("007"), 7);
    EXPECT_EQ(int_value("0x10"), 0);
}

TEST(IntValue, IsZeroWithoutADigit) {
    for (const char* text :
         {"", " ", "-", "+", "+-5", "-+5", "--5", "- 5", "abc", "a1", ".5", "\xC2\xA0 5", "\xD9\xA3"}) {
        EXPECT_EQ(int_value(text), 0) << text;
    }
}

TEST(IntValue, SaturatesAtTheEndsOf32Bits) {
    EXPECT_EQ(int_value("2147483647"), 2147483647);
    EXPECT_EQ(int_value("2147483648"), 2147483647);
    EXPECT_EQ(int_value("-2147483648"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(int_value("-2147483649"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(int_value("4294967297"), 2147483647);
    EXPECT_EQ(int_value(std::string(10'000, '9')), 2147483647);
    EXPECT_EQ(int_value("-" + std::string(10'000, '9')), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(int_value(std::string(10'000, '0') + "5"), 5);
}

TEST(IntValue, StopsAtTheEndOfTheView) {
    EXPECT_EQ(int_value(std::string_view("1234").substr(0, 2)), 12);
}

TEST(DoubleValue, ReadsTheNumberAtTheHead) {
    EXPECT_EQ(double_value("8.27"), 8.27);
    EXPECT_EQ(double_value("-8.27in"), -8.27);
    EXPECT_EQ(double_value("+0.5"), 0.5);
    EXPECT_EQ(double_value(" \t8.5"), 8.5);
    EXPECT_EQ(double_value(".5"), 0.5);
    EXPECT_EQ(double_value("5."), 5.0);
    EXPECT_EQ(double_value("1e3"), 1000.0);
    EXPECT_EQ(double_value("1E-2x"), 0.01);
    EXPECT_EQ(double_value("1e"), 1.0);
    EXPECT_EQ(double_value("1e+"), 1.0);
    EXPECT_EQ(double_value("1.2.3"), 1.2);
    EXPECT_EQ(double_value("1,5"), 1.0);
    EXPECT_EQ(double_value("0x10"), 0.0);
    EXPECT_EQ(double_value("0.1"), 0.1);
}

TEST(DoubleValue, IsZeroWithoutANumber) {
    for (const char* text : {"", " ", "-", ".", "-.", "e5", ".e5", "inf", "-inf", "infinity", "nan", "NAN",
                             "abc", ",5", "+-1", "- 1"}) {
        EXPECT_EQ(double_value(text), 0.0) << text;
    }
}

TEST(DoubleValue, GoesToInfinityOrZeroPastItsRange) {
    EXPECT_EQ(double_value("1e999"), kInfinity);
    EXPECT_EQ(double_value("-1e999"), -kInfinity);
    EXPECT_EQ(double_value("1e-999"), 0.0);
    EXPECT_EQ(double_value("-1e-999"), 0.0);
    EXPECT_EQ(double_value("1e99999999999999999999"), kInfinity);
    EXPECT_EQ(double_value("1e-99999999999999999999"), 0.0);
    EXPECT_EQ(double_value(std::string(400, '9')), kInfinity);
    EXPECT_EQ(double_value("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(double_value("0." + std::string(400, '0') + "1e800"), kInfinity);
    EXPECT_EQ(double_value("1" + std::string(400, '0') + ".5e-800"), 0.0);
    EXPECT_EQ(double_value("0e999"), 0.0);
    EXPECT_EQ(double_value("1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(double_value("5e-324"), std::numeric_limits<double>::denorm_min());
}

TEST(DecimalText, PrintsPlainDigits) {
    EXPECT_EQ(decimal_text(0), "0");
    EXPECT_EQ(decimal_text(-1), "-1");
    EXPECT_EQ(decimal_text(1234567), "1234567");
    EXPECT_EQ(decimal_text(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
    EXPECT_EQ(decimal_text(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(Numbers, DoNotCareForTheLocale) {
    const testing::CommaLocale locale;
    EXPECT_EQ(double_value("8.27"), 8.27);
    EXPECT_EQ(double_value("8,27"), 8.0);
    EXPECT_EQ(double_value("1.234,5"), 1.234);
    EXPECT_EQ(int_value("1.234"), 1);
    EXPECT_EQ(decimal_text(1234567), "1234567");
}

RC_GTEST_PROP(Numbers, EveryIntegerReadsBackFromItsText, (std::int32_t value)) {
    RC_ASSERT(int_value(decimal_text(value)) == value);
    RC_ASSERT(double_value(decimal_text(value)) == static_cast<double>(value));
}

} // namespace
} // namespace specialpages::platform
