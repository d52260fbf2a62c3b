#include "engine/text/FontFace.h"

#include "engine/text/FontFinder.h"
#include "exception/ExceptionBase.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>

namespace velmora::engine {

namespace {

constexpr std::size_t cacheLimit = 32u << 20;
constexpr double smallestSize = 1;
constexpr double largestSize = 4000;

long sixtyFourths(double pixels)
{
    return std::lround(std::clamp(pixels, smallestSize, largestSize) * 64);
}

std::vector<unsigned char> coverageOf(const FT_Bitmap& bitmap)
{
    std::vector<unsigned char> coverage;
    coverage.reserve(static_cast<std::size_t>(bitmap.rows) * bitmap.width);
    for (unsigned row = 0; row < bitmap.rows; ++row) {
        const unsigned char* first = bitmap.buffer + static_cast<std::ptrdiff_t>(row) * bitmap.pitch;
        coverage.insert(coverage.end(), first, first + bitmap.width);
    }
    return coverage;
}

} // namespace

struct FontFace::Impl {
    FT_Library library = nullptr;
    FT_Face face = nullptr;

    Impl() = default;
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;
    ~Impl()
    {
        if (face)
            FT_Done_Face(face);
        if (library)
            FT_Done_FreeType(library);
    }
    void open(const FontFile& file)
    {
        if (FT_Init_FreeType(&library) != 0 || FT_New_Face(library, file.path.c_str(), file.index, &face) != 0)
            throw ExceptionBase("The font " + file.path + " could not be opened. Install DejaVu Sans.", false);
    }
};

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

FontFace::FontFace(bool isBold) : m_impl(std::make_unique<Impl>())
{
    m_impl->open(findFont(isBold));
}

FontFace::~FontFace() = default;

std::shared_ptr<const Glyph> FontFace::glyph(char32_t character, double pixelSize, int phase)
{
    const Key key(character, sixtyFourths(pixelSize), phase);
    const auto known = m_glyphs.find(key);
    if (known != m_glyphs.end())
        return known->second;
    if (m_bytes > cacheLimit) {
        m_glyphs.clear();
        m_bytes = 0;
    }
    std::shared_ptr<const Glyph> made = render(character, pixelSize, phase);
    m_bytes += made->coverage.size();
    m_glyphs[key] = made;
    return made;
}

std::shared_ptr<const Glyph> FontFace::render(char32_t character, double pixelSize, int phase)
{
    auto glyph = std::make_shared<Glyph>();
    FT_Face face = m_impl->face;
    if (FT_Set_Char_Size(face, 0, sixtyFourths(pixelSize), 72, 72) != 0 ||
        FT_Load_Char(face, character, FT_LOAD_TARGET_LIGHT | FT_LOAD_NO_BITMAP) != 0)
        return glyph;
    if (face->glyph->format == FT_GLYPH_FORMAT_OUTLINE)
        FT_Outline_Translate(&face->glyph->outline, phase * 64 / phases, 0);
    if (FT_Render_Glyph(face->glyph, FT_RENDER_MODE_NORMAL) != 0)
        return glyph;
    const FT_Bitmap& bitmap = face->glyph->bitmap;
    if (bitmap.pixel_mode != FT_PIXEL_MODE_GRAY || !bitmap.buffer)
        return glyph;
    glyph->width = static_cast<int>(bitmap.width);
    glyph->height = static_cast<int>(bitmap.rows);
    glyph->left = face->glyph->bitmap_left;
    glyph->top = face->glyph->bitmap_top;
    glyph->coverage = coverageOf(bitmap);
    return glyph;
}

double FontFace::advance(char32_t character, double pixelSize) const
{
    if (FT_Load_Char(m_impl->face, character, FT_LOAD_NO_SCALE) != 0)
        return 0;
    return pixelSize * static_cast<double>(m_impl->face->glyph->advance.x) / m_impl->face->units_per_EM;
}

double FontFace::ascent(double pixelSize) const
{
    return pixelSize * m_impl->face->ascender / m_impl->face->units_per_EM;
}

double FontFace::descent(double pixelSize) const
{
    return -pixelSize * m_impl->face->descender / m_impl->face->units_per_EM;
}

bool FontFace::has(char32_t character) const
{
    return FT_Get_Char_Index(m_impl->face, character) != 0;
}

} // namespace velmora::engine
