#include "controls/custom_size_range.h"
#include "ppd/open_ppd.h"
#include "ppd/ppd_builder.h"

#include <gtest/gtest.h>

#include <limits>

namespace specialpages {
namespace {

using test::PpdBuilder;

std::optional<PointRange> points_of(const std::string& value) {
    PpdBuilder ppd;
    ppd.attribute("ParamCustomPageSize", "Width", value);
    return custom_size_points(ppd.file(), kCustomSizeWidth);
}

std::string text(const std::optional<PointRange>& range) {
    return range ? std::to_string(range->minimum) + " to " + std::to_string(range->maximum) : "none";
}

TEST(CustomSizePoints, AreReadFromThePpdForEachSide) {
    const auto ppd = test::open_ppd(SPECIALPAGES_SOURCE_DIR "/examples/ppd/production.ppd");
    EXPECT_EQ(text(custom_size_points(ppd.get(), kCustomSizeWidth)), "283 to 936");
    EXPECT_EQ(text(custom_size_points(ppd.get(), kCustomSizeLength)), "419 to 1384");
}

TEST(CustomSizePoints, AreTheThirdAndTheFourthField) {
    EXPECT_EQ(text(points_of("1 points 283 935")), "283 to 935");
    EXPECT_EQ(text(points_of("1 points 283 935 more")), "283 to 935");
    EXPECT_EQ(text(points_of("1 points 283.9 x")), "283 to 0");
    EXPECT_EQ(text(points_of("1 points  283 935")), "0 to 283") << "two blanks have an empty field between";
    EXPECT_EQ(text(points_of("1 points 283 99999999999")), "283 to 2147483647");
}

TEST(CustomSizePoints, AreNotThereInAShortOrMissingLine) {
    EXPECT_EQ(text(points_of("1 points 283")), "none");
    EXPECT_EQ(text(points_of("")), "none");
    EXPECT_EQ(text(points_of("1 points 283 \xFF")), "none");
    PpdBuilder ppd;
    ppd.attribute("ParamCustomPageSize", "Height", "2 points 420 1380");
    EXPECT_EQ(text(custom_size_points(ppd.file(), kCustomSizeWidth)), "none");
    EXPECT_EQ(text(custom_size_points(nullptr, kCustomSizeWidth)), "none");
}

TEST(CustomSizeLimits, InInchesLieOnePointInside) {
    const auto limits = custom_size_limits({283, 936}, kLongMeasureInches);
    ASSERT_TRUE(limits);
    EXPECT_EQ(limits->minimum, 394);
    EXPECT_EQ(limits->minimumText, "3.94");
    EXPECT_EQ(limits->maximum, 1299);
    EXPECT_EQ(limits->maximumText, "12.99");
}

TEST(CustomSizeLimits, InMillimetresAreThePpdsOwnInWholeOnes) {
    const auto limits = custom_size_limits({283, 936}, kLongMeasureMillimetres);
    ASSERT_TRUE(limits);
    EXPECT_EQ(limits->minimum, 1000);
    EXPECT_EQ(limits->minimumText, "100.0");
    EXPECT_EQ(limits->maximum, 3300);
    EXPECT_EQ(limits->maximumText, "330.0");
}

TEST(CustomSizeLimits, OfAnyOtherUnitAreNotThere) {
    EXPECT_FALSE(custom_size_limits({283, 936}, 2));
    EXPECT_FALSE(custom_size_limits({283, 936}, -1));
}

TEST(CustomSizeLimits, DoNotLeaveTheNumbersAtTheirEnds) {
    using Limits = std::numeric_limits<std::int32_t>;
    const auto limits = custom_size_limits({Limits::max(), Limits::min()}, kLongMeasureInches);
    ASSERT_TRUE(limits);
    EXPECT_EQ(limits->minimum, custom_size_limits({Limits::max() - 1, 0}, kLongMeasureInches)->minimum);
}

TEST(CustomSizeLimits, BelowAWholeUnitHaveNoZeroInFront) {
    EXPECT_EQ(custom_size_limits({35, 73}, kLongMeasureInches)->minimumText, ".50");
    EXPECT_EQ(custom_size_limits({35, 73}, kLongMeasureInches)->maximumText, "1.00");
}

} // namespace
} // namespace specialpages
