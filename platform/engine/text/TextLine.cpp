#include "engine/text/TextLine.h"

#include "engine/text/PlainText.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace velmora::engine {

namespace {

// About what FreeType renders in a fifth of a millisecond.
constexpr double PixelsAPicture = 12000;

struct PlacedGlyph {
    std::shared_ptr<const Glyph> glyph;
    int penX = 0;
    int penY = 0;
};

void growTo(TextImage& box, int& right, int& top, const PlacedGlyph& placed)
{
    const Glyph& glyph = *placed.glyph;
    box.left = std::min(box.left, placed.penX + glyph.left);
    box.bottom = std::min(box.bottom, placed.penY + glyph.top - glyph.height);
    right = std::max(right, placed.penX + glyph.left + glyph.width);
    top = std::max(top, placed.penY + glyph.top);
}

// Neighbours may overlap by a pixel: the stronger coverage counts.
void copyInto(TextImage& image, const PlacedGlyph& placed)
{
    const Glyph& glyph = *placed.glyph;
    for (int row = 0; row < glyph.height; ++row) {
        const int y = placed.penY + glyph.top - 1 - row - image.bottom;
        const int x = placed.penX + glyph.left - image.left;
        unsigned char* target = &image.coverage[static_cast<std::size_t>(y) * static_cast<std::size_t>(image.width) +
                                                static_cast<std::size_t>(x)];
        const unsigned char* source =
            &glyph.coverage[static_cast<std::size_t>(row) * static_cast<std::size_t>(glyph.width)];
        std::transform(source, source + glyph.width, target, target,
                       [](unsigned char a, unsigned char b) { return std::max(a, b); });
    }
}

TextImage compose(const std::vector<PlacedGlyph>& glyphs)
{
    TextImage image;
    if (glyphs.empty())
        return image;
    image.left = image.bottom = std::numeric_limits<int>::max();
    int right = std::numeric_limits<int>::min();
    int top = right;
    for (const PlacedGlyph& placed : glyphs)
        growTo(image, right, top, placed);
    image.width = right - image.left;
    image.height = top - image.bottom;
    image.coverage.resize(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
    for (const PlacedGlyph& placed : glyphs)
        copyInto(image, placed);
    return image;
}

} // namespace

TextExtent measureText(FontFace& face, const std::string& text, double pixelSize)
{
    TextExtent extent;
    extent.width = pixelSize * face.line(text)->width;
    extent.ascent = face.ascent(pixelSize);
    extent.descent = face.descent(pixelSize);
    return extent;
}

std::string fitted(FontFace& face, const std::string& text, double pixelSize, double width)
{
    const auto fits = [&](const std::string& part) { return measureText(face, part, pixelSize).width <= width; };
    if (fits(text))
        return text;
    std::size_t fitting = 0;
    std::size_t tooMany = std::min(text.size(), LongestLine);
    while (fitting + 1 < tooMany) {
        const std::size_t middle = (fitting + tooMany) / 2;
        (fits(shortened(text, middle)) ? fitting : tooMany) = middle;
    }
    return shortened(text, fitting);
}

TextImage turnedUpwards(const TextImage& image)
{
    TextImage turned;
    turned.width = image.height;
    turned.height = image.width;
    turned.left = -(image.bottom + image.height);
    turned.bottom = image.left;
    turned.coverage.resize(image.coverage.size());
    for (int y = 0; y < turned.height; ++y)
        for (int x = 0; x < turned.width; ++x)
            turned.coverage[static_cast<std::size_t>(y) * static_cast<std::size_t>(turned.width) +
                            static_cast<std::size_t>(x)] =
                image.coverage[static_cast<std::size_t>(image.height - 1 - x) * static_cast<std::size_t>(image.width) +
                               static_cast<std::size_t>(y)];
    return turned;
}

TextLine::TextLine(FontFace& face, const std::string& text, double pixelSize)
    : m_face(face), m_line(face.line(text)), m_pixelSize(pixelSize)
{}

bool TextLine::next(TextImage& image)
{
    if (m_at == m_line->glyphs.size())
        return false;
    std::vector<PlacedGlyph> glyphs;
    double pixels = 0;
    while (m_at < m_line->glyphs.size() && pixels < PixelsAPicture) {
        const ShapedGlyph& shaped = m_line->glyphs[m_at++];
        const double x = shaped.x * m_pixelSize;
        const int pen = static_cast<int>(std::floor(x));
        const int phase = std::min(static_cast<int>((x - pen) * PenPhases), PenPhases - 1);
        PlacedGlyph placed{m_face.glyph(shaped, m_pixelSize, phase), pen,
                           static_cast<int>(std::lround(shaped.y * m_pixelSize))};
        if (!placed.glyph->coverage.empty())
            glyphs.push_back(placed);
        pixels += m_pixelSize * m_pixelSize;
    }
    image = compose(glyphs);
    return true;
}

} // namespace velmora::engine
