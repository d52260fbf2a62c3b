#include "engine/text/FontFile.h"

#include "exception/ExceptionBase.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_SYNTHESIS_H

#include <algorithm>
#include <cmath>

namespace velmora::engine {

namespace {

constexpr double SmallestSize = 1;
constexpr double LargestSize = 4000;

Glyph pictureOf(const FT_GlyphSlot slot)
{
    const FT_Bitmap& bitmap = slot->bitmap;
    Glyph glyph;
    if (bitmap.pixel_mode != FT_PIXEL_MODE_GRAY || !bitmap.buffer)
        return glyph;
    glyph.width = static_cast<int>(bitmap.width);
    glyph.height = static_cast<int>(bitmap.rows);
    glyph.left = slot->bitmap_left;
    glyph.top = slot->bitmap_top;
    glyph.coverage.reserve(static_cast<std::size_t>(bitmap.rows) * bitmap.width);
    for (unsigned row = 0; row < bitmap.rows; ++row) {
        const unsigned char* first = bitmap.buffer + static_cast<std::ptrdiff_t>(row) * bitmap.pitch;
        glyph.coverage.insert(glyph.coverage.end(), first, first + bitmap.width);
    }
    return glyph;
}

} // namespace

long sixtyFourths(double pixels)
{
    return std::lround(std::clamp(pixels, SmallestSize, LargestSize) * 64);
}

struct FontFile::Impl {
    FT_Library library = nullptr;
    FT_Face face = nullptr;
    bool isEmboldened = false;

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
    double ems(FT_Pos units) const { return static_cast<double>(units) / std::max<int>(face->units_per_EM, 1); }
};

FontFile::FontFile(const FontFileName& name) : m_impl(std::make_unique<Impl>())
{
    m_impl->isEmboldened = name.isEmboldened;
    if (FT_Init_FreeType(&m_impl->library) != 0 ||
        FT_New_Face(m_impl->library, name.path.c_str(), name.index, &m_impl->face) != 0)
        throw ExceptionBase("The font " + name.path + " could not be opened. Install it anew, or DejaVu Sans.", false);
}

FontFile::~FontFile() = default;

// Light hinting moves outlines up and down only: strokes are crisp, and what was measured stays true.
Glyph FontFile::picture(std::uint32_t glyph, double pixelSize, int phase) const
{
    FT_Face face = m_impl->face;
    if (FT_Set_Char_Size(face, 0, sixtyFourths(pixelSize), 72, 72) != 0 ||
        FT_Load_Glyph(face, glyph, FT_LOAD_TARGET_LIGHT | FT_LOAD_NO_BITMAP) != 0)
        return {};
    if (m_impl->isEmboldened)
        FT_GlyphSlot_Embolden(face->glyph);
    if (face->glyph->format == FT_GLYPH_FORMAT_OUTLINE)
        FT_Outline_Translate(&face->glyph->outline, phase * 64 / PenPhases, 0);
    if (FT_Render_Glyph(face->glyph, FT_RENDER_MODE_NORMAL) != 0)
        return {};
    return pictureOf(face->glyph);
}

std::uint32_t FontFile::glyphOf(char32_t character) const
{
    return FT_Get_Char_Index(m_impl->face, character);
}

double FontFile::advance(std::uint32_t glyph) const
{
    if (FT_Load_Glyph(m_impl->face, glyph, FT_LOAD_NO_SCALE) != 0)
        return 0;
    return m_impl->ems(m_impl->face->glyph->advance.x);
}

double FontFile::ascent() const
{
    return m_impl->ems(m_impl->face->ascender);
}

double FontFile::descent() const
{
    return m_impl->ems(-m_impl->face->descender);
}

} // namespace velmora::engine
