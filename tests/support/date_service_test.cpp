#include "platform/foundation/clock.h"
#include "platform/foundation/comma_locale.h"
#include "platform/foundation/system_version.h"
#include "platform/foundation/time_zone.h"
#include "support/date_service.h"
#include "support/settings_access.h"

#include <gtest/gtest.h>

#include <chrono>

namespace specialpages {
namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;

constexpr auto kJanuary = sys_days(2024y / 1 / 15) + 12h;
constexpr auto kJuly = sys_days(2024y / 7 / 15) + 12h;

class DateService : public testing::Test {
  public:
    DateService() { at("Etc/UTC", kJanuary); }
    ~DateService() override {
        platform::set_clock(std::nullopt);
        platform::set_local_time_zone(std::nullopt);
        platform::set_kernel_release_source(nullptr);
        ResetGestalt_ALT();
    }
    DateService(const DateService&) = delete;
    DateService& operator=(const DateService&) = delete;

  protected:
    static void at(const char* zone, std::chrono::system_clock::time_point moment) {
        platform::set_local_time_zone(zone);
        platform::set_clock(moment);
    }
    static void kernel(const char* release) {
        platform::set_kernel_release_source([release] { return std::string(release); });
        ResetGestalt_ALT();
    }
    static std::string zone_text(const char* zone, std::chrono::system_clock::time_point moment = kJanuary) {
        at(zone, moment);
        return GetActualTimeZoneString();
    }
    static std::pair<int, int> read(std::chrono::system_clock::time_point date) {
        LongDateRec rec{-1, -1};
        ConvertNSDateToLongDate(date, &rec);
        return {rec.hour, rec.minute};
    }
    static std::string written(std::int16_t hour, std::int16_t minute, std::int32_t size = 256) {
        std::string out = "before";
        ConvertLongDateToNSDate({hour, minute}, &out, size);
        return out;
    }
};

using Hours = std::pair<int, int>;

TEST_F(DateService, ZoneTextHasHoursAndMinutesAsOneNumber) {
    EXPECT_EQ(zone_text("Asia/Kolkata"), "+0530");
    EXPECT_EQ(zone_text("America/Los_Angeles"), "-0800");
    EXPECT_EQ(zone_text("Australia/Brisbane"), "+1000");
    EXPECT_EQ(zone_text("Etc/UTC"), "+0000");
    EXPECT_EQ(zone_text("America/St_Johns"), "-0330");
    EXPECT_EQ(zone_text("Asia/Kathmandu"), "+0545");
    EXPECT_EQ(zone_text("Etc/GMT+12"), "-1200");
    EXPECT_EQ(zone_text("Etc/GMT+10"), "-1000");
    EXPECT_EQ(zone_text("Etc/GMT+9"), "-0900");
    EXPECT_EQ(zone_text("Pacific/Marquesas"), "-0930");
    EXPECT_EQ(zone_text("Pacific/Kiritimati"), "+1400");
    EXPECT_EQ(zone_text("Asia/Tokyo"), "+0900");
}

TEST_F(DateService, AnOffsetUnderAnHourIsShort) {
    EXPECT_EQ(zone_text("GMT+00:30"), "+030");
    EXPECT_EQ(zone_text("GMT-00:30"), "-030");
    EXPECT_EQ(zone_text("GMT+00:05"), "+05");
    EXPECT_EQ(zone_text("Africa/Monrovia", sys_days(1971y / 6 / 1)), "-044") << "44 minutes and a half";
}

TEST_F(DateService, ZoneTextLeavesDaylightSavingOut) {
    EXPECT_EQ(zone_text("Europe/Berlin", kJanuary), "+0100");
    EXPECT_EQ(zone_text("Europe/Berlin", kJuly), "+0100");
    EXPECT_EQ(zone_text("America/New_York", kJuly), "-0500");
    EXPECT_EQ(zone_text("Australia/Sydney", kJanuary), "+1000") << "summer is in January";
    EXPECT_EQ(zone_text("Australia/Sydney", kJuly), "+1000");
    EXPECT_EQ(zone_text("Europe/London", kJuly), "+0000");
    EXPECT_EQ(zone_text("Australia/Lord_Howe", kJanuary), "+1030") << "half an hour of daylight saving";
}

TEST_F(DateService, ZoneTextHoldsOnBothSidesOfAChange) {
    const auto change = sys_days(2024y / 3 / 31) + 1h;
    EXPECT_EQ(zone_text("Europe/Berlin", change - 1s), "+0100");
    EXPECT_EQ(zone_text("Europe/Berlin", change), "+0100");
}

TEST_F(DateService, DaylightSavingOfAYearWithoutItCountsAsNone) {
    // Turkey had it in 2005 and has stood at its summer offset since 2016, which is no daylight saving now.
    at("Europe/Istanbul", kJuly);
    EXPECT_EQ(GetActualDSTSecondOffset(), 3600);
    EXPECT_EQ(GetActualTimeZoneString(), "+0300");
}

TEST_F(DateService, DaylightSavingIsTheDifferenceWithinTheYear2005) {
    at("Europe/Berlin", kJanuary);
    EXPECT_EQ(GetActualDSTSecondOffset(), 3600);
    at("Australia/Sydney", kJanuary);
    EXPECT_EQ(GetActualDSTSecondOffset(), 3600) << "never negative";
    at("Australia/Lord_Howe", kJanuary);
    EXPECT_EQ(GetActualDSTSecondOffset(), 1800);
    for (const char* zone : {"Etc/UTC", "Asia/Tokyo", "No/Such"}) {
        at(zone, kJuly);
        EXPECT_EQ(GetActualDSTSecondOffset(), 0) << zone;
    }
}

TEST_F(DateService, AnUnknownZoneIsWithoutOffset) {
    EXPECT_EQ(zone_text("No/Such"), "+0000");
    EXPECT_EQ(zone_text(""), "+0000");
}

TEST_F(DateService, WritesTheTimeOnAFixedDay) {
    EXPECT_EQ(written(7, 5), "2001-01-01 07:05:00 +0000");
    EXPECT_EQ(written(0, 0), "2001-01-01 00:00:00 +0000");
    EXPECT_EQ(written(23, 59), "2001-01-01 23:59:00 +0000");
    EXPECT_EQ(written(9, 10), "2001-01-01 09:10:00 +0000");
    at("Asia/Kolkata", kJuly);
    EXPECT_EQ(written(10, 9), "2001-01-01 10:09:00 +0530");
}

TEST_F(DateService, WritesNumbersThatAreNoTimeAsTheyStand) {
    EXPECT_EQ(written(100, -5), "2001-01-01 100:0-5:00 +0000");
    EXPECT_EQ(written(-32768, 32767), "2001-01-01 0-32768:32767:00 +0000");
}

TEST_F(DateService, CutsTheTextToItsBuffer) {
    EXPECT_EQ(written(7, 5, 26), "2001-01-01 07:05:00 +0000");
    EXPECT_EQ(written(7, 5, 25), "2001-01-01 07:05:00 +000");
    EXPECT_EQ(written(7, 5, 1), "");
    EXPECT_EQ(written(7, 5, 0), "before");
    EXPECT_EQ(written(7, 5, -1), "before");
    ConvertLongDateToNSDate({7, 5}, nullptr, 26);
}

TEST_F(DateService, ReadsTheLocalTimeOnEverySystem) {
    for (const char* release : {"13.4.0", "13.0.0", "12.0.0", "11.0.0", "14.0.0", "19.6.0"}) {
        kernel(release);
        at("Etc/UTC", kJanuary);
        EXPECT_EQ(read(sys_days(2001y / 1 / 1) + 7h + 5min + 59s), Hours(7, 5)) << release;
        EXPECT_EQ(read(sys_days(2001y / 12 / 31) + 23h + 59min), Hours(23, 59)) << release;
        at("Asia/Kolkata", kJanuary);
        EXPECT_EQ(read(sys_days(2001y / 1 / 1) + 20h), Hours(1, 30)) << release << ": the next day";
        at("America/St_Johns", kJanuary);
        EXPECT_EQ(read(sys_days(2001y / 1 / 1)), Hours(20, 30)) << release << ": the day before";
    }
}

TEST_F(DateService, SystemTenNineIsOneWithAnyBugFixVersion) {
    kernel("13.4.0");
    EXPECT_EQ(system_version(), 0x1094);
    EXPECT_EQ(read(sys_days(2024y / 2 / 29) + 12h + 34min), Hours(12, 34));
}

TEST_F(DateService, ReadsLeapDaysAndMomentsBeforeTheEpoch) {
    for (const char* release : {"13.4.0", "12.0.0"}) {
        kernel(release);
        EXPECT_EQ(read(sys_days(2024y / 2 / 29) + 23h + 58min), Hours(23, 58));
        EXPECT_EQ(read(sys_days(2000y / 2 / 29)), Hours(0, 0));
        EXPECT_EQ(read(sys_days(1969y / 12 / 31) + 23h + 59min + 59s), Hours(23, 59));
        EXPECT_EQ(read(sys_days(1970y / 1 / 1) - 1ns), Hours(23, 59)) << "rounded down, not to zero";
    }
}

TEST_F(DateService, ReadsBothSidesOfAChangeOfTheClocks) {
    at("Europe/Berlin", kJanuary);
    const auto spring = sys_days(2024y / 3 / 31) + 1h;
    EXPECT_EQ(read(spring - 1s), Hours(1, 59));
    EXPECT_EQ(read(spring), Hours(3, 0));
    const auto autumn = sys_days(2024y / 10 / 27) + 1h;
    EXPECT_EQ(read(autumn - 1s), Hours(2, 59));
    EXPECT_EQ(read(autumn), Hours(2, 0));
}

TEST_F(DateService, ToleratesAMissingRecord) {
    ConvertNSDateToLongDate(kJanuary, nullptr);
}

TEST_F(DateService, TakesNoNoticeOfTheProcessLocale) {
    const platform::testing::CommaLocale locale;
    EXPECT_EQ(zone_text("America/St_Johns"), "-0330");
    EXPECT_EQ(written(1000, 5), "2001-01-01 1000:05:00 -0330");
    kernel("12.0.0");
    EXPECT_EQ(read(sys_days(2024y / 7 / 1) + 12h), Hours(9, 30));
}

} // namespace
} // namespace specialpages
