#pragma once

#include "engine/text/ShapedLine.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <unordered_map>

namespace velmora::engine {

/// The engine's text font at any size, for one thread, with other fonts for what it lacks. Shaped lines and glyph
/// pictures are kept in main memory, not in a context's textures, so that they serve every context and outlive each.
class FontFace {
public:
    /// Throws velmora::ExceptionBase when the system has no font.
    static FontFace& regular();
    static FontFace& bold();

    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;

    std::shared_ptr<const ShapedLine> line(const std::string& text);
    /// The picture of a glyph in a text of this size, the pen `phase` quarters of a pixel right of a pixel's edge.
    std::shared_ptr<const Glyph> glyph(const ShapedGlyph& glyph, double pixelSize, int phase);

    double ascent(double pixelSize) const { return pixelSize * m_ascent; }   ///< above the baseline
    double descent(double pixelSize) const { return pixelSize * m_descent; } ///< below the baseline, positive

private:
    using Key = std::tuple<const FontFile*, std::uint32_t, long, int>;

    explicit FontFace(bool isBold);

    bool m_isBold;
    double m_ascent = 0;
    double m_descent = 0;
    std::unordered_map<std::string, std::shared_ptr<const ShapedLine>> m_lines;
    std::size_t m_glyphsInLines = 0;
    std::map<Key, std::shared_ptr<const Glyph>> m_glyphs;
    std::size_t m_bytes = 0;
};

} // namespace velmora::engine
