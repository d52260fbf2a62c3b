#include "engine/text/FontFace.h"

#include "engine/text/CodeFrame.h"
#include "engine/text/FontMap.h"
#include "engine/text/PlainText.h"

namespace velmora::engine {

namespace {

constexpr std::size_t MostBytes = 32u << 20;
constexpr std::size_t MostGlyphsInLines = 40000; ///< 1.6 MB

} // namespace

FontFace& FontFace::regular()
{
    static FontFace face(false);
    return face;
}

FontFace& FontFace::bold()
{
    static FontFace face(true);
    return face;
}

FontFace::FontFace(bool isBold) : m_isBold(isBold)
{
    const FontFile& file = FontMap::instance().textFontFile(isBold);
    m_ascent = file.ascent();
    m_descent = file.descent();
}

// A line is measured several times before it is drawn, and again in each picture.
std::shared_ptr<const ShapedLine> FontFace::line(const std::string& text)
{
    if (text.size() > LongestText)
        return line(oneLine(text));
    const auto known = m_lines.find(text);
    if (known != m_lines.end())
        return known->second;
    if (m_glyphsInLines > MostGlyphsInLines) {
        m_lines.clear();
        m_glyphsInLines = 0;
    }
    auto made = std::make_shared<const ShapedLine>(shapeLine(text, m_isBold));
    m_glyphsInLines += made->glyphs.size() + 1;
    m_lines[text] = made;
    return made;
}

std::shared_ptr<const Glyph> FontFace::glyph(const ShapedGlyph& glyph, double pixelSize, int phase)
{
    const Key key(glyph.font, glyph.index, sixtyFourths(pixelSize * glyph.size), phase);
    const auto known = m_glyphs.find(key);
    if (known != m_glyphs.end())
        return known->second;
    if (m_bytes > MostBytes) {
        m_glyphs.clear();
        m_bytes = 0;
    }
    auto made =
        std::make_shared<const Glyph>(glyph.font ? glyph.font->picture(glyph.index, pixelSize * glyph.size, phase)
                                                 : codeFramePicture(glyph.index, pixelSize));
    m_bytes += made->coverage.size();
    m_glyphs[key] = made;
    return made;
}

} // namespace velmora::engine
