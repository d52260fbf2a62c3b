#pragma once

#include "engine/text/FontFace.h"

#include <memory>
#include <string>
#include <vector>

namespace velmora::engine {

/// How large a line of text is, in pixels.
struct TextExtent {
    double width = 0;
    double ascent = 0;  ///< above the baseline
    double descent = 0; ///< below it, positive
    double height() const { return ascent + descent; }
};

/// The size of a line of UTF-8 text; exactly proportional to `pixelSize`.
TextExtent measureText(FontFace& face, const std::string& text, double pixelSize);

/// The text, or as much of its beginning as is no wider than that, with an ellipsis.
std::string fitted(FontFace& face, const std::string& text, double pixelSize, double width);

/// A picture of text: coverage 0 to 255, row by row from the bottom.
struct TextImage {
    int left = 0;   ///< of the first column, from the pen's start
    int bottom = 0; ///< of the first row, from the baseline
    int width = 0;
    int height = 0;
    std::vector<unsigned char> coverage;
};

/// The same turned by 90 degrees: the text reads upwards.
TextImage turnedUpwards(const TextImage& image);

/// A line of text set at one size. Large text comes in several pictures, so that none of them takes
/// long to make.
class TextLine {
public:
    TextLine(FontFace& face, const std::string& text, double pixelSize);

    /// The picture of the next few glyphs from the left; false when there are none left.
    bool next(TextImage& image);

private:
    FontFace& m_face;
    std::shared_ptr<const ShapedLine> m_line;
    double m_pixelSize;
    std::size_t m_at = 0;
};

} // namespace velmora::engine
