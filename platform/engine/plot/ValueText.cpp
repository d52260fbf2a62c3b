#include "engine/plot/ValueText.h"

#include "engine/plot/DateTicks.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace velmora::engine {

namespace {

constexpr int digits = 9;
constexpr double secondsADay = 86400;

} // namespace

std::string valueText(double value)
{
    std::array<char, 40> buffer{};
    const auto written =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, digits);
    return {buffer.data(), written.ptr};
}

std::string valueText(float value)
{
    std::array<char, 40> buffer{};
    return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr};
}

std::string dateText(double days)
{
    if (!(std::fabs(days) < largestDate))
        return valueText(days);
    const auto seconds = static_cast<std::int64_t>(std::llround(days * secondsADay));
    const auto day = static_cast<std::int64_t>(std::floor(static_cast<double>(seconds) / secondsADay));
    const std::int64_t second = seconds - day * static_cast<std::int64_t>(secondsADay);
    const std::string date = dayLabel(calendarDayOf(day), true);
    return second == 0 ? date : date + ' ' + timeLabel(second, second % 60 != 0);
}

} // namespace velmora::engine
