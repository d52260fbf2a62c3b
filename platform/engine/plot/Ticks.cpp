#include "engine/plot/Ticks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace velmora::engine {

namespace {

// Beyond these a plain number has more noughts than digits.
constexpr double LargestPlain = 1e7;
constexpr double SmallestPlain = 1e-4;
// Neighbouring values of a double are about this far apart, as a fraction.
constexpr double Resolution = 1e-14;
constexpr int TicksADecade = 3; // 1, 2, 5
// So many parts of a range have two ticks between them, wherever it begins.
constexpr int EnoughParts = 5;
constexpr double MostNumber = std::numeric_limits<double>::max();

double magnitudeOf(const AxisRange& range)
{
    return std::max(std::fabs(range.from), std::fabs(range.to));
}

int decimalsFor(double step)
{
    return std::clamp(static_cast<int>(std::ceil(-std::log10(step) - 1e-9)), 0, 17);
}

// The same in every locale: what a file shows must not depend on where it was drawn.
std::string plainNumber(double value, int decimals)
{
    std::array<char, 400> buffer{};
    const auto written =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals);
    const std::string text(buffer.data(), written.ptr);
    const bool isZero = text.find_first_of("123456789") == std::string::npos;
    return isZero && text[0] == '-' ? text.substr(1) : text;
}

std::string withoutTrailingNoughts(std::string digits)
{
    if (digits.find('.') == std::string::npos)
        return digits;
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.')
        digits.pop_back();
    return digits;
}

std::string superscript(int number)
{
    static const char* const digits[] = {"⁰", "¹", "²", "³", "⁴", "⁵", "⁶", "⁷", "⁸", "⁹"};
    std::string text = number < 0 ? "⁻" : "";
    for (char digit : std::to_string(std::abs(number)))
        text += digits[digit - '0'];
    return text;
}

std::string powerNumber(double value, double step)
{
    int exponent = static_cast<int>(std::floor(std::log10(std::fabs(value)) + 1e-12));
    // In long double: a power of ten beyond 1e308 is needed for the smallest numbers.
    const long double unit = std::pow(10.0L, exponent);
    const double mantissa = static_cast<double>(value / unit);
    const int decimals = decimalsFor(static_cast<double>(step / unit));
    const std::string digits = withoutTrailingNoughts(plainNumber(mantissa, decimals));
    return (digits == "1" ? "" : digits == "-1" ? "-" : digits + "×") + "10" + superscript(exponent);
}

/// The decades inside a range, or each n-th of them, with so many ticks a decade.
std::vector<Tick> decadeTicks(const AxisRange& range, int every, bool withTwoAndFive)
{
    std::vector<Tick> ticks;
    const auto first = static_cast<int>(std::floor(range.from / every)) * every;
    for (int decade = first; decade <= range.to; decade += every)
        for (const double factor : {1.0, 2.0, 5.0}) {
            const double place = decade + std::log10(factor);
            if ((factor > 1 && !withTwoAndFive) || place < range.from - 1e-9 || place > range.to + 1e-9)
                continue;
            // Exact where a power of ten is: its inverse is not.
            const double power = std::pow(10.0, std::abs(decade));
            const double value = decade < 0 ? factor / power : factor * power;
            ticks.push_back({value, formatNumber(value, value / factor)});
        }
    return ticks;
}

bool isUsable(const AxisRange& range)
{
    return std::isfinite(range.from) && std::isfinite(range.to) && range.span() > 0;
}

} // namespace

AxisRange rangeAround(double smallest, double largest, double roomFraction)
{
    if (!std::isfinite(smallest) || !std::isfinite(largest) || smallest > largest)
        return {0, 1};
    const double size = std::max(std::fabs(smallest), std::fabs(largest));
    if (largest - smallest <= size * 1e-12) {
        const double room = size > 0 ? size * 0.05 : 0.5;
        return {std::max(smallest - room, -MostNumber), std::min(largest + room, MostNumber)};
    }
    const double room = largest * roomFraction - smallest * roomFraction;
    return {std::max(smallest - room, -MostNumber), std::min(largest + room, MostNumber)};
}

double niceStep(const AxisRange& range, int most)
{
    const int parts = std::max(most, 1);
    const double rough = range.to / parts - range.from / parts;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (double factor : {1.0, 2.0, 5.0})
        if (factor * power >= rough * (1 - 1e-9))
            return factor * power;
    return 10 * power;
}

std::vector<Tick> numberTicks(const AxisRange& range, int most, double leastStep)
{
    std::vector<Tick> ticks;
    if (!isUsable(range))
        return ticks;
    const double step = std::max(niceStep(range, most), leastStep);
    if (!std::isfinite(step) && range.from <= 0 && range.to >= 0)
        ticks.push_back({0, "0"});
    if (!std::isfinite(step) || !(step > magnitudeOf(range) * Resolution))
        return ticks;
    constexpr double Tolerance = 1e-6; // of a step
    const double first = std::ceil(range.from / step - Tolerance);
    for (int i = 0; i <= most + 1; ++i) {
        const double value = (first + i) * step;
        if (value / step > range.to / step + Tolerance)
            break;
        ticks.push_back({value, formatNumber(value, step)});
    }
    return ticks;
}

std::vector<Tick> logarithmicTicks(const AxisRange& range, int most)
{
    if (!isUsable(range))
        return {};
    int every = std::max(1, static_cast<int>(std::lround(niceStep(range, most))));
    std::vector<Tick> ticks = decadeTicks(range, every, range.span() * TicksADecade <= most);
    for (; ticks.size() < 2 && every > 1; ticks = decadeTicks(range, every, false))
        every = (every + 1) / 2;
    if (ticks.size() < 2)
        ticks = decadeTicks(range, 1, true);
    const AxisRange values{std::pow(10.0, range.from), std::pow(10.0, range.to)};
    for (int more = most; ticks.size() < 2 && more <= most + EnoughParts; ++more)
        ticks = numberTicks(values, more);
    return ticks;
}

std::string formatNumber(double value, double step)
{
    if (std::fabs(value) < step * 1e-6)
        return "0";
    const double size = std::fabs(value);
    if (size < LargestPlain && (size >= SmallestPlain || step >= SmallestPlain))
        return plainNumber(value, decimalsFor(step));
    return powerNumber(value, step);
}

} // namespace velmora::engine
