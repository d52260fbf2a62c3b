#include "engine/text/CodeFrame.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace velmora::engine {

namespace {

// Fractions of the text's size.
constexpr double DigitSize = 0.42;
constexpr double DigitWidth = 0.28;
constexpr double DigitHeight = 0.31;
constexpr double LineWidth = 0.05;
constexpr double Margin = 0.07; ///< outside the frame and inside it
constexpr double FrameBottom = -0.08;
constexpr double FrameHeight = 2 * DigitHeight + 3 * Margin + 2 * LineWidth;

double frameWidth(std::uint32_t digitsInARow)
{
    return digitsInARow * DigitWidth + 2 * (Margin + LineWidth);
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
    line.glyphs.push_back({nullptr, columns, line.width + Margin, 0, 1});
    for (std::uint32_t i = 0; i < 2 * columns; ++i) {
        const std::uint32_t glyph = digits.glyphOf(static_cast<unsigned char>(code[i]));
        const double free = DigitWidth - digits.advance(glyph) * DigitSize;
        const double x = line.width + 2 * Margin + LineWidth + (i % columns) * DigitWidth + free / 2;
        const double y = FrameBottom + LineWidth + Margin + (i < columns ? DigitHeight + Margin : 0);
        line.glyphs.push_back({&digits, glyph, x, y, DigitSize});
    }
    line.width += frameWidth(columns) + 2 * Margin;
}

Glyph codeFramePicture(std::uint32_t digitsInARow, double pixelSize)
{
    Glyph glyph;
    const int line = std::max(pixels(LineWidth, pixelSize), 1);
    glyph.width = std::max(pixels(frameWidth(digitsInARow), pixelSize), 2 * line + 1);
    glyph.height = std::max(pixels(FrameHeight, pixelSize), 2 * line + 1);
    glyph.top = glyph.height + pixels(FrameBottom, pixelSize);
    glyph.coverage.reserve(static_cast<std::size_t>(glyph.width) * static_cast<std::size_t>(glyph.height));
    for (int y = 0; y < glyph.height; ++y)
        for (int x = 0; x < glyph.width; ++x) {
            const int toBorder = std::min({x, y, glyph.width - 1 - x, glyph.height - 1 - y});
            glyph.coverage.push_back(toBorder < line ? 255 : 0);
        }
    return glyph;
}

} // namespace velmora::engine
