#include "engine/plot/surface/SurfacePlot.h"

#include "engine/data/DataDetails.h"
#include "engine/gl/GLStateGuard.h"
#include "engine/plot/ValueText.h"
#include "engine/plot/ViewText.h"
#include "engine/plot/surface/CellAtPlace.h"
#include "engine/plot/surface/SurfaceArea.h"

#include <cmath>

namespace velmora::engine {

namespace {

constexpr double LowestTilt = 3;
constexpr double HighestTilt = 90;
constexpr double SmallestZoom = 0.1;
constexpr double ClippedShare = 0.02;
constexpr double LargestZoom = 400;
constexpr const char* ViewKind = "surface";

bool meetsAxis(const SurfaceAxis& axis, const Rect& rect)
{
    Point from = axis.line.from;
    Point to = axis.line.to;
    if (clipLine(rect, from, to))
        return true;
    return std::any_of(axis.labels.begin(), axis.labels.end(),
                       [&rect](const TextItem& label) { return rect.meets(textRect(label)); });
}

bool meetsTriangles(const MeshPart& part, const Camera& camera, const Rect& rect)
{
    const auto place = [&](unsigned index) {
        const float* at = part.vertices[index].position;
        const StrokePoint point = camera.project({at[0], at[1], at[2]});
        return Point{point.x, point.y};
    };
    for (std::size_t i = 0; i + 2 < part.indices.size(); i += 3)
        if (triangleMeetsRect(rect, place(part.indices[i]), place(part.indices[i + 1]), place(part.indices[i + 2])))
            return true;
    return false;
}

bool mayMeet(const std::vector<glm::dvec3>& box, const Camera& camera, const Rect& rect)
{
    return !box.empty() && coveredBy(box, camera).meets(rect);
}

} // namespace

SurfacePlot::SurfacePlot(std::shared_ptr<const Grid> grid, Checkpoint& checkpoint)
{
    m_content.data = std::make_shared<SurfaceData>(std::move(grid), checkpoint);
}

bool SurfacePlot::draw(const Drawing& drawing, Checkpoint& checkpoint)
{
    rememberFrameSize(drawing);
    const GLStateGuard guard(*drawingMeans().gl);
    return SurfacePainter(drawing, checkpoint, m_content, selection()).paint();
}

void SurfacePlot::leaveContext(unsigned long context, bool isCurrent)
{
    m_content.memory->leaveContext(context, isCurrent);
}

void SurfacePlot::rotate(double aboutVertical, double tilt)
{
    SurfaceView& view = m_content.view;
    if (!std::isfinite(aboutVertical) || !std::isfinite(tilt))
        return;
    view.isParallel = false;
    view.aboutVertical = std::remainder(view.aboutVertical + aboutVertical, 360.0);
    view.tilt = std::clamp(view.tilt + tilt, LowestTilt, HighestTilt);
}

void SurfacePlot::translate(double dx, double dy)
{
    m_content.view.panX += dx;
    m_content.view.panY += dy;
}

// The point keeps its place: what lies around the picture's centre moves away from it.
void SurfacePlot::zoom(double factor, double x, double y)
{
    SurfaceView& view = m_content.view;
    if (!(factor > 0))
        return;
    const double zoomed = std::clamp(view.zoom * factor, SmallestZoom, LargestZoom);
    const double real = zoomed / view.zoom;
    const Point center = surfaceCenter(frameSize());
    view.panX = (x - center.x) * (1 - real) + view.panX * real;
    view.panY = (y - center.y) * (1 - real) + view.panY * real;
    view.zoom = zoomed;
}

// The shape that is seen stays: the rectangle fits into the frame.
void SurfacePlot::zoomTo(double x1, double y1, double x2, double y2)
{
    const double x = (x1 + x2) / 2;
    const double y = (y1 + y2) / 2;
    zoom(1 / std::max(x2 - x1, y2 - y1), x, y);
    translate(0.5 - x, 0.5 - y);
}

void SurfacePlot::fit()
{
    m_content.view = SurfaceView();
}

void SurfacePlot::showAll()
{
    SurfaceView& view = m_content.view;
    view.zoom = 1;
    view.panX = view.panY = 0;
}

bool SurfacePlot::lookFrom(Side side)
{
    SurfaceView& view = m_content.view;
    view = SurfaceView();
    view.isParallel = true;
    view.aboutVertical = side == Side::East ? -90 : 0;
    view.tilt = side == Side::Above ? HighestTilt : 0;
    return true;
}

void SurfacePlot::setExaggeration(double exaggeration)
{
    m_look.exaggeration = exaggeration;
    lookChanged();
}

void SurfacePlot::clipColors(bool clipped)
{
    if (clipped && !m_middleHeights)
        m_middleHeights = middleHeights(m_content.data->grid(), ClippedShare);
    m_look.colors = clipped ? m_middleHeights : std::nullopt;
    lookChanged();
}

// A drawing that is under way goes on with what it has begun with.
void SurfacePlot::lookChanged()
{
    m_content.data = std::make_shared<SurfaceData>(*m_content.data, m_look);
}

std::string SurfacePlot::viewState() const
{
    const SurfaceView& view = m_content.view;
    return viewText(ViewKind, {view.aboutVertical, view.tilt, view.zoom, view.panX, view.panY,
                               static_cast<double>(view.isParallel)});
}

bool SurfacePlot::setViewState(const std::string& state)
{
    const std::vector<double> numbers = numbersOfView(state, ViewKind);
    const auto isFinite = [](double number) { return std::isfinite(number); };
    if (numbers.size() != 6 || !std::all_of(numbers.begin(), numbers.end(), isFinite))
        return false;
    const SurfaceView view{numbers[0], numbers[1], numbers[2], numbers[3], numbers[4], numbers[5] != 0};
    if (view.tilt < (view.isParallel ? 0 : LowestTilt) || view.tilt > HighestTilt || view.zoom < SmallestZoom ||
        view.zoom > LargestZoom)
        return false;
    m_content.view = view;
    return true;
}

void SurfacePlot::takeViewOf(const Content& other, Checkpoint&)
{
    const auto* const before = dynamic_cast<const SurfacePlot*>(&other);
    if (!before)
        return;
    m_content.view = before->m_content.view;
    m_look.exaggeration = before->m_look.exaggeration;
    clipColors(before->m_look.colors.has_value());
}

std::string SurfacePlot::nameOf(const ObjectId& object) const
{
    static const char* const geometries[] = {"x axis", "y axis", "z axis", "colour bar"};
    static const char* const texts[] = {"title", "title of the x axis", "title of the y axis", "title of the z axis",
                                        "title of the colour bar"};
    if (object.first == ObjectKind::Zone)
        return "surface";
    return (object.first == ObjectKind::Geometry ? geometries : texts)[object.second];
}

bool SurfacePlot::valueAt(double x, double y, ShownValue& found) const
{
    const SurfaceData& data = *m_content.data;
    const Grid& grid = data.grid();
    const Camera camera = cameraFor(m_content.view, data.shape, frameSize());
    CellAtPlace cell;
    if (!findCellAt(data.levels, data.shape, camera, {x * frameSize().width, y * frameSize().height}, cell))
        return false;
    const double east = grid.xCenter + cell.column * grid.cellSize;
    const double north = grid.yCenter + (grid.rows - 1 - cell.row) * grid.cellSize;
    found = {cell.at.x / frameSize().width, cell.at.y / frameSize().height,
             "x = " + valueText(east) + ", y = " + valueText(north) +
                 ", z = " + valueText(grid.at(cell.column, cell.row))};
    return true;
}

std::string SurfacePlot::description() const
{
    const Grid& grid = m_content.data->grid();
    std::string text = std::to_string(grid.columns) + " x " + std::to_string(grid.rows) + " grid, ";
    return text + (grid.gaps == 0 ? "no" : std::to_string(grid.gaps)) + (grid.gaps == 1 ? " gap" : " gaps");
}

std::string SurfacePlot::notes() const
{
    return notesOf(m_content.data->grid().notes);
}

std::string SurfacePlot::details() const
{
    return detailsOf(m_content.data->grid());
}

bool SurfacePlot::extent(Extent& found) const
{
    const Grid& grid = m_content.data->grid();
    const double west = grid.xCenter - grid.cellSize / 2;
    const double south = grid.yCenter - grid.cellSize / 2;
    found = {{west, south, grid.minimum},
             {west + grid.cellSize * grid.columns, south + grid.cellSize * grid.rows, grid.maximum}};
    return true;
}

void SurfacePlot::collect(const Rect& rect, const PickFilter& filter, Selection& found) const
{
    const SurfaceLayout layout = layOut(m_content.data->grid(), m_content.data->shape, m_content.view, frameSize());
    if (filter.zones && meetsSurface(layout.camera, rect))
        found.insert({ObjectKind::Zone, surfaceobject::Surface});
    if (filter.geometries) {
        for (const SurfaceAxis& axis : layout.axes)
            if (meetsAxis(axis, rect))
                found.insert({ObjectKind::Geometry, axis.object});
        if (rect.meets(layout.bar))
            found.insert({ObjectKind::Geometry, surfaceobject::ColorBar});
    }
    if (filter.text)
        collectTexts(layout.texts, rect, found);
}

bool SurfacePlot::meetsSurface(const Camera& camera, const Rect& rect) const
{
    const SurfaceData& data = *m_content.data;
    const SurfaceMesh mesh(data.levels, data.shape, fullLevel(data, camera));
    MeshPart part;
    for (int row = 0; row < mesh.pieceRows(); ++row)
        for (int column = 0; column < mesh.pieceColumns(); ++column)
            if (mayMeet(mesh.pieceBox(column, row), camera, rect)) {
                mesh.makePiece(column, row, part);
                if (meetsTriangles(part, camera, rect))
                    return true;
            }
    return false;
}

} // namespace velmora::engine
