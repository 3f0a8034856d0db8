#include "ChangeLog.h"
#include "platform/toolkit/Stepper.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace specialpages::platform {
namespace {

constexpr auto kLowest = std::numeric_limits<std::int32_t>::min();
constexpr auto kHighest = std::numeric_limits<std::int32_t>::max();

TEST(Stepper, BeginsAtZeroOfAHundred) {
    const Stepper stepper;
    EXPECT_EQ(stepper.intValue(), 0);
    EXPECT_EQ(stepper.minValue(), 0.0);
    EXPECT_EQ(stepper.maxValue(), 100.0);
    EXPECT_EQ(stepper.increment(), 1);
}

TEST(Stepper, HoldsAValueSetByProgramToItsRangeAndFiresNoAction) {
    Stepper stepper;
    stepper.setTargetAction(&stepper, [](View&) { ADD_FAILURE() << "fired"; });
    ChangeLog log(stepper);
    stepper.setIntValue(101);
    EXPECT_EQ(stepper.intValue(), 100);
    stepper.setIntValue(kHighest);
    EXPECT_EQ(log.take(), Changes{ViewChange::value});
    stepper.setIntValue(kLowest);
    EXPECT_EQ(stepper.intValue(), 0);
}

TEST(Stepper, MovesAValueOutsideANewRangeToTheNearerEnd) {
    Stepper stepper;
    stepper.setIntValue(50);
    ChangeLog log(stepper);
    stepper.setRange(60, 80);
    EXPECT_EQ(stepper.intValue(), 60);
    EXPECT_EQ(log.take(), (Changes{ViewChange::range, ViewChange::value}));
    stepper.setRange(-3, 9);
    EXPECT_EQ(stepper.intValue(), 9);
    log.take();
    stepper.setRange(-4, 9);
    EXPECT_EQ(stepper.intValue(), 9);
    EXPECT_EQ(log.take(), Changes{ViewChange::range});
    stepper.setRange(-4, 9);
    EXPECT_EQ(log.take(), Changes{});
}

TEST(Stepper, TakesARangeWithTheEndsExchangedAsItIsMeant) {
    Stepper stepper;
    stepper.setRange(80, 60);
    EXPECT_EQ(stepper.minValue(), 60.0);
    EXPECT_EQ(stepper.maxValue(), 80.0);
    EXPECT_EQ(stepper.intValue(), 60);
}

TEST(Stepper, HoldsToTheWholeNumbersOfARange) {
    Stepper stepper;
    stepper.setRange(-2.5, 2.5);
    stepper.setIntValue(-9);
    EXPECT_EQ(stepper.intValue(), -2);
    stepper.setIntValue(9);
    EXPECT_EQ(stepper.intValue(), 2);
    stepper.setRange(0.25, 0.75);
    EXPECT_EQ(stepper.intValue(), 1);
}

TEST(Stepper, HoldsToThirtyTwoBitsWhateverTheRange) {
    Stepper stepper;
    stepper.setRange(-1e300, std::numeric_limits<double>::infinity());
    stepper.setIntValue(kLowest);
    EXPECT_EQ(stepper.intValue(), kLowest);
    stepper.setIntValue(kHighest);
    EXPECT_EQ(stepper.intValue(), kHighest);
    stepper.setRange(1e20, 1e21);
    EXPECT_EQ(stepper.intValue(), kHighest);
    stepper.setRange(-1e21, -1e20);
    EXPECT_EQ(stepper.intValue(), kLowest);
}

TEST(Stepper, ARangeThatIsNoNumberChangesNothing) {
    Stepper stepper;
    ChangeLog log(stepper);
    stepper.setRange(std::nan(""), 5);
    stepper.setRange(5, std::nan(""));
    EXPECT_EQ(stepper.minValue(), 0.0);
    EXPECT_EQ(stepper.maxValue(), 100.0);
    EXPECT_EQ(log.take(), Changes{});
}

TEST(Stepper, AStepHoldsToTheRangeThenFires) {
    Stepper stepper;
    std::vector<std::int32_t> seen;
    stepper.setTargetAction(&stepper, [&](View&) { seen.push_back(stepper.intValue()); });
    EXPECT_TRUE(stepper.step(3));
    EXPECT_TRUE(stepper.step(1000));
    EXPECT_TRUE(stepper.step(1000)) << "fires also when the value stays";
    EXPECT_EQ(seen, (std::vector<std::int32_t>{3, 100, 100}));
}

TEST(Stepper, TakesNoStepWhenItTakesNoEvents) {
    Stepper stepper;
    stepper.setTargetAction(&stepper, [](View&) { ADD_FAILURE() << "fired"; });
    stepper.setEnabled(false);
    EXPECT_FALSE(stepper.step(3));
    EXPECT_EQ(stepper.intValue(), 0);
}

TEST(Stepper, AnnouncesAnotherIncrement) {
    Stepper stepper;
    ChangeLog log(stepper);
    stepper.setIncrement(5);
    stepper.setIncrement(5);
    EXPECT_EQ(stepper.increment(), 5);
    EXPECT_EQ(log.take(), Changes{ViewChange::range});
}

} // namespace
} // namespace specialpages::platform
