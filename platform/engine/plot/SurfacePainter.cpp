#include "engine/plot/SurfacePainter.h"

#include "engine/plot/BandTexture.h"
#include "engine/plot/Palette.h"

#include <cmath>

namespace velmora::engine {

namespace {

// Points.
constexpr double gridWidth = 0.6;
constexpr double edgeWidth = 0.7;
constexpr double axisWidth = 0.9;
constexpr double contourWidth = 0.5;
constexpr double borderWidth = 0.7;
constexpr double selectedWidth = 2.2;

// Lines on the surface lie a little nearer to the viewer than the surface.
constexpr double lineLift = 1.2e-3;

// A software OpenGL fills about this square in a quarter of a millisecond.
constexpr double blockSide = 128;
constexpr int skirtNodes = 64;
constexpr int borderNodes = 128;

// Of the whole work.
constexpr double boxEnds = 0.03;
constexpr double piecesEnd = 0.62;
constexpr double skirtsEnd = 0.66;
constexpr double linesEnd = 0.9;

} // namespace

SurfacePainter::SurfacePainter(const Drawing& drawing, Breath& breath, SurfaceContent content, Selection selection)
    : m_content(std::move(content)), m_selection(std::move(selection)), m_frame(frameSizeOf(drawing)),
      m_layout(layOut(*m_content.grid, *m_content.shape, m_content.view, m_frame)),
      m_mesh(*m_content.grid, *m_content.shape, SurfaceMesh::strideFor(*m_content.grid, m_layout.camera.scale())),
      m_canvas(drawing, breath)
{}

bool SurfacePainter::paint()
{
    paintBox();
    paintSurface();
    paintLinesOnSurface();
    paintAxes();
    paintColorBar();
    paintTexts();
    return m_canvas.finish();
}

void SurfacePainter::paintBox()
{
    m_canvas.beginPhase(boxEnds, 1);
    for (const BoxLine& line : m_layout.grid)
        m_canvas.line(line.from, line.to, points(gridWidth), palette::grid);
    for (const BoxLine& line : m_layout.edges)
        m_canvas.line(line.from, line.to, points(edgeWidth), palette::boxEdge);
    m_canvas.step();
}

void SurfacePainter::paintSurface()
{
    if (m_canvas.stopped())
        return;
    const BandTexture texture(m_canvas.gl(), static_cast<int>(m_content.shape->bandEdges().size()) - 1);
    useSurface();
    m_canvas.gl().Clear(GL_DEPTH_BUFFER_BIT);
    paintPieces();
    paintSkirts();
}

void SurfacePainter::useSurface() const
{
    const GLFunctions& gl = m_canvas.gl();
    gl.MatrixMode(GL_PROJECTION);
    gl.LoadMatrixd(m_layout.camera.projectionMatrix(m_canvas.drawing()).data());
    gl.MatrixMode(GL_MODELVIEW);
    gl.LoadIdentity();
    useLight();
    gl.LoadMatrixd(m_layout.camera.modelMatrix().data());
    gl.Disable(GL_BLEND);
    gl.Enable(GL_DEPTH_TEST);
    gl.DepthFunc(GL_LEQUAL);
    gl.DepthMask(GL_TRUE);
    gl.ClearDepth(1);
    gl.Enable(GL_TEXTURE_2D);
    gl.Enable(GL_POLYGON_OFFSET_FILL);
    gl.PolygonOffset(1, 1);
}

// The light comes over the viewer's left shoulder: it stays there while the surface turns.
void SurfacePainter::useLight() const
{
    const GLFunctions& gl = m_canvas.gl();
    const GLfloat direction[] = {-0.55F, 0.62F, 0.56F, 0};
    const GLfloat white[] = {1, 1, 1, 1};
    const GLfloat black[] = {0, 0, 0, 1};
    const GLfloat ambient[] = {0.42F, 0.42F, 0.44F, 1};
    const GLfloat diffuse[] = {0.72F, 0.72F, 0.70F, 1};
    for (GLenum light = GL_LIGHT1; light <= GL_LIGHT7; ++light)
        gl.Disable(light);
    gl.Enable(GL_LIGHTING);
    gl.Enable(GL_LIGHT0);
    gl.Lightfv(GL_LIGHT0, GL_POSITION, direction);
    gl.Lightfv(GL_LIGHT0, GL_AMBIENT, black);
    gl.Lightfv(GL_LIGHT0, GL_DIFFUSE, diffuse);
    gl.Lightfv(GL_LIGHT0, GL_SPECULAR, black);
    gl.LightModelfv(GL_LIGHT_MODEL_AMBIENT, ambient);
    gl.LightModeli(GL_LIGHT_MODEL_TWO_SIDE, GL_FALSE);
    gl.Materialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, white);
    gl.Materialfv(GL_FRONT_AND_BACK, GL_EMISSION, black);
    gl.Materialfv(GL_FRONT_AND_BACK, GL_SPECULAR, black);
}

Rect SurfacePainter::covered(const std::vector<Vector3>& corners) const
{
    Rect rect{1e30, 1e30, -1e30, -1e30};
    for (const Vector3& corner : corners) {
        const StrokePoint place = m_layout.camera.project(corner);
        rect.take({place.x, place.y});
    }
    return rect;
}

