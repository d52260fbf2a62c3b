#include "engine/text/CodeFrame.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace velmora::engine {

namespace {

// Fractions of the text's size.
constexpr double digitSize = 0.42;
constexpr double digitWidth = 0.28;
constexpr double digitHeight = 0.31;
constexpr double lineWidth = 0.05;
constexpr double margin = 0.07; ///< outside the frame and inside it
constexpr double frameBottom = -0.08;
constexpr double frameHeight = 2 * digitHeight + 3 * margin + 2 * lineWidth;

double frameWidth(std::uint32_t digitsInARow)
{
    return digitsInARow * digitWidth + 2 * (margin + lineWidth);
}

int pixels(double fraction, double pixelSize)
{
    return static_cast<int>(std::lround(fraction * pixelSize));
}

} // namespace

void addCodeFrame(ShapedLine& line, char32_t character, const FontFile& digits)
{
    char code[16];
    const std::uint32_t columns = character > 0xFFFF ? 3 : 2;
    std::snprintf(code, sizeof code, "%0*X", static_cast<int>(2 * columns), static_cast<unsigned>(character));
    line.glyphs.push_back({nullptr, columns, line.width + margin, 0, 1});
    for (std::uint32_t i = 0; i < 2 * columns; ++i) {
        const std::uint32_t glyph = digits.glyphOf(static_cast<unsigned char>(code[i]));
        const double free = digitWidth - digits.advance(glyph) * digitSize;
        const double x = line.width + 2 * margin + lineWidth + (i % columns) * digitWidth + free / 2;
        const double y = frameBottom + lineWidth + margin + (i < columns ? digitHeight + margin : 0);
        line.glyphs.push_back({&digits, glyph, x, y, digitSize});
    }
    line.width += frameWidth(columns) + 2 * margin;
}

Glyph codeFramePicture(std::uint32_t digitsInARow, double pixelSize)
{
    Glyph glyph;
    const int line = std::max(pixels(lineWidth, pixelSize), 1);
    glyph.width = std::max(pixels(frameWidth(digitsInARow), pixelSize), 2 * line + 1);
    glyph.height = std::max(pixels(frameHeight, pixelSize), 2 * line + 1);
    glyph.top = glyph.height + pixels(frameBottom, pixelSize);
    glyph.coverage.reserve(static_cast<std::size_t>(glyph.width) * static_cast<std::size_t>(glyph.height));
    for (int y = 0; y < glyph.height; ++y)
        for (int x = 0; x < glyph.width; ++x) {
            const int toBorder = std::min({x, y, glyph.width - 1 - x, glyph.height - 1 - y});
            glyph.coverage.push_back(toBorder < line ? 255 : 0);
        }
    return glyph;
}

} // namespace velmora::engine
