#pragma once

#include "engine/text/FontFile.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velmora::engine {

/// A glyph and its place on a line. Lengths are fractions of the text's size.
struct ShapedGlyph {
    const FontFile* font = nullptr; ///< none: the frame around the code of a character that no font has
    std::uint32_t index = 0;        ///< of the glyph in its font; of a frame: the digits in each of its two rows
    double x = 0;                   ///< of the pen, from the line's start
    double y = 0;                   ///< of the pen, above the baseline
    double size = 1;                ///< of the glyph
};

/// A line of text for every size: its glyphs from left to right.
struct ShapedLine {
    std::vector<ShapedGlyph> glyphs;
    double width = 0;
};

/// Sets a line of UTF-8 text, whatever is in it, as `oneLine` tells. The direction is that of its first letter. What
/// the text's font lacks comes from others; what none has shows as a frame with its code. The same text gives the same
/// line in every locale.
ShapedLine shapeLine(const std::string& text, bool isBold);

} // namespace velmora::engine
