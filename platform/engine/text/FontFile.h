#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace velmora::engine {

/// The picture of one glyph: coverage 0 to 255, row by row from the top.
struct Glyph {
    int width = 0;
    int height = 0;
    int left = 0; ///< of the first column, from the pen, pixels
    int top = 0;  ///< of the upper edge of the first row, above the baseline
    std::vector<unsigned char> coverage;
};

/// The positions of a pen within a pixel that a glyph is drawn for.
constexpr int PenPhases = 4;

/// A size in the unit that glyphs are drawn in; two sizes with the same value look the same.
long sixtyFourths(double pixels);

/// What tells one font from another: its file, which of the fonts in the file, whether a bold font is made of it.
struct FontFileName {
    std::string path;
    int index = 0;
    bool isEmboldened = false;

    bool operator<(const FontFileName& other) const
    {
        return std::tie(path, index, isEmboldened) < std::tie(other.path, other.index, other.isEmboldened);
    }
};

/// An open font, for one thread.
class FontFile {
public:
    /// Throws velmora::ExceptionBase when the file cannot be read as a font.
    explicit FontFile(const FontFileName& name);
    ~FontFile();
    FontFile(const FontFile&) = delete;
    FontFile& operator=(const FontFile&) = delete;

    /// The picture of a glyph, the pen `phase` quarters of a pixel right of a pixel's edge. Empty when the font has no
    /// outline for it.
    Glyph picture(std::uint32_t glyph, double pixelSize, int phase) const;
    std::uint32_t glyphOf(char32_t character) const; ///< 0 when the font has none

    // Fractions of the font's size.
    double advance(std::uint32_t glyph) const;
    double ascent() const;  ///< above the baseline
    double descent() const; ///< below the baseline, positive

private:
    struct Impl;

    std::unique_ptr<Impl> m_impl;
};

} // namespace velmora::engine
