#include "platform/foundation/TemporaryDirectory.h"
#include "platform/foundation/time_zone.h"

#include <gtest/gtest.h>

#include <chrono>

namespace specialpages::platform {
namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;
using testing::ScopedEnvironment;

constexpr auto kWinter = sys_days(2024y / 1 / 15) + 12h;
constexpr auto kSummer = sys_days(2024y / 7 / 15) + 12h;

class TimeZoneTest : public ::testing::Test {
  public:
    TimeZoneTest() = default;
    TimeZoneTest(const TimeZoneTest&) = delete;
    TimeZoneTest& operator=(const TimeZoneTest&) = delete;
    ~TimeZoneTest() override { set_local_time_zone(std::nullopt); }
};

TEST_F(TimeZoneTest, AFixedZoneTakesThePlaceOfTheSystems) {
    set_local_time_zone("Europe/Berlin");
    EXPECT_EQ(local_time_zone_name(), "Europe/Berlin");
    EXPECT_EQ(seconds_from_gmt(kWinter), 3600);
    EXPECT_EQ(seconds_from_gmt(kSummer), 7200);
}

TEST_F(TimeZoneTest, EastIsPositiveAndWestNegative) {
    set_local_time_zone("America/New_York");
    EXPECT_EQ(seconds_from_gmt(kWinter), -18000);
    EXPECT_EQ(seconds_from_gmt(kSummer), -14400);
    set_local_time_zone("Asia/Kathmandu");
    EXPECT_EQ(seconds_from_gmt(kWinter), 20700);
    set_local_time_zone("Etc/UTC");
    EXPECT_EQ(seconds_from_gmt(kWinter), 0);
}

TEST_F(TimeZoneTest, DaylightSavingBeginsOnItsSecond) {
    set_local_time_zone("Europe/Berlin");
    const auto change = sys_days(2024y / 3 / 31) + 1h;
    EXPECT_EQ(seconds_from_gmt(change - 1ns), 3600);
    EXPECT_EQ(seconds_from_gmt(change), 7200);
}

TEST_F(TimeZoneTest, TellsWhetherDaylightSavingIsOn) {
    set_local_time_zone("Europe/Berlin");
    EXPECT_FALSE(is_daylight_saving_time(kWinter));
    EXPECT_TRUE(is_daylight_saving_time(kSummer));
    const auto change = sys_days(2024y / 3 / 31) + 1h;
    EXPECT_FALSE(is_daylight_saving_time(change - 1ns));
    EXPECT_TRUE(is_daylight_saving_time(change));
    set_local_time_zone("Australia/Sydney");
    EXPECT_TRUE(is_daylight_saving_time(kWinter));
    EXPECT_FALSE(is_daylight_saving_time(kSummer));
    for (const char* zone : {"Asia/Tokyo", "Etc/UTC", "No/Such"}) {
        set_local_time_zone(zone);
        EXPECT_FALSE(is_daylight_saving_time(kSummer)) << zone;
    }
}

TEST_F(TimeZoneTest, KnowsMomentsBeforeTheEpoch) {
    set_local_time_zone("Europe/Berlin");
    EXPECT_EQ(seconds_from_gmt(sys_days(1960y / 7 / 1)), 3600);
}

TEST_F(TimeZoneTest, AnUnknownNameIsAnUnknownZoneWithoutOffset) {
    for (const char* name : {"No/Such", "", "\xFF", "Berlin"}) {
        set_local_time_zone(name);
        EXPECT_EQ(local_time_zone_name(), "Etc/Unknown") << name;
        EXPECT_EQ(seconds_from_gmt(kSummer), 0) << name;
    }
}

TEST_F(TimeZoneTest, FollowsTheEnvironmentEachTime) {
    {
        const ScopedEnvironment zone("TZ", "Asia/Tokyo");
        EXPECT_EQ(local_time_zone_name(), "Asia/Tokyo");
        EXPECT_EQ(seconds_from_gmt(kSummer), 32400);
    }
    const ScopedEnvironment zone("TZ", "Europe/Berlin");
    EXPECT_EQ(local_time_zone_name(), "Europe/Berlin");
    EXPECT_EQ(seconds_from_gmt(kSummer), 7200);
}

TEST_F(TimeZoneTest, TheSystemsZoneComesBack) {
    const ScopedEnvironment zone("TZ", "Asia/Tokyo");
    set_local_time_zone("Europe/Berlin");
    EXPECT_EQ(local_time_zone_name(), "Europe/Berlin");
    set_local_time_zone(std::nullopt);
    EXPECT_EQ(local_time_zone_name(), "Asia/Tokyo");
}

} // namespace
} // namespace specialpages::platform
