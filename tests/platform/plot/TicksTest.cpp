#include "engine/plot/DateTicks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <date/date.h>
#include <limits>

using namespace velmora::engine;
using namespace date::literals;

namespace {

struct NumberCase {
    const char* what;
    AxisRange range;
    int most;
    std::vector<std::string> labels;
};

class NumberTicks : public testing::TestWithParam<NumberCase> {};

std::vector<std::string> labelsOf(const std::vector<Tick>& ticks)
{
    std::vector<std::string> labels;
    for (const Tick& tick : ticks)
        labels.push_back(tick.label);
    return labels;
}

double daysOf(const date::year_month_day& date)
{
    return date::sys_days(date).time_since_epoch().count();
}

AxisRange days(const date::year_month_day& from, const date::year_month_day& to)
{
    return {daysOf(from), daysOf(to)};
}

} // namespace

TEST_P(NumberTicks, AreRoundAndNamed)
{
    EXPECT_EQ(labelsOf(numberTicks(GetParam().range, GetParam().most)), GetParam().labels);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, NumberTicks,
    testing::Values(NumberCase{"Unit", {0, 1}, 5, {"0", "0.2", "0.4", "0.6", "0.8", "1.0"}},
                    NumberCase{"Negative", {-25, -5}, 4, {"-25", "-20", "-15", "-10", "-5"}},
                    NumberCase{"AcrossZero", {-1.5, 1.6}, 4, {"-1", "0", "1"}},
                    NumberCase{"OddBorders", {0.13, 0.87}, 4, {"0.2", "0.4", "0.6", "0.8"}},
                    NumberCase{"Fives", {0, 23}, 5, {"0", "5", "10", "15", "20"}},
                    NumberCase{"Huge", {0, 3e9}, 3, {"0", "10⁹", "2×10⁹", "3×10⁹"}},
                    NumberCase{"HugeNegative", {-2e300, 0}, 2, {"-2×10³⁰⁰", "-10³⁰⁰", "0"}},
                    NumberCase{"TheLargest", {-1.1e308, 1.1e308}, 5, {"-10³⁰⁸", "-5×10³⁰⁷", "0", "5×10³⁰⁷", "10³⁰⁸"}},
                    NumberCase{"TheLargestInOnePart", {-1.1e308, 1.1e308}, 1, {"0"}},
                    NumberCase{"Tiny", {0, 4e-9}, 4, {"0", "10⁻⁹", "2×10⁻⁹", "3×10⁻⁹", "4×10⁻⁹"}},
                    NumberCase{"LargeAndNarrow", {5000000, 5000002}, 2, {"5000000", "5000001", "5000002"}},
                    NumberCase{"OneTick", {0.9, 1.1}, 1, {"1.0"}}, NumberCase{"ZeroRange", {3, 3}, 5, {}},
                    NumberCase{"Backwards", {4, 3}, 5, {}},
                    NumberCase{"NoNumber", {0, std::numeric_limits<double>::quiet_NaN()}, 5, {}},
                    NumberCase{"Infinite", {0, std::numeric_limits<double>::infinity()}, 5, {}},
                    NumberCase{"BeyondTheResolution", {1e17, 1e17 + 32}, 5, {}}),
    [](const testing::TestParamInfo<NumberCase>& tested) { return tested.param.what; });

TEST(NumberTicksAnyRange, AreNeverMoreThanAskedAndLieInside)
{
    for (double size = 1e-200; size < 1e200; size *= 7.3)
        for (int most = 1; most < 13; ++most) {
            const AxisRange range{-0.37 * size, 0.91 * size};
            const std::vector<Tick> ticks = numberTicks(range, most);
            EXPECT_LE(ticks.size(), static_cast<std::size_t>(most) + 1);
            EXPECT_GE(ticks.size(), 1u) << size << " " << most;
            for (const Tick& tick : ticks) {
                EXPECT_GE(tick.value, range.from - size * 1e-5);
                EXPECT_LE(tick.value, range.to + size * 1e-5);
            }
        }
}

TEST(RangeAround, GivesRoomAtBothEnds)
{
    const AxisRange range = rangeAround(0, 10, 0.05);
    EXPECT_DOUBLE_EQ(range.from, -0.5);
    EXPECT_DOUBLE_EQ(range.to, 10.5);
}

TEST(RangeAround, OneValueOrNoneHasARangeToo)
{
    EXPECT_LT(rangeAround(7, 7, 0.05).from, 7);
    EXPECT_GT(rangeAround(7, 7, 0.05).to, 7);
    EXPECT_GT(rangeAround(0, 0, 0.05).span(), 0);
    EXPECT_GT(rangeAround(-1e300, -1e300, 0.05).span(), 0);
    EXPECT_EQ(
        rangeAround(std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(), 0.1).span(), 1);
}

