#pragma once

#include "engine/gl/GLFunctions.h"
#include "engine/text/TextLine.h"

namespace velmora::engine {

/// Puts a picture of text on the target with the current colour, its pen's start at whole target
/// pixels. Expects pixel coordinates, blending on and an unpack alignment of one. The textures live
/// for this call only: nothing is kept that another context could mistake for its own.
void paintTextImage(const GLFunctions& gl, const TextImage& image, int penX, int penY, int targetWidth,
                    int targetHeight);

} // namespace velmora::engine
