#include "ModelContent.h"

#include "ColourLegend.h"
#include "ModelPicking.h"
#include "ModelScene.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <stdexcept>

#include <GL/gl.h>

namespace velmora::model {
namespace {

std::string text(double value)
{
    std::array<char, 40> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::general, 7).ptr;
    return std::string(digits.data(), end);
}

int wholePixel(double position)
{
    constexpr double LostDigits = 1e-6;
    return static_cast<int>(std::floor(position + 0.5 + LostDigits));
}

/// What is drawn of the frame: what lies in the target, and in its scissor box where one is set.
PixelBox visiblePart(const content::Drawing& drawing)
{
    GLint clip[4] = {0, 0, drawing.targetWidth, drawing.targetHeight};
    if (glIsEnabled(GL_SCISSOR_TEST))
        glGetIntegerv(GL_SCISSOR_BOX, clip);
    const int left = std::max({0, clip[0], wholePixel(drawing.frameX)});
    const int bottom = std::max({0, clip[1], wholePixel(drawing.frameY)});
    const int right =
        std::min({drawing.targetWidth, clip[0] + clip[2], wholePixel(drawing.frameX + drawing.frameWidth)});
    const int top =
        std::min({drawing.targetHeight, clip[1] + clip[3], wholePixel(drawing.frameY + drawing.frameHeight)});
    return {left, bottom, right - left, top - bottom};
}

void requireOpenGL(const content::Drawing& drawing)
{
    if (!drawing.isOfLibGL)
        throw std::runtime_error("VTK draws with the OpenGL of the display or of EGL, and this image has that of the "
                                 "software library. Export the image with hardware rendering.");
    constexpr double Least = 3.2;
    const auto* const version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    if (!version || std::atof(version) < Least)
        throw std::runtime_error("VTK needs OpenGL 3.2, and this is " + std::string(version ? version : "none") +
                                 ". Use a newer driver.");
}

} // namespace

ModelContent::ModelContent(std::shared_ptr<const Model> model) : m_model(std::move(model)), m_selection(m_model) {}

ModelContent::~ModelContent() = default;

bool ModelContent::draw(const content::Drawing& drawing, content::Checkpoint& checkpoint)
{
    requireOpenGL(drawing);
    if (drawing.context) {
        m_frameWidth = drawing.frameWidth;
        m_frameHeight = drawing.frameHeight;
    }
    std::shared_ptr<ModelScene> scene;
    if (drawing.context)
        scene = m_scenes[drawing.context];
    if (!scene || scene->isDrawing())
        scene = std::make_shared<ModelScene>(m_model);
    if (drawing.context && !m_scenes[drawing.context])
        m_scenes[drawing.context] = scene;
    return drawScene(scene, drawing, checkpoint);
}

bool ModelContent::drawScene(const std::shared_ptr<ModelScene>& scene, const content::Drawing& drawing,
                             content::Checkpoint& checkpoint)
{
    const PixelBox part = visiblePart(drawing);
    if (part.width <= 0 || part.height <= 0)
        return checkpoint.goOn(1);
    const content::StateGuard guard;
    const bool hasLegend = m_model->colouring.hasLegend();
    const Projection shown(m_view, m_model->bounds, hasLegend, drawing.frameWidth, drawing.frameHeight);
    const ModelSelection selection = m_selection;
    if (!scene->draw(drawing, part, shown, selection, checkpoint))
        return false;
    if (hasLegend) {
        glViewport(0, 0, drawing.targetWidth, drawing.targetHeight);
        glEnable(GL_SCISSOR_TEST);
        glScissor(part.left, part.bottom, part.width, part.height);
        drawLegend(m_model->colouring, drawing);
    }
    return true;
}

void ModelContent::leaveContext(unsigned long context, bool)
{
    const auto kept = m_scenes.find(context);
    if (kept == m_scenes.end())
        return;
    kept->second->release();
    m_scenes.erase(kept);
}

std::string ModelContent::description() const
{
    const Colouring& colouring = m_model->colouring;
    return m_model->kind + ", " + std::to_string(m_model->points) + " points, " + std::to_string(m_model->cells) +
           " cells" + (colouring.hasLegend() ? ", coloured by " + colouring.name : "");
}

std::string ModelContent::details() const
{
    std::string lines =
        "Points\t" + std::to_string(m_model->points) + "\nCells\t" + std::to_string(m_model->cells) + "\n";
    for (const std::string& array : m_model->arrays)
        lines += array + "\n";
    return lines + Content::details();
}

bool ModelContent::extent(content::Extent& found) const
{
    std::copy(m_model->bounds.least.begin(), m_model->bounds.least.end(), found.least);
    std::copy(m_model->bounds.greatest.begin(), m_model->bounds.greatest.end(), found.greatest);
    return true;
}

bool ModelContent::lookFrom(content::Side side)
{
    m_view = ModelView();
    m_view.isParallel = true;
    m_view.aboutVertical = side == content::Side::East ? -90 : 0;
    m_view.tilt = side == content::Side::Above ? 90 : 0;
    return true;
}

void ModelContent::translate(double dx, double dy)
{
    m_view.panX += dx;
    m_view.panY += dy;
}

void ModelContent::zoom(double factor, double x, double y)
{
    m_view.zoomAbout(factor, x, y, centreOfModel(m_model->colouring.hasLegend()));
}

void ModelContent::showAll()
{
    m_view.zoom = 1;
    m_view.panX = m_view.panY = 0;
}

Projection ModelContent::projection() const
{
    return Projection(m_view, m_model->bounds, m_model->colouring.hasLegend(), m_frameWidth, m_frameHeight);
}

bool ModelContent::valueAt(double x, double y, content::ShownValue& found) const
{
    const Projection shown = projection();
    const std::optional<Hit> hit = hitAt(*m_model, shown, x, y);
    if (!hit)
        return false;
    const Point3 place = shown.project(hit->point);
    found.x = place[0];
    found.y = place[1];
    found.text = "x = " + text(hit->point[0]) + ", y = " + text(hit->point[1]) + ", z = " + text(hit->point[2]) +
                 (hit->value ? ", " + m_model->colouring.name + " = " + text(*hit->value) : "") + ", cell " +
                 std::to_string(m_model->numberOf(m_model->pieces[hit->piece], hit->cell));
    return true;
}

int ModelContent::pick(double x1, double y1, double x2, double y2, const content::PickFilter& filter)
{
    if (!filter.zones)
        return 0;
    const Projection shown = projection();
    int added = 0;
    // A rectangle in the middle of a large cell has none of its corners.
    if (const std::optional<Hit> hit = hitAt(*m_model, shown, (x1 + x2) / 2, (y1 + y2) / 2))
        added += m_selection.add(hit->piece, {hit->cell});
    const auto found = cellsIn(*m_model, shown, x1, y1, x2, y2);
    for (std::size_t piece = 0; piece < found.size(); ++piece)
        if (!found[piece].empty())
            added += m_selection.add(piece, found[piece]);
    return added;
}

} // namespace velmora::model
