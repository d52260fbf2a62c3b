#pragma once

#include "engine/plot/SelectablePlot.h"
#include "engine/plot/surface/Camera.h"

namespace velmora::engine {

/// From the colour bar's left edge to the frame's right one.
double barRoom(const FrameSize& frame);

/// The part of the frame that the surface fits into: between the title, the colour bar and the labels.
Rect surfaceArea(const FrameSize& frame);
/// The middle of it, as fractions of the frame.
Point surfaceCenter(const FrameSize& frame);
Camera cameraFor(const SurfaceView& view, const SurfaceShape& shape, const FrameSize& frame);

} // namespace velmora::engine
