#include "engine/plot/DateTicks.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

namespace velmora::engine {

namespace {

constexpr double secondsADay = 86400;

enum class Unit { Seconds, Days, Months };

struct Step {
    Unit unit;
    int count;
    double days; ///< about
};

const Step steps[] = {
    {Unit::Seconds, 1, 1 / secondsADay},
    {Unit::Seconds, 5, 5 / secondsADay},
    {Unit::Seconds, 15, 15 / secondsADay},
    {Unit::Seconds, 30, 30 / secondsADay},
    {Unit::Seconds, 60, 60 / secondsADay},
    {Unit::Seconds, 300, 300 / secondsADay},
    {Unit::Seconds, 900, 900 / secondsADay},
    {Unit::Seconds, 1800, 1800 / secondsADay},
    {Unit::Seconds, 3600, 1 / 24.0},
    {Unit::Seconds, 10800, 3 / 24.0},
    {Unit::Seconds, 21600, 6 / 24.0},
    {Unit::Seconds, 43200, 12 / 24.0},
    {Unit::Days, 1, 1},
    {Unit::Days, 2, 2},
    {Unit::Days, 5, 5},
    {Unit::Days, 10, 10},
    {Unit::Months, 1, 30.4},
    {Unit::Months, 2, 60.8},
    {Unit::Months, 3, 91.3},
    {Unit::Months, 6, 182.6},
};

/// Whole years in steps of 1, 2 or 5 times a power of ten.
Step yearStep(const AxisRange& range, int most)
{
    const AxisRange years{range.from / 365.2425, range.to / 365.2425};
    const int count = std::max(1, static_cast<int>(std::lround(niceStep(years, most))));
    return {Unit::Months, 12 * count, 365.2425 * count};
}

Step stepFor(const AxisRange& range, int most)
{
    for (const Step& step : steps)
        if (range.span() / step.days <= most)
            return step;
    return yearStep(range, most);
}

/// With as many noughts before it as make it that long.
std::string padded(std::int64_t number, std::size_t length)
{
    const std::string digits = std::to_string(std::abs(number));
    const std::size_t noughts = length - std::min(length, digits.size() + (number < 0 ? 1 : 0));
    return (number < 0 ? "-" : "") + std::string(noughts, '0') + digits;
}

std::int64_t floorDivide(std::int64_t a, std::int64_t b)
{
    return a / b - (a % b < 0 ? 1 : 0);
}

// A time of day means nothing without its day: midnight shows the day, and so does the first tick.
std::vector<Tick> timeTicks(const AxisRange& range, const Step& step)
{
    std::vector<Tick> ticks;
    const auto last = static_cast<std::int64_t>(std::floor(range.to * secondsADay + 1e-3));
    auto at = static_cast<std::int64_t>(std::ceil(range.from * secondsADay / step.count - 1e-6)) * step.count;
    for (; at <= last; at += step.count) {
        const std::int64_t day = floorDivide(at, 86400);
        const std::int64_t second = at - day * 86400;
        const std::string date = dayLabel(calendarDayOf(day), true);
        const std::string time = timeLabel(second, step.count < 60);
        std::string firstLabel = date;
        if (second != 0)
            firstLabel.append(" ").append(time);
        ticks.push_back({static_cast<double>(at) / secondsADay, ticks.empty() || second == 0 ? firstLabel : time});
    }
    return ticks;
}

// Days of the month 1, 11, 21 rather than every tenth day of an endless count; a rest of the month
// too short for a whole step is left without a tick.
bool isDayTick(const CalendarDay& date, int count)
{
    return (date.day - 1) % count == 0 && (count == 1 || date.day - 1 <= 30 - count);
}

std::vector<Tick> dayTicks(const AxisRange& range, const Step& step)
{
    std::vector<Tick> ticks;
    const auto last = static_cast<std::int64_t>(std::floor(range.to));
    for (auto day = static_cast<std::int64_t>(std::ceil(range.from)); day <= last; ++day) {
        const CalendarDay date = calendarDayOf(day);
        if (isDayTick(date, step.count))
            ticks.push_back({static_cast<double>(day), dayLabel(date, true)});
    }
    return ticks;
}

std::vector<Tick> monthTicks(const AxisRange& range, const Step& step)
{
    std::vector<Tick> ticks;
    const CalendarDay start = calendarDayOf(static_cast<std::int64_t>(std::floor(range.from)));
    const std::int64_t startMonth = start.year * 12 + start.month - 1;
    for (std::int64_t month = floorDivide(startMonth, step.count) * step.count;; month += step.count) {
        const CalendarDay date{floorDivide(month, 12), static_cast<int>(month - floorDivide(month, 12) * 12) + 1, 1};
        const auto value = static_cast<double>(daysOf(date));
        if (value > range.to)
            return ticks;
        if (value >= range.from)
            ticks.push_back({value, step.count >= 12 ? std::to_string(date.year) : dayLabel(date, false)});
    }
}

} // namespace

std::string dayLabel(const CalendarDay& date, bool withDay)
{
    return padded(date.year, 4) + '-' + padded(date.month, 2) + (withDay ? '-' + padded(date.day, 2) : "");
}

std::string timeLabel(std::int64_t second, bool withSeconds)
{
    const std::string minutes = padded(second / 3600, 2) + ':' + padded(second / 60 % 60, 2);
    return withSeconds ? minutes + ':' + padded(second % 60, 2) : minutes;
}

// The year begins in March here, so that the leap day is the last one of a year.
std::int64_t daysOf(const CalendarDay& date)
{
    const std::int64_t year = date.year - (date.month <= 2 ? 1 : 0);
    const std::int64_t era = floorDivide(year, 400);
    const std::int64_t yearOfEra = year - era * 400;
    const std::int64_t dayOfYear = (153 * (date.month + (date.month > 2 ? -3 : 9)) + 2) / 5 + date.day - 1;
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

CalendarDay calendarDayOf(std::int64_t days)
{
    const std::int64_t shifted = days + 719468;
    const std::int64_t era = floorDivide(shifted, 146097);
    const std::int64_t dayOfEra = shifted - era * 146097;
    const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t shiftedMonth = (5 * dayOfYear + 2) / 153;
    const int month = static_cast<int>(shiftedMonth < 10 ? shiftedMonth + 3 : shiftedMonth - 9);
    const int day = static_cast<int>(dayOfYear - (153 * shiftedMonth + 2) / 5) + 1;
    return {yearOfEra + era * 400 + (month <= 2 ? 1 : 0), month, day};
}

std::vector<Tick> dateTicks(const AxisRange& range, int most)
{
    const bool areDates = std::fabs(range.from) < largestDate && std::fabs(range.to) < largestDate;
    if (!areDates || !(range.span() * secondsADay >= 4))
        return numberTicks(range, most);
    const Step step = stepFor(range, std::max(most, 1));
    if (step.unit == Unit::Seconds)
        return timeTicks(range, step);
    return step.unit == Unit::Days ? dayTicks(range, step) : monthTicks(range, step);
}

} // namespace velmora::engine
