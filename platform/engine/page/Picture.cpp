#include "engine/page/Picture.h"

#include "engine/core/Trace.h"
#include "engine/gl/GLFunctions.h"
#include "engine/gl/OpenGLLibraries.h"
#include "engine/page/FrameDrawing.h"

#include <algorithm>
#include <cmath>

namespace velmora::engine {
namespace {

struct Colour {
    float red;
    float green;
    float blue;
};

constexpr Colour White{1, 1, 1};
constexpr Colour Black{0, 0, 0};
constexpr Colour Workspace{0.62F, 0.64F, 0.66F};
constexpr Colour Shadow{0.40F, 0.41F, 0.43F};
constexpr Colour Margin{0.80F, 0.84F, 0.92F};
constexpr double ShadowPixels = 4;
constexpr double LinePixels = 1;

const Colour& groundOf(const Picture& picture)
{
    return picture.isOnBlack ? Black : White;
}

PixelRect moved(const PixelRect& rect, double dx, double dy)
{
    return {rect.x + dx, rect.y + dy, rect.width, rect.height};
}

/// The same pixel in a tile of the picture, which is seen from whole pixels further along, as in the
/// whole: halves always go up, not away from zero, and so does what was a half before digits were
/// lost on the way along.
int nearestPixel(double position)
{
    constexpr double LostDigits = 1e-6;
    return static_cast<int>(std::floor(position + 0.5 + LostDigits));
}

// Clearing inside a scissor box needs neither matrices nor any other state.
void fill(const GLFunctions& gl, const PixelRect& rect, const Colour& colour, GLbitfield planes = GL_COLOR_BUFFER_BIT)
{
    const int left = nearestPixel(rect.x);
    const int bottom = nearestPixel(rect.y);
    const int right = nearestPixel(rect.x + rect.width);
    const int top = nearestPixel(rect.y + rect.height);
    if (right <= left || top <= bottom)
        return;
    gl.Enable(GL_SCISSOR_TEST);
    gl.Scissor(left, bottom, right - left, top - bottom);
    gl.ClearColor(colour.red, colour.green, colour.blue, 1);
    gl.Clear(planes);
    gl.Disable(GL_SCISSOR_TEST);
}

void outline(const GLFunctions& gl, const PixelRect& rect, double line, const Colour& colour)
{
    fill(gl, {rect.x, rect.y, rect.width, line}, colour);
    fill(gl, {rect.x, rect.y + rect.height - line, rect.width, line}, colour);
    fill(gl, {rect.x, rect.y, line, rect.height}, colour);
    fill(gl, {rect.x + rect.width - line, rect.y, line, rect.height}, colour);
}

void prepareToClear(const GLFunctions& gl, int width, int height)
{
    gl.Viewport(0, 0, width, height);
    gl.ColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    gl.DepthMask(GL_TRUE);
    gl.ClearDepth(1);
}

Drawing drawingOf(const Picture& picture, const PixelRect& frame, const GLFunctions& gl, int width, int height)
{
    Drawing drawing;
    drawing.targetWidth = width;
    drawing.targetHeight = height;
    drawing.frameX = nearestPixel(frame.x);
    drawing.frameY = nearestPixel(frame.y);
    drawing.frameWidth = frame.width;
    drawing.frameHeight = frame.height;
    drawing.pixelsPerPoint = picture.pixelsPerPoint;
    drawing.leastText = picture.leastText;
    drawing.detail = picture.detail;
    gl.GetIntegerv(GL_SAMPLES, &drawing.samples);
    drawing.context = picture.context;
    drawing.isOfLibGL = isOfLibGL();
    drawing.findFunction = currentResolver();
    return drawing;
}

} // namespace

Picture Picture::seenFrom(double x, double y) const
{
    Picture seen = *this;
    seen.paper = moved(paper, -x, -y);
    seen.printable = moved(printable, -x, -y);
    for (PlacedFrame& frame : seen.frames)
        frame.rect = moved(frame.rect, -x, -y);
    return seen;
}

void paintGround(const Picture& picture, const GLFunctions& gl, int width, int height)
{
    prepareToClear(gl, width, height);
    const PixelRect whole{0, 0, static_cast<double>(width), static_cast<double>(height)};
    fill(gl, whole, picture.showsPaper ? Workspace : groundOf(picture), GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (picture.showsPaper) {
        const double shadow = ShadowPixels * picture.magnification;
        fill(gl, moved(picture.paper, shadow, -shadow), Shadow);
        fill(gl, picture.paper, groundOf(picture));
    }
    if (picture.showsMargins)
        outline(gl, picture.printable, std::max(LinePixels * picture.magnification, LinePixels), Margin);
}

bool paintPicture(const Picture& picture, const GLFunctions& gl, int width, int height, Checkpoint& checkpoint)
{
    paintGround(picture, gl, width, height);
    const std::size_t count = picture.frames.size();
    for (std::size_t i = 0; i < count; ++i) {
        const Picture::PlacedFrame& frame = picture.frames[i];
        prepareToClear(gl, width, height);
        fill(gl, frame.rect, groundOf(picture), GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        FrameCheckpoint share(checkpoint, i, count);
        if (!drawContent(*frame.content, drawingOf(picture, frame.rect, gl, width, height), gl, share))
            return false;
        share.passMiddle();
    }
    if (count == 0)
        tracePoint("drawing");
    return true;
}

} // namespace velmora::engine
