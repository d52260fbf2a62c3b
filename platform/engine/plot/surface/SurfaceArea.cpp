#include "engine/plot/surface/SurfaceArea.h"

#include "engine/plot/PlotTexts.h"

#include <algorithm>

namespace velmora::engine {

namespace {

// Points.
constexpr double BesideLabels = 21; ///< free room between an axis, its labels, its title and what comes next
constexpr double BarAndGaps = 36;
constexpr double BarLabels = 40;
constexpr double RoomBesideBar = 40; ///< for labels between it and the surface

double labelRoom(const FrameSize& frame)
{
    return frame.points(BesideLabels) + frame.textSize(plotsize::Label) + frame.textSize(plotsize::AxisTitle);
}

} // namespace

double barRoom(const FrameSize& frame)
{
    return frame.points(BarAndGaps) + frame.besideLabel(BarLabels);
}

Rect surfaceArea(const FrameSize& frame)
{
    Rect area = frame.rect().grown(-frame.points(plotsize::Edge) - labelRoom(frame));
    area.y2 += labelRoom(frame) - frame.textSize(plotsize::Title) - frame.points(plotsize::Gap);
    area.x2 -= barRoom(frame) - labelRoom(frame) + frame.points(RoomBesideBar);
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
