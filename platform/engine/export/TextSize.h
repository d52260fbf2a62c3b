#pragma once

#include "engine/export/PictureRequest.h"

namespace velmora::engine {

/// Pixels for one point of text and line width in a picture of the active page, or 0 when the
/// region has a size of its own. With `dotsPerInch` above 0 a point is as large as at that
/// resolution.
double pixelsPerPointOf(const PictureRequest& request, double dotsPerInch);

} // namespace velmora::engine
