#pragma once

#include "engine/text/ShapedLine.h"

namespace velmora::engine {

/// Adds a frame with the hexadecimal code of a character to the end of a line.
void addCodeFrame(ShapedLine& line, char32_t character, const FontFile& digits);

/// The picture of a frame alone.
Glyph codeFramePicture(std::uint32_t digitsInARow, double pixelSize);

} // namespace velmora::engine
