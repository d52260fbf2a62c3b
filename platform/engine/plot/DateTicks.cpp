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
constexpr double largestDate = 4e6;
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

date::year_month_day dateOf(std::int64_t days)
{
    return date::sys_days(date::days(days));
}

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

std::string dayLabel(const date::year_month_day& date, bool withDay)
{
    return padded(int(date.year()), 4) + '-' + padded(unsigned(date.month()), 2) +
           (withDay ? '-' + padded(unsigned(date.day()), 2) : "");
}

std::string timeLabel(std::int64_t second, bool withSeconds)
{
    const std::string minutes = padded(second / 3600, 2) + ':' + padded(second / 60 % 60, 2);
    return withSeconds ? minutes + ':' + padded(second % 60, 2) : minutes;
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
        const std::string date = dayLabel(dateOf(day), true);
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
bool isDayTick(const date::year_month_day& date, int count)
{
    const int before = static_cast<int>(unsigned(date.day())) - 1;
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
    const bool areDates = std::fabs(range.from) < largestDate && std::fabs(range.to) < largestDate;
    if (!areDates || !(range.span() * secondsADay >= 4))
        return numberTicks(range, most);
    const Step step = stepFor(range, std::max(most, 1));
    if (step.unit == Unit::Seconds)
        return timeTicks(range, step);
    return step.unit == Unit::Days ? dayTicks(range, step) : monthTicks(range, step);
}

} // namespace velmora::engine
