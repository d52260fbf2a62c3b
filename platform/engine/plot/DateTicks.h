#pragma once

#include "engine/plot/Ticks.h"

#include <cstdint>

namespace velmora::engine {

/// A day of the Gregorian calendar, also before its introduction.
struct CalendarDay {
    std::int64_t year = 1970;
    int month = 1; ///< 1 to 12
    int day = 1;   ///< 1 to 31
};

/// Days since 1970-01-01.
std::int64_t daysOf(const CalendarDay& date);
CalendarDay calendarDayOf(std::int64_t days);

/// Some two thousand years each way, in days, are dates; what lies beyond is shown as a number of days.
constexpr double largestDate = 4e6;

/// "1970-03-05", or "1970-03" without the day.
std::string dayLabel(const CalendarDay& date, bool withDay);
/// "06:30", or "06:30:15", for the seconds since midnight.
std::string timeLabel(std::int64_t second, bool withSeconds);

/// Ticks of an axis of days since 1970-01-01, at whole years, months, days or times of day:
/// "1970", "1970-03", "1970-03-05", "06:30". At most `most` + 1.
std::vector<Tick> dateTicks(const AxisRange& range, int most);

} // namespace velmora::engine
