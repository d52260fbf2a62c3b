#pragma once

#include "engine/plot/PlotTexts.h"
#include "engine/plot/surface/Camera.h"

#include <memory>
#include <string>
#include <vector>

namespace velmora::engine {

/// The numbers of the objects of a surface plot.
namespace surfaceobject {

constexpr int Surface = 0;                                                 ///< the zone
constexpr int Title = 0, XTitle = 1, YTitle = 2, ZTitle = 3, BarTitle = 4; ///< texts
constexpr int XAxis = 0, YAxis = 1, ZAxis = 2, ColorBar = 3;               ///< geometries

} // namespace surfaceobject

/// A line of the box in frame pixels.
struct BoxLine {
    Point from;
    Point to;
};

struct SurfaceAxis {
    int object; ///< of kind geometry
    BoxLine line;
    std::vector<BoxLine> ticks;
    std::vector<TextItem> labels;
};

/// Where everything but the surface itself stands, in frame pixels.
struct SurfaceLayout {
    Camera camera;
    std::vector<BoxLine> grid;  ///< on the floor and on the far walls
    std::vector<BoxLine> edges; ///< of the floor and of the far walls
    std::vector<SurfaceAxis> axes;
    std::vector<PlotText> texts;
    std::vector<TextItem> barLabels;
    Rect bar;
};

SurfaceLayout layOut(const Grid& grid, const SurfaceShape& shape, const SurfaceView& view, const FrameSize& frame);

} // namespace velmora::engine
