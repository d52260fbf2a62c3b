#include "engine/page/Mark.h"

#include "engine/core/Checkpoint.h"
#include "engine/gl/GLStateGuard.h"
#include "engine/plot/Canvas.h"
#include "engine/plot/Palette.h"

namespace velmora::engine {

namespace {

// Of discs that lie one on the other, in points.
constexpr double outerRadius = 4;
constexpr double whiteRadius = 3.2;
constexpr double innerRadius = 2.2;

} // namespace

void paintMark(const Mark& mark, const GLFunctions& gl, int width, int height, double pixelsPerPoint)
{
    const GLStateGuard guard(gl);
    Drawing drawing;
    drawing.gl = &gl;
    drawing.targetWidth = width;
    drawing.targetHeight = height;
    drawing.frameWidth = width;
    drawing.frameHeight = height;
    drawing.pixelsPerPoint = pixelsPerPoint;
    NoCheckpoint checkpoint;
    Canvas canvas(drawing, checkpoint);
    const auto disc = [&](double radius, Color color) {
        Stroke stroke(1, color);
        stroke.addDisc({mark.x, mark.y, 0}, radius * pixelsPerPoint);
        canvas.stroke(stroke);
    };
    disc(outerRadius, palette::ink);
    disc(whiteRadius, {255, 255, 255, 255});
    disc(innerRadius, palette::selected);
    canvas.finish();
}

} // namespace velmora::engine