bool SurfacePainter::isVisible(int column, int row, Rect& where) const
{
    where = covered(m_mesh.pieceBox(column, row));
    return m_canvas.shows(where);
}

void SurfacePainter::paintPieces()
{
    m_canvas.beginPhase(piecesEnd,
                        static_cast<std::size_t>(m_mesh.pieceRows()) * static_cast<std::size_t>(m_mesh.pieceColumns()));
    for (int row = 0; row < m_mesh.pieceRows(); ++row)
        for (int column = 0; column < m_mesh.pieceColumns(); ++column) {
            if (m_canvas.stopped())
                return;
            paintPiece(column, row);
        }
}

void SurfacePainter::paintPiece(int column, int row)
{
    Rect where;
    if (isVisible(column, row, where)) {
        m_mesh.makePiece(column, row, m_part);
        paintPart(m_part, where);
    } else {
        m_canvas.step();
    }
}

// A piece that covers much of the picture is filled block by block: filling takes the time then.
void SurfacePainter::paintPart(const MeshPart& part, const Rect& where)
{
    if (where.width() <= 2 * blockSide && where.height() <= 2 * blockSide) {
        drawPart(part);
        m_canvas.step();
        return;
    }
    const Rect visible = m_canvas.visiblePart(where);
    for (double y = visible.y1; y < visible.y2; y += blockSide)
        for (double x = visible.x1; x < visible.x2; x += blockSide) {
            if (m_canvas.stopped())
                return;
            m_canvas.clip({x, y, std::min(x + blockSide, visible.x2), std::min(y + blockSide, visible.y2)});
            drawPart(part);
            m_canvas.stepWithin();
        }
    m_canvas.clipToFrame();
    m_canvas.step();
}

void SurfacePainter::drawPart(const MeshPart& part) const
{
    if (part.indices.empty())
        return;
    const GLFunctions& gl = m_canvas.gl();
    const MeshVertex* first = part.vertices.data();
    gl.EnableClientState(GL_VERTEX_ARRAY);
    gl.EnableClientState(GL_NORMAL_ARRAY);
    gl.EnableClientState(GL_TEXTURE_COORD_ARRAY);
    gl.VertexPointer(3, GL_FLOAT, sizeof(MeshVertex), first->position);
    gl.NormalPointer(GL_FLOAT, sizeof(MeshVertex), first->normal);
    gl.TexCoordPointer(1, GL_FLOAT, sizeof(MeshVertex), &first->band);
    gl.DrawElements(GL_TRIANGLES, static_cast<GLsizei>(part.indices.size()), GL_UNSIGNED_INT, part.indices.data());
    gl.DisableClientState(GL_TEXTURE_COORD_ARRAY);
    gl.DisableClientState(GL_NORMAL_ARRAY);
    gl.DisableClientState(GL_VERTEX_ARRAY);
}

void SurfacePainter::paintSkirts()
{
    m_canvas.gl().Disable(GL_TEXTURE_2D);
    const int pieces = 2 * (m_mesh.columns() + m_mesh.rows()) / skirtNodes + 4;
    m_canvas.beginPhase(skirtsEnd, static_cast<std::size_t>(pieces));
    // Paler than the surface and hardly shaded: walls are there to hold it, not to be looked at.
    const GLfloat glow[] = {0.50F, 0.51F, 0.53F, 1};
    const GLfloat stone[] = {0.44F, 0.44F, 0.45F, 1};
    m_canvas.gl().Materialfv(GL_FRONT_AND_BACK, GL_EMISSION, glow);
    m_canvas.gl().Materialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, stone);
    for (int side = 0; side < 4; ++side)
        for (int first = 0; first + 1 < m_mesh.sideLength(side); first += skirtNodes) {
            if (m_canvas.stopped())
                return;
            m_mesh.makeSkirt(side, first, std::min(first + skirtNodes, m_mesh.sideLength(side) - 1), m_part);
            std::vector<Vector3> corners;
            for (const MeshVertex& vertex : m_part.vertices)
                corners.push_back({vertex.position[0], vertex.position[1], vertex.position[2]});
            const Rect where = covered(corners);
            if (!corners.empty() && m_canvas.shows(where))
                paintPart(m_part, where);
        }
}

StrokePoint SurfacePainter::onSurface(const Vector3& place) const
{
    const StrokePoint point = m_layout.camera.project(place);
    return {point.x, point.y, -(point.z - lineLift)};
}

void SurfacePainter::useLinesOnSurface()
{
    m_canvas.useFlat();
    const GLFunctions& gl = m_canvas.gl();
    gl.Disable(GL_POLYGON_OFFSET_FILL);
    gl.Enable(GL_DEPTH_TEST);
    gl.DepthMask(GL_FALSE);
}

void SurfacePainter::paintLinesOnSurface()
{
    if (m_canvas.stopped())
        return;
    useLinesOnSurface();
    paintContours();
    const bool selected = isSelectedObject(ObjectKind::Zone, surfaceobject::surface);
    for (int side = 0; side < 4; ++side)
        paintBorder(side, points(selected ? selectedWidth : borderWidth),
                    selected ? palette::selected : palette::surfaceBorder);
    m_canvas.useFlat();
}

