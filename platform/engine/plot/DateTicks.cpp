#include "engine/plot/DateTicks.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <date/date.h>
#include <string>

namespace velmora::engine {

namespace {

// Some two thousand years each way are dates; what lies beyond is shown as a number of days.
constexpr double LargestDate = 4e6;
constexpr std::int64_t MicrosecondsADay = 86400000000;
constexpr std::int64_t Second = 1000000; // microseconds
constexpr std::int64_t Minute = 60 * Second;
constexpr std::int64_t Hour = 60 * Minute;

enum class Unit { Microseconds, Days, Months };

struct Step {
    Unit unit;
    std::int64_t count;
    double days() const; ///< about
};

// From a second on; below it comes 1, 2 or 5 times a power of ten of microseconds.
const Step steps[] = {
    {Unit::Microseconds, Second},
    {Unit::Microseconds, 5 * Second},
    {Unit::Microseconds, 15 * Second},
    {Unit::Microseconds, 30 * Second},
    {Unit::Microseconds, Minute},
    {Unit::Microseconds, 5 * Minute},
    {Unit::Microseconds, 15 * Minute},
    {Unit::Microseconds, 30 * Minute},
    {Unit::Microseconds, Hour},
    {Unit::Microseconds, 3 * Hour},
    {Unit::Microseconds, 6 * Hour},
    {Unit::Microseconds, 12 * Hour},
    {Unit::Days, 1},
    {Unit::Days, 2},
    {Unit::Days, 5},
    {Unit::Days, 10},
    {Unit::Months, 1},
    {Unit::Months, 2},
    {Unit::Months, 3},
    {Unit::Months, 6},
};

double Step::days() const
{
    constexpr double DaysAMonth = 365.2425 / 12;
    const double one = unit == Unit::Microseconds ? 1.0 / MicrosecondsADay : unit == Unit::Days ? 1 : DaysAMonth;
    return one * static_cast<double>(count);
}

date::year_month_day dateOf(std::int64_t days)
{
    return date::sys_days(date::days(days));
}

/// Whole years in steps of 1, 2 or 5 times a power of ten.
Step yearStep(const AxisRange& range, int most)
{
    const AxisRange years{range.from / 365.2425, range.to / 365.2425};
    return {Unit::Months, 12 * std::max<std::int64_t>(1, std::llround(niceStep(years, most)))};
}

Step stepFor(const AxisRange& range, int most)
{
    const double microseconds = range.span() * static_cast<double>(MicrosecondsADay);
    if (microseconds <= static_cast<double>(Second / 2 * most))
        return {Unit::Microseconds, std::max<std::int64_t>(1, std::llround(niceStep({0, microseconds}, most)))};
    for (const Step& step : steps)
        if (range.span() / step.days() <= most)
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

std::string dayLabel(const date::year_month_day& date, bool withDay)
{
    return padded(int(date.year()), 4) + '-' + padded(unsigned(date.month()), 2) +
           (withDay ? '-' + padded(unsigned(date.day()), 2) : "");
}

/// With as many parts as ticks in such steps need.
std::string timeLabel(std::int64_t time, std::int64_t step)
{
    std::string label = padded(time / Hour, 2) + ':' + padded(time / Minute % 60, 2);
    if (step % Minute == 0)
        return label;
    label += ':' + padded(time / Second % 60, 2);
    if (step % Second == 0)
        return label;
    std::size_t decimals = 6;
    for (std::int64_t rest = step; rest % 10 == 0; rest /= 10)
        --decimals;
    return label + '.' + padded(time % Second, 6).substr(0, decimals);
}

std::int64_t floorDivide(std::int64_t a, std::int64_t b)
{
    return a / b - (a % b < 0 ? 1 : 0);
}

// A time of day means nothing without its day: midnight shows the day, and so does the first tick.
std::vector<Tick> timeTicks(const AxisRange& range, const Step& step)
{
    std::vector<Tick> ticks;
    constexpr double PerDay = MicrosecondsADay;
    const double count = static_cast<double>(step.count);
    auto number = static_cast<std::int64_t>(std::ceil(range.from * PerDay / count - 1e-6));
    const auto last = static_cast<std::int64_t>(std::floor(range.to * PerDay / count + 1e-6));
    for (; number <= last; ++number) {
        const std::int64_t at = number * step.count;
        const std::int64_t day = floorDivide(at, MicrosecondsADay);
        const std::int64_t time = at - day * MicrosecondsADay;
        const std::string label = timeLabel(time, step.count);
        std::string withDay = dayLabel(dateOf(day), true);
        if (time != 0)
            withDay.append(" ").append(label);
        ticks.push_back({static_cast<double>(at) / PerDay, ticks.empty() || time == 0 ? withDay : label});
    }
    return ticks;
}

// Days of the month 1, 11, 21 rather than every tenth day of an endless count; a rest of the month
// too short for a whole step is left without a tick.
bool isDayTick(const date::year_month_day& date, std::int64_t count)
{
    const std::int64_t before = static_cast<std::int64_t>(unsigned(date.day())) - 1;
    return before % count == 0 && (count == 1 || before <= 30 - count);
}

std::vector<Tick> dayTicks(const AxisRange& range, const Step& step)
{
    std::vector<Tick> ticks;
    const auto last = static_cast<std::int64_t>(std::floor(range.to));
    for (auto day = static_cast<std::int64_t>(std::ceil(range.from)); day <= last; ++day) {
        const date::year_month_day date = dateOf(day);
        if (isDayTick(date, step.count))
            ticks.push_back({static_cast<double>(day), dayLabel(date, true)});
    }
    return ticks;
}

std::vector<Tick> monthTicks(const AxisRange& range, const Step& step)
{
    std::vector<Tick> ticks;
    const date::year_month_day start = dateOf(static_cast<std::int64_t>(std::floor(range.from)));
    const std::int64_t startMonth = int(start.year()) * 12 + static_cast<int>(unsigned(start.month())) - 1;
    for (std::int64_t month = floorDivide(startMonth, step.count) * step.count;; month += step.count) {
        const int year = static_cast<int>(floorDivide(month, 12));
        const date::year_month_day date = date::year(year) / static_cast<int>(month - year * 12 + 1) / 1;
        const auto value = static_cast<double>(date::sys_days(date).time_since_epoch().count());
        if (value > range.to)
            return ticks;
        if (value >= range.from)
            ticks.push_back({value, step.count >= 12 ? std::to_string(year) : dayLabel(date, false)});
    }
}

} // namespace

std::vector<Tick> dateTicks(const AxisRange& range, int most)
{
    const bool areDates = std::fabs(range.from) < LargestDate && std::fabs(range.to) < LargestDate;
    if (!areDates || !(range.span() * MicrosecondsADay >= 4))
        return numberTicks(range, most);
    const Step step = stepFor(range, std::max(most, 1));
    if (step.unit == Unit::Microseconds)
        return timeTicks(range, step);
    return step.unit == Unit::Days ? dayTicks(range, step) : monthTicks(range, step);
}

} // namespace velmora::engine