TEST(RangeAround, TheLargestNumbersHaveOneThatHoldsThem)
{
    constexpr double Most = std::numeric_limits<double>::max();
    for (const double size : {1e300, 1e308, Most}) {
        for (const AxisRange& range : {rangeAround(-size, size, 0.05), rangeAround(size, size, 0.05)}) {
            EXPECT_TRUE(std::isfinite(range.from) && std::isfinite(range.to));
            EXPECT_GE(range.fractionOf(size), 0.5);
            EXPECT_LE(range.fractionOf(size), 1);
        }
        EXPECT_DOUBLE_EQ(rangeAround(-size, size, 0.05).fractionOf(0), 0.5);
    }
}

TEST(FormatNumber, DropsTheSignOfZero)
{
    EXPECT_EQ(formatNumber(-0.0, 1), "0");
    EXPECT_EQ(formatNumber(-1e-17, 0.1), "0");
    EXPECT_EQ(formatNumber(-0.5, 0.5), "-0.5");
}

TEST(DateTicks, YearsForDecades)
{
    const std::vector<Tick> ticks = dateTicks(days(1958_y / 3 / 1, 2020_y / 4 / 1), 7);
    EXPECT_EQ(labelsOf(ticks), (std::vector<std::string>{"1960", "1970", "1980", "1990", "2000", "2010", "2020"}));
    EXPECT_EQ(ticks[1].value, 0);
}

TEST(DateTicks, HalfYearsForAFewYears)
{
    EXPECT_EQ(labelsOf(dateTicks(days(2012_y / 1 / 1, 2013_y / 12 / 31), 4)),
              (std::vector<std::string>{"2012-01", "2012-07", "2013-01", "2013-07"}));
}

TEST(DateTicks, MonthsAcrossALeapDay)
{
    const std::vector<Tick> ticks = dateTicks(days(2012_y / 1 / 15, 2012_y / 4 / 15), 4);
    EXPECT_EQ(labelsOf(ticks), (std::vector<std::string>{"2012-02", "2012-03", "2012-04"}));
    EXPECT_EQ(ticks[1].value - ticks[0].value, 29);
}

TEST(DateTicks, DaysForAWeek)
{
    EXPECT_EQ(labelsOf(dateTicks(days(2024_y / 2 / 27, 2024_y / 3 / 2), 5)),
              (std::vector<std::string>{"2024-02-27", "2024-02-28", "2024-02-29", "2024-03-01", "2024-03-02"}));
}

TEST(DateTicks, TimesOfDayShowTheDayAtMidnightAndFirst)
{
    const double day = daysOf(2024_y / 2 / 29);
    EXPECT_EQ(labelsOf(dateTicks({day + 0.7, day + 1.3}, 3)),
              (std::vector<std::string>{"2024-02-29 18:00", "2024-03-01", "06:00"}));
}

TEST(DateTicks, BeforeTheEpochTimesGoForwardsToo)
{
    const double day = daysOf(1969_y / 12 / 30);
    EXPECT_EQ(labelsOf(dateTicks({day, day + 1}, 2)), (std::vector<std::string>{"1969-12-30", "12:00", "1969-12-31"}));
}

TEST(DateTicks, FractionsOfASecondDownToAMicrosecond)
{
    const double start = daysOf(2024_y / 1 / 5) + 36000.0 / 86400;
    constexpr double Second = 1.0 / 86400;
    EXPECT_EQ(labelsOf(dateTicks({start, start + 1.1 * Second}, 3)),
              (std::vector<std::string>{"2024-01-05 10:00:00.0", "10:00:00.5", "10:00:01.0"}));
    EXPECT_EQ(labelsOf(dateTicks({start + 0.1221 * Second, start + 0.1245 * Second}, 3)),
              (std::vector<std::string>{"2024-01-05 10:00:00.123", "10:00:00.124"}));
    EXPECT_EQ(labelsOf(dateTicks({start - Second, start + Second}, 2)),
              (std::vector<std::string>{"2024-01-05 09:59:59", "10:00:00", "10:00:01"}));
    EXPECT_EQ(labelsOf(dateTicks({start - 0.4e-5 * Second, start + 1.4e-5 * Second}, 2)),
              (std::vector<std::string>{"2024-01-05 10:00:00.00000", "10:00:00.00001"}));
}

TEST(DateTicks, WhatIsNoDateIsANumber)
{
    EXPECT_EQ(labelsOf(dateTicks({0, 1e12}, 2)), (std::vector<std::string>{"0", "5×10¹¹", "10¹²"}));
    EXPECT_TRUE(dateTicks({5, 5}, 4).empty());
}

TEST(DateTicks, AreNeverManyMoreThanAsked)
{
    for (double span = 1e-10; span < 3e6; span *= 1.37)
        for (int most = 1; most < 13; ++most)
            EXPECT_LE(dateTicks({-span / 3, span / 2}, most).size(), static_cast<std::size_t>(most) + 2)
                << span << " " << most;
}
