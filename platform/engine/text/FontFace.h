#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <tuple>
#include <vector>

namespace velmora::engine {

/// The picture of one character: coverage 0 to 255, row by row from the top.
struct Glyph {
    int width = 0;
    int height = 0;
    int left = 0; ///< of the first column, from the pen, pixels
    int top = 0;  ///< of the upper edge of the first row, above the baseline
    std::vector<unsigned char> coverage;
};

/// A font at any size, for one thread. Glyph pictures are kept in main memory, not in a context's
/// textures, so that they serve every context and outlive each.
class FontFace {
public:
    /// The positions of a pen within a pixel that a glyph is drawn for.
    static constexpr int phases = 4;

    /// The engine's text font. Throws velmora::ExceptionBase when there is none.
    static FontFace& regular();
    static FontFace& bold();

    ~FontFace();
    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;

    /// The picture of a character, the pen `phase` quarters of a pixel right of a pixel's edge.
    std::shared_ptr<const Glyph> glyph(char32_t character, double pixelSize, int phase);
    /// How far the pen moves, the same fraction of the size at every size.
    double advance(char32_t character, double pixelSize) const;
    double ascent(double pixelSize) const;  ///< above the baseline
    double descent(double pixelSize) const; ///< below the baseline, positive
    bool has(char32_t character) const;

private:
    struct Impl;
    using Key = std::tuple<char32_t, long, int>;

    explicit FontFace(bool isBold);
    std::shared_ptr<const Glyph> render(char32_t character, double pixelSize, int phase);

    std::unique_ptr<Impl> m_impl;
    std::map<Key, std::shared_ptr<const Glyph>> m_glyphs;
    std::size_t m_bytes = 0;
};

} // namespace velmora::engine
