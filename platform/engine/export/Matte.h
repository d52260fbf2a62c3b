#pragma once

namespace velmora::engine {

/// One row of a picture that was drawn twice, on white and on black ground, as pixels of red, green, blue
/// and alpha: where the two are alike the drawing covers the ground, and the more they differ the more of it
/// shows through. Colours are not multiplied by alpha; where nothing was drawn all four are 0.
///
/// `onWhite` and `onBlack` hold three bytes a pixel, `rgba` four.
void matteRow(const unsigned char* onWhite, const unsigned char* onBlack, int pixels, unsigned char* rgba);

} // namespace velmora::engine