void SurfacePainter::paintContours()
{
    m_canvas.beginPhase(linesEnd,
                        static_cast<std::size_t>(m_mesh.pieceRows()) * static_cast<std::size_t>(m_mesh.pieceColumns()));
    const bool selected = isSelectedObject(ObjectKind::Zone, surfaceobject::surface);
    Stroke stroke(points(selected ? 2 * contourWidth : contourWidth), selected ? palette::selected : palette::contour);
    std::vector<ContourSegment> segments;
    for (int row = 0; row < m_mesh.pieceRows(); ++row)
        for (int column = 0; column < m_mesh.pieceColumns() && !m_canvas.stopped(); ++column) {
            Rect where;
            if (isVisible(column, row, where)) {
                segments.clear();
                stroke.clear();
                m_mesh.makePiece(column, row, m_part);
                addContours(m_part, *m_content.shape, segments);
                for (const ContourSegment& segment : segments) {
                    const StrokePoint ends[] = {onSurface(segment.first), onSurface(segment.second)};
                    stroke.addLine(ends, 2);
                }
                m_canvas.stroke(stroke);
            }
            m_canvas.step();
        }
}

void SurfacePainter::paintBorder(int side, double width, Color color)
{
    Stroke stroke(width, color);
    std::vector<StrokePoint> line;
    const int length = m_mesh.sideLength(side);
    for (int n = 0; n < length && !m_canvas.stopped(); ++n) {
        Vector3 place;
        const bool isHere = m_mesh.sideNode(side, n, place);
        if (isHere)
            line.push_back(onSurface(place));
        if (!isHere || n + 1 == length || line.size() > borderNodes) {
            stroke.clear();
            stroke.addLine(line.data(), line.size());
            m_canvas.stroke(stroke);
            m_canvas.stepWithin();
            line.clear();
            if (isHere)
                line.push_back(onSurface(place));
        }
    }
}

void SurfacePainter::paintAxes()
{
    m_canvas.beginPhase(linesEnd + 0.01, 1);
    for (const SurfaceAxis& axis : m_layout.axes) {
        const bool selected = isSelectedObject(ObjectKind::Geometry, axis.object);
        const Color color = selected ? palette::selected : palette::axis;
        for (const BoxLine& tick : axis.ticks)
            m_canvas.line(tick.from, tick.to, points(axisWidth), color);
        m_canvas.line(axis.line.from, axis.line.to, points(selected ? selectedWidth : axisWidth), color);
    }
    m_canvas.step();
}

void SurfacePainter::paintBarVeil()
{
    Rect veiled = m_layout.bar;
    for (const TextItem& label : m_layout.barLabels)
        veiled.take({textRect(label).x2, textRect(label).y2});
    for (const SurfaceText& text : m_layout.texts)
        if (text.object == surfaceobject::barTitle)
            veiled.take({textRect(text.item).x1, textRect(text.item).y2});
    m_canvas.fill(veiled.grown(points(3)), palette::veil);
}

void SurfacePainter::paintColorBar()
{
    const Rect& bar = m_layout.bar;
    paintBarVeil();
    const std::size_t bands = m_content.shape->bandEdges().size() - 1;
    for (std::size_t band = 0; band < bands; ++band) {
        const double from = bar.y1 + bar.height() * static_cast<double>(band) / static_cast<double>(bands);
        const double to = bar.y1 + bar.height() * static_cast<double>(band + 1) / static_cast<double>(bands);
        m_canvas.fill({bar.x1, from, bar.x2, to},
                      heightColor(bands < 2 ? 0.5 : static_cast<double>(band) / static_cast<double>(bands - 1)));
    }
    const bool selected = isSelectedObject(ObjectKind::Geometry, surfaceobject::colorBar);
    m_canvas.outline(bar, points(selected ? selectedWidth : axisWidth), selected ? palette::selected : palette::axis);
    for (const TextItem& label : m_layout.barLabels)
        m_canvas.line({bar.x2, label.anchor.y}, {bar.x2 + points(3), label.anchor.y}, points(axisWidth), palette::axis);
    m_canvas.step();
}

void SurfacePainter::paintTexts()
{
    m_canvas.beginPhase(1, m_layout.texts.size() + m_layout.barLabels.size() + 15);
    for (const SurfaceAxis& axis : m_layout.axes)
        for (const TextItem& label : axis.labels)
            m_canvas.text(label);
    for (const TextItem& label : m_layout.barLabels)
        m_canvas.text(label);
    for (const SurfaceText& text : m_layout.texts) {
        TextItem item = text.item;
        if (isSelectedObject(ObjectKind::Text, text.object)) {
            m_canvas.fill(textRect(item).grown(points(1.5)), palette::selectedGround);
            item.color = palette::selectedText;
        } else if (text.object == surfaceobject::title) {
            m_canvas.fill(textRect(item).grown(points(2)), palette::veil);
        }
        m_canvas.text(item);
    }
}

} // namespace velmora::engine
