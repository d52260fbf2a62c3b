#include "engine/plot/Palette.h"

#include <cmath>
#include <iterator>

namespace velmora::engine {

namespace {

const Color lineColors[] = {
    {0, 92, 158, 255},   {200, 78, 22, 255}, {0, 138, 104, 255}, {170, 84, 140, 255},
    {60, 160, 215, 255}, {90, 94, 102, 255}, {140, 112, 0, 255},
};

// Lightness rises evenly, so that the order of heights shows in grey as well.
const Color heightColors[] = {
    {56, 60, 132, 255},  {49, 92, 148, 255},  {42, 124, 146, 255}, {45, 154, 134, 255},
    {92, 182, 106, 255}, {158, 203, 82, 255}, {216, 218, 92, 255}, {250, 236, 150, 255},
};

unsigned char between(unsigned char a, unsigned char b, double fraction)
{
    return static_cast<unsigned char>(std::lround(a + (b - a) * fraction));
}

} // namespace

Color lineColor(std::size_t line)
{
    return lineColors[line % std::size(lineColors)];
}

std::size_t lineDashes(std::size_t line)
{
    constexpr std::size_t Patterns = 4;
    return line / std::size(lineColors) % Patterns;
}

Color heightColor(double fraction)
{
    const double place = std::clamp(fraction, 0.0, 1.0) * (std::size(heightColors) - 1);
    const std::size_t lower = std::min(static_cast<std::size_t>(place), std::size(heightColors) - 2);
    const Color& a = heightColors[lower];
    const Color& b = heightColors[lower + 1];
    const double fractionBetween = place - static_cast<double>(lower);
    return {between(a.red, b.red, fractionBetween), between(a.green, b.green, fractionBetween),
            between(a.blue, b.blue, fractionBetween), 255};
}

} // namespace velmora::engine
