#include "engine/plot/Canvas.h"

#include "engine/core/Checkpoint.h"
#include "engine/gl/GLFunctions.h"
#include "engine/text/TextPainter.h"

#include <cmath>

namespace velmora::engine {

namespace {

// Of the height of capitals and digits, which is what looks centred.
constexpr double CapHeight = 0.73;

// Seconds that a batch of portions may take, and how many triangles that can be.
constexpr double BatchTime = 0.7e-3;
constexpr double LeastBatch = 100;
constexpr double MostBatch = 200000;
// An OpenGL in software fills about so many pixels while it sets up a triangle.
constexpr double PixelsATriangle = 24;
constexpr double CostOfRectangle = 20;
constexpr double CostOfText = 150; ///< it is loaded as a texture first

FontFace& faceOf(const TextItem& item)
{
    return item.bold ? FontFace::bold() : FontFace::regular();
}

double startAlong(Align align, double width)
{
    return align == Align::Start ? 0 : align == Align::Middle ? -width / 2 : -width;
}

double baselineAcross(Align align, double size, const TextExtent& extent)
{
    if (align == Align::Middle)
        return -CapHeight * size / 2;
    return align == Align::Start ? extent.descent : -extent.ascent;
}

/// The pen's start relative to the anchor.
Point penOffset(const TextItem& item, const TextExtent& extent)
{
    const double along = startAlong(item.along, extent.width);
    const double across = baselineAcross(item.across, item.size, extent);
    return item.upwards ? Point{-across, along} : Point{along, across};
}

void setColor(const GLFunctions& gl, Color color)
{
    gl.Color4ub(color.red, color.green, color.blue, color.alpha);
}

Rect earlierBounds(const Drawing& drawing, const GLFunctions& gl)
{
    Rect bounds{0, 0, static_cast<double>(drawing.targetWidth), static_cast<double>(drawing.targetHeight)};
    if (!gl.IsEnabled(GL_SCISSOR_TEST))
        return bounds;
    GLint box[4];
    gl.GetIntegerv(GL_SCISSOR_BOX, box);
    return {std::max(bounds.x1, double(box[0])), std::max(bounds.y1, double(box[1])),
            std::min(bounds.x2, double(box[0]) + box[2]), std::min(bounds.y2, double(box[1]) + box[3])};
}

/// Middle of the pixel, or border between pixels for lines of an even width.
double crisp(double position, double width)
{
    const bool odd = std::lround(std::max(width, 1.0)) % 2 == 1;
    return odd ? std::floor(position) + 0.5 : std::round(position);
}

/// Halves always go up, left of the target as well, and so does what was a half before the frame was
/// moved: a tile of a picture rounds like the whole.
int nearestPixel(double position)
{
    constexpr double LostDigits = 1e-6;
    return static_cast<int>(std::floor(position + 0.5 + LostDigits));
}

} // namespace

Rect textRect(const TextItem& item)
{
    const TextExtent extent = measureText(faceOf(item), item.text, item.size);
    const Point offset = penOffset(item, extent);
    const Point pen{item.anchor.x + offset.x, item.anchor.y + offset.y};
    if (item.upwards)
        return {pen.x - extent.ascent, pen.y, pen.x + extent.descent, pen.y + extent.width};
    return {pen.x, pen.y - extent.descent, pen.x + extent.width, pen.y + extent.ascent};
}

Canvas::Canvas(const Drawing& drawing, Checkpoint& checkpoint)
    : m_drawing(drawing), m_means(drawingMeans()), m_checkpoint(checkpoint), m_bounds(earlierBounds(drawing, gl()))
{
    useFlat();
    clipToFrame();
}

Canvas::~Canvas()
{
    gl().endFence(m_lastBatch);
}

void Canvas::beginPhase(double endFraction, std::size_t steps)
{
    m_fraction = std::max(m_fraction, m_phaseEnd);
    m_phaseEnd = endFraction;
    m_stepSize = (endFraction - m_fraction) / static_cast<double>(std::max<std::size_t>(steps, 1));
}

// OpenGL works behind the program's back: without waiting, a slice would take its time later.
bool Canvas::step()
{
    m_fraction = std::min(m_fraction + m_stepSize, m_phaseEnd);
    return stepWithin();
}

// A coarse drawing is not divided: nothing is shown before all of it is there.
bool Canvas::stepWithin()
{
    if (m_stopped)
        return false;
    if (m_drawing.detail == Detail::Coarse || (m_cost < m_batch && !m_means.asksOften))
        return true;
    waitForLastBatch();
    measureBatch();
    m_stopped = !m_checkpoint.goOn(m_fraction);
    m_batchStart = Clock::now();
    return !m_stopped;
}

// While this batch is drawn the next one can be made: only the one before is waited for.
void Canvas::waitForLastBatch()
{
    const GLsync before = m_lastBatch;
    m_lastBatch = gl().startFence();
    if (!m_lastBatch)
        gl().Finish();
    gl().endFence(before);
}

void Canvas::measureBatch()
{
    const std::chrono::duration<double> lasted = Clock::now() - m_batchStart;
    const double fitting = m_cost * (BatchTime / std::max(lasted.count(), BatchTime / 4));
    m_batch = std::clamp((m_batch + fitting) / 2, LeastBatch, MostBatch);
    m_cost = 0;
}

void Canvas::charge(double triangles, const Rect& area)
{
    m_cost += triangles + std::max(area.width(), 0.0) * std::max(area.height(), 0.0) / PixelsATriangle;
}

bool Canvas::finish()
{
    gl().endFence(m_lastBatch);
    m_lastBatch = nullptr;
    gl().Finish();
    return !m_stopped;
}

void Canvas::useFlat()
{
    const GLFunctions& gl = this->gl();
    gl.Viewport(0, 0, m_drawing.targetWidth, m_drawing.targetHeight);
    gl.MatrixMode(GL_PROJECTION);
    gl.LoadIdentity();
    gl.Ortho(0, m_drawing.targetWidth, 0, m_drawing.targetHeight, -1, 1);
    gl.MatrixMode(GL_MODELVIEW);
    gl.LoadIdentity();
    gl.Disable(GL_DEPTH_TEST);
    gl.Disable(GL_LIGHTING);
    gl.Disable(GL_TEXTURE_2D);
    gl.Enable(GL_BLEND);
    // The target stays as opaque as it was: pictures with an alpha channel have no holes at text.
    if (gl.BlendFuncSeparate)
        gl.BlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    else
        gl.BlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

void Canvas::clip(const Rect& part)
{
    setScissor({std::max(part.x1, 0.0), std::max(part.y1, 0.0), std::min(part.x2, m_drawing.frameWidth),
                std::min(part.y2, m_drawing.frameHeight)});
}

void Canvas::clipToFrame()
{
    setScissor({0, 0, m_drawing.frameWidth, m_drawing.frameHeight});
}

void Canvas::setScissor(Rect part) const
{
    const double left = std::max(std::floor(part.x1 + m_drawing.frameX), m_bounds.x1);
    const double bottom = std::max(std::floor(part.y1 + m_drawing.frameY), m_bounds.y1);
    const double right = std::min(std::ceil(part.x2 + m_drawing.frameX), m_bounds.x2);
    const double top = std::min(std::ceil(part.y2 + m_drawing.frameY), m_bounds.y2);
    gl().Enable(GL_SCISSOR_TEST);
    gl().Scissor(static_cast<int>(left), static_cast<int>(bottom), static_cast<int>(std::max(right - left, 0.0)),
                 static_cast<int>(std::max(top - bottom, 0.0)));
}

bool Canvas::shows(const Rect& rect) const
{
    const Rect onTarget{rect.x1 + m_drawing.frameX, rect.y1 + m_drawing.frameY, rect.x2 + m_drawing.frameX,
                        rect.y2 + m_drawing.frameY};
    return onTarget.meets(m_bounds);
}

Rect Canvas::visiblePart(const Rect& rect) const
{
    const double x = m_drawing.frameX;
    const double y = m_drawing.frameY;
    return {std::floor(std::max(rect.x1, m_bounds.x1 - x)), std::floor(std::max(rect.y1, m_bounds.y1 - y)),
            std::ceil(std::min(rect.x2, m_bounds.x2 - x)), std::ceil(std::min(rect.y2, m_bounds.y2 - y))};
}

void Canvas::fill(const Rect& rect, Color color)
{
    if (m_stopped || !shows(rect))
        return;
    charge(CostOfRectangle, rect);
    setColor(gl(), color);
    gl().Rectf(static_cast<float>(std::round(rect.x1) + m_drawing.frameX),
               static_cast<float>(std::round(rect.y1) + m_drawing.frameY),
               static_cast<float>(std::round(rect.x2) + m_drawing.frameX),
               static_cast<float>(std::round(rect.y2) + m_drawing.frameY));
}

void Canvas::line(Point from, Point to, double width, Color color)
{
    if (from.x == to.x)
        from.x = to.x = crisp(from.x, width);
    if (from.y == to.y)
        from.y = to.y = crisp(from.y, width);
    const StrokePoint points[] = {{from.x, from.y, 0}, {to.x, to.y, 0}};
    const bool straight = from.x == to.x || from.y == to.y;
    Stroke made(straight ? std::max(1.0, std::round(width)) : width, color);
    made.addLine(points, 2);
    stroke(made);
}

void Canvas::outline(const Rect& rect, double width, Color color)
{
    const double reach = width / 2;
    line({rect.x1 - reach, rect.y1}, {rect.x2 + reach, rect.y1}, width, color);
    line({rect.x1 - reach, rect.y2}, {rect.x2 + reach, rect.y2}, width, color);
    line({rect.x1, rect.y1}, {rect.x1, rect.y2}, width, color);
    line({rect.x2, rect.y1}, {rect.x2, rect.y2}, width, color);
}

void Canvas::stroke(const Stroke& stroke)
{
    if (m_stopped || stroke.empty())
        return;
    charge(static_cast<double>(stroke.indices().size()) / 3);
    const GLFunctions& gl = this->gl();
    const StrokeVertex* first = stroke.vertices().data();
    gl.PushMatrix();
    gl.Translated(m_drawing.frameX, m_drawing.frameY, 0);
    gl.EnableClientState(GL_VERTEX_ARRAY);
    gl.EnableClientState(GL_COLOR_ARRAY);
    gl.VertexPointer(3, GL_FLOAT, sizeof(StrokeVertex), &first->x);
    gl.ColorPointer(4, GL_UNSIGNED_BYTE, sizeof(StrokeVertex), &first->color);
    gl.DrawElements(GL_TRIANGLES, static_cast<GLsizei>(stroke.indices().size()), GL_UNSIGNED_INT,
                    stroke.indices().data());
    gl.DisableClientState(GL_COLOR_ARRAY);
    gl.DisableClientState(GL_VERTEX_ARRAY);
    gl.PopMatrix();
}

void Canvas::text(const TextItem& item)
{
    if (m_stopped || item.text.empty() || !shows(textRect(item).grown(item.size)))
        return;
    const Point offset = penOffset(item, measureText(faceOf(item), item.text, item.size));
    const int penX = nearestPixel(std::round(item.anchor.x + offset.x) + m_drawing.frameX);
    const int penY = nearestPixel(std::round(item.anchor.y + offset.y) + m_drawing.frameY);
    TextLine line(faceOf(item), item.text, item.size);
    TextImage image;
    while (line.next(image)) {
        setColor(gl(), item.color);
        charge(CostOfText + item.size * item.size * 4);
        paintTextImage(gl(), item.upwards ? turnedUpwards(image) : image, penX, penY, m_drawing.targetWidth,
                       m_drawing.targetHeight);
        if (!step())
            return;
    }
}

} // namespace velmora::engine
