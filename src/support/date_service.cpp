#include "support/date_service.h"

#include "platform/foundation/clock.h"
#include "platform/foundation/numbers.h"
#include "platform/foundation/time_zone.h"
#include "support/settings_access.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string_view>

namespace specialpages {

namespace {

using namespace std::chrono_literals;
using Moment = std::chrono::system_clock::time_point;

constexpr Moment kSummer = std::chrono::sys_days(std::chrono::year(2005) / 7 / 1) + 12h;
constexpr Moment kWinter = std::chrono::sys_days(std::chrono::year(2005) / 1 / 1) + 12h;

/// System 10.9, whose versions differ in the last four bits.
constexpr std::int32_t kVersionOfCalendarFormat = 0x1090;
constexpr std::int32_t kBugFixBits = 0xF;

/// At least so many digits, with zeros in front; `value` is not negative.
std::string padded(std::int64_t value, std::size_t digits) {
    std::string text = platform::decimal_text(value);
    return text.insert(0, digits - std::min(digits, text.size()), '0');
}

/// Only what is under ten gets a zero in front, a negative number too.
std::string two_digits(std::int16_t value) {
    return (value < 10 ? "0" : "") + platform::decimal_text(value);
}

/// "HH:MM:SS" of a moment that is given in local time.
std::string time_text(std::chrono::local_seconds local) {
    const std::chrono::hh_mm_ss time(local - std::chrono::floor<std::chrono::days>(local));
    return padded(time.hours().count(), 2) + ":" + padded(time.minutes().count(), 2) + ":" +
           padded(time.seconds().count(), 2);
}

/// "YYYY-MM-DD HH:MM:SS +HHMM".
std::string description(std::chrono::local_seconds local, std::int32_t offset) {
    const std::chrono::year_month_day day(std::chrono::floor<std::chrono::days>(local));
    const std::int32_t minutes = std::abs(offset) / 60;
    return padded(static_cast<int>(day.year()), 4) + "-" + padded(static_cast<unsigned>(day.month()), 2) +
           "-" + padded(static_cast<unsigned>(day.day()), 2) + " " + time_text(local) + " " +
           (offset < 0 ? "-" : "+") + padded(minutes / 60, 2) + padded(minutes % 60, 2);
}

std::int16_t two_characters(std::string_view text, std::size_t at) {
    return static_cast<std::int16_t>(platform::int_value(text.substr(at, 2)));
}

} // namespace

long GetActualDSTSecondOffset() {
    return std::labs(platform::seconds_from_gmt(kSummer) - platform::seconds_from_gmt(kWinter));
}

std::string GetActualTimeZoneString() {
    const Moment now = platform::now();
    long seconds = platform::seconds_from_gmt(now);
    if (platform::is_daylight_saving_time(now)) {
        seconds -= GetActualDSTSecondOffset();
    }
    // Single precision throughout: what the steps round to is part of the answer.
    const float hours = static_cast<float>(seconds) / 3600.0F;
    const float whole = std::trunc(hours);
    const float number = (hours - whole) * 60.0F + whole * 100;
    const auto digits = [](float value) {
        return platform::decimal_text(static_cast<std::int64_t>(value));
    };
    if (number < 0) {
        return number >= -999 ? "-0" + digits(-number) : digits(number);
    }
    if (number > 0) {
        return (number <= 999 ? "+0" : "+") + digits(number);
    }
    return "+0000";
}

void ConvertLongDateToNSDate(const LongDateRec& rec, std::string* out, std::int32_t size) {
    if (out == nullptr || size < 1) {
        return;
    }
    const std::string text = "2001-01-01 " + two_digits(rec.hour) + ":" + two_digits(rec.minute) + ":00 " +
                             GetActualTimeZoneString();
    *out = text.substr(0, static_cast<std::size_t>(size) - 1);
}

void ConvertNSDateToLongDate(Moment date, LongDateRec* rec) {
    if (rec == nullptr) {
        return;
    }
    const std::int32_t offset = platform::seconds_from_gmt(date);
    const auto seconds = std::chrono::floor<std::chrono::seconds>(date).time_since_epoch();
    const std::chrono::local_seconds local(seconds + std::chrono::seconds(offset));
    const bool calendarFormat = (system_version() & ~kBugFixBits) == kVersionOfCalendarFormat;
    const std::string text = calendarFormat ? time_text(local) : description(local, offset);
    const std::size_t hour = calendarFormat ? 0 : 11;
    rec->hour = two_characters(text, hour);
    rec->minute = two_characters(text, hour + 3);
}

} // namespace specialpages
