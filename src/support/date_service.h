// A time of day between a record of hour and minute and a date text, and the offset of the local time zone as
// a text of its own form. Zone, clock and system version are the platform's and can be set; the process
// locale plays no part.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace specialpages {

/// The date record of the system's date services, as far as it is used here.
struct LongDateRec {
    std::int16_t hour = 0;
    std::int16_t minute = 0;
};

/// The difference that daylight saving makes in the local zone, in seconds and never negative: that of noon
/// UTC on the first of July and of January 2005.
long GetActualDSTSecondOffset();

/// The local zone's offset now, without daylight saving: a sign, then hours and minutes as one number of the
/// form HHMM, with one "0" before a number of three digits or fewer. "+0530", "-0800", "+1000", "+0000"; half
/// an hour is the short "+030". Seconds are cut off.
std::string GetActualTimeZoneString();

/// The text "2001-01-01 HH:MM:00 " and the zone's offset; the day is fixed, since only the time of day
/// matters. Numbers that are no time of day are written as they stand. `out` becomes the first `size` - 1
/// bytes of it; nothing happens without `out` or with a size under 1.
void ConvertLongDateToNSDate(const LongDateRec& rec, std::string* out, std::int32_t size);

/// Hour and minute of the moment in the local zone, read from a text of the date: on system 10.9
/// "HH:MM:SS", two characters from positions 0 and 3; on any other the date's description
/// "YYYY-MM-DD HH:MM:SS +HHMM", from positions 11 and 14.
/// Nothing without `rec`.
void ConvertNSDateToLongDate(std::chrono::system_clock::time_point date, LongDateRec* rec);

} // namespace specialpages
