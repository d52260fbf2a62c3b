#include "engine/page/Mark.h"

#include "engine/core/Checkpoint.h"
#include "engine/gl/GLStateGuard.h"
#include "engine/plot/Canvas.h"
#include "engine/plot/Palette.h"

namespace velmora::engine {

namespace {

// Of discs that lie one on the other, in points.
constexpr double OuterRadius = 4;
constexpr double WhiteRadius = 3.2;
constexpr double InnerRadius = 2.2;

} // namespace

void paintMark(const Mark& mark, const GLFunctions& gl, int width, int height, double pixelsPerPoint)
{
    const GLStateGuard guard(gl);
    Drawing drawing;
    drawing.targetWidth = width;
    drawing.targetHeight = height;
    drawing.frameWidth = width;
    drawing.frameHeight = height;
    drawing.pixelsPerPoint = pixelsPerPoint;
    const DrawingMeansScope means({&gl, false});
    NoCheckpoint checkpoint;
    Canvas canvas(drawing, checkpoint);
    const auto disc = [&](double radius, Color color) {
        Stroke stroke(1, color);
        stroke.addDisc({mark.x, mark.y, 0}, radius * pixelsPerPoint);
        canvas.stroke(stroke);
    };
    disc(OuterRadius, palette::Ink);
    disc(WhiteRadius, {255, 255, 255, 255});
    disc(InnerRadius, palette::Selected);
    canvas.finish();
}

} // namespace velmora::engine
