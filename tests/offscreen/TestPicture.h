#pragma once

#include "tests/offscreen/GLTable.h"

#include <QImage>

namespace velmora::test {

// Pictures that OpenGL draws exactly, and that show when they are mirrored, shifted or have their
// channels swapped. `variant` (0, 1, …) gives pictures of other colours.

/// Tiles of unequal size, each in a colour of its own.
void drawTiles(const GLTable& gl, int width, int height, int variant = 0);
QImage tiles(int width, int height, int variant = 0);

/// A near red square over the left three quarters, drawn before a far green one over the right three
/// quarters: with a depth test red stays in front.
void drawDepthTested(const GLTable& gl, int width, int height);
QImage depthTested(int width, int height);

/// White below the diagonal of a black picture.
void drawDiagonal(const GLTable& gl, int width, int height);

/// Black with a white block in the lower left corner, one quarter of each side.
void drawCorner(const GLTable& gl, int width, int height);

} // namespace velmora::test
