#include "engine/plot/surface/SurfaceArea.h"

#include "engine/plot/PlotTexts.h"

#include <algorithm>

namespace velmora::engine {

namespace {

// Points.
constexpr double LabelRoom = 40;
constexpr double RoomBesideBar = 40; ///< for labels between it and the surface

} // namespace

Rect surfaceArea(const FrameSize& frame)
{
    Rect area = frame.rect().grown(-frame.points(plotsize::Edge + LabelRoom));
    area.y2 += frame.points(LabelRoom - plotsize::Title - plotsize::Gap);
    area.x2 -= frame.points(BarRoom - LabelRoom + RoomBesideBar);
    return {area.x1, area.y1, std::max(area.x2, area.x1 + 1), std::max(area.y2, area.y1 + 1)};
}

Point surfaceCenter(const FrameSize& frame)
{
    const Rect area = surfaceArea(frame);
    return {(area.x1 + area.x2) / 2 / frame.width, (area.y1 + area.y2) / 2 / frame.height};
}

Camera cameraFor(const SurfaceView& view, const SurfaceShape& shape, const FrameSize& frame)
{
    return {view, shape, frame.rect(), surfaceArea(frame)};
}

} // namespace velmora::engine
