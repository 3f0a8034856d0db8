#include "controls/custom_size_range.h"
#include "ppd/open_ppd.h"
#include "ppd/ppd_builder.h"
#include "testing/paths.h"

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

/// "394 to 1299, 3.94 to 12.99"
std::string limits_of(PointRange points, std::int32_t longMeasure) {
    const auto limits = custom_size_limits(points, longMeasure);
    return limits ? text(PointRange{limits->minimum, limits->maximum}) + ", " + limits->minimumText + " to " +
                        limits->maximumText
                  : "none";
}

TEST(CustomSizePoints, AreReadFromThePpdForEachSide) {
    const auto ppd = test::open_ppd(paths::source_dir() + "/examples/ppd/production.ppd");
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
    EXPECT_EQ(limits_of({283, 936}, kLongMeasureInches), "394 to 1299, 3.94 to 12.99");
}

TEST(CustomSizeLimits, InMillimetresAreThePpdsOwnInWholeOnes) {
    EXPECT_EQ(limits_of({283, 936}, kLongMeasureMillimetres), "1000 to 3300, 100.0 to 330.0");
}

TEST(CustomSizeLimits, OfAnyOtherUnitAreNotThere) {
    EXPECT_EQ(limits_of({283, 936}, 2), "none");
    EXPECT_EQ(limits_of({283, 936}, -1), "none");
}

TEST(CustomSizeLimits, DoNotLeaveTheNumbersAtTheirEnds) {
    using Limits = std::numeric_limits<std::int32_t>;
    EXPECT_EQ(limits_of({Limits::max(), Limits::min()}, kLongMeasureInches),
              limits_of({Limits::max() - 1, Limits::min() + 1}, kLongMeasureInches));
}

TEST(CustomSizeLimits, BelowAWholeUnitHaveNoZeroInFront) {
    EXPECT_EQ(limits_of({35, 73}, kLongMeasureInches), "50 to 100, .50 to 1.00");
}

} // namespace
} // namespace specialpages
