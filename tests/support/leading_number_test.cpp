#include "support/leading_number.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <string>

namespace specialpages {
namespace {

void expect_read(std::string_view text, std::int64_t value, std::size_t consumed) {
    const LeadingInteger number = leading_integer(text);
    EXPECT_EQ(number.value, value) << '"' << text << '"';
    EXPECT_EQ(number.consumed, consumed) << '"' << text << '"';
}

TEST(LeadingNumber, TellsZeroFromNoNumber) {
    expect_read("0", 0, 1);
    expect_read("000", 0, 3);
    expect_read("-0", 0, 2);
    expect_read("", 0, 0);
    expect_read("x", 0, 0);
    expect_read("   ", 0, 0);
}

TEST(LeadingNumber, SkipsBlanksAndTakesOneSign) {
    expect_read(" \t\n\v\f\r42", 42, 8);
    expect_read("+42", 42, 3);
    expect_read("-42", -42, 3);
    expect_read("--42", 0, 0);
    expect_read("+-42", 0, 0);
    expect_read("- 42", 0, 0);
    expect_read("-", 0, 0);
}

TEST(LeadingNumber, StopsAtTheFirstByteThatIsNoDigit) {
    expect_read("12.5", 12, 2);
    expect_read("0x10", 0, 1);
    expect_read("1,000", 1, 1);
    expect_read(std::string_view("7\0008", 3), 7, 1);
    expect_read("\xD9\xA3", 0, 0); // an Arabic-Indic digit is none here
}

TEST(LeadingNumber, SaturatesAtBothEnds) {
    constexpr auto largest = std::numeric_limits<std::int64_t>::max();
    constexpr auto smallest = std::numeric_limits<std::int64_t>::min();
    expect_read("9223372036854775807", largest, 19);
    expect_read("9223372036854775808", largest, 19);
    expect_read("-9223372036854775807", -largest, 20);
    expect_read("-9223372036854775808", smallest, 20);
    expect_read("-9223372036854775809", smallest, 20);
    expect_read("99999999999999999999999999x", largest, 26);
    expect_read("-99999999999999999999999999", smallest, 27);
}

TEST(LeadingNumber, SaturatedIsTheNearest32BitValue) {
    EXPECT_EQ(saturated(5), 5);
    EXPECT_EQ(saturated(2147483647), 2147483647);
    EXPECT_EQ(saturated(2147483648), 2147483647);
    EXPECT_EQ(saturated(-2147483649), std::numeric_limits<std::int32_t>::min());
}

RC_GTEST_PROP(LeadingNumber, ReadsBackEveryPrintedInteger, (std::int64_t value)) {
    const std::string text = std::to_string(value);
    const LeadingInteger number = leading_integer(text + "x");
    RC_ASSERT(number.value == value);
    RC_ASSERT(number.consumed == text.size());
}

} // namespace
} // namespace specialpages
