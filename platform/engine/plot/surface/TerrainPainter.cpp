#include "engine/plot/surface/TerrainPainter.h"

#include "engine/plot/Palette.h"
#include "engine/plot/surface/BandTexture.h"

#include <glm/gtc/type_ptr.hpp>

#include <cmath>
#include <cstddef>
#include <limits>

namespace velmora::engine {

namespace {

// Lines on the surface lie a little nearer to the viewer than the surface.
constexpr double LineLift = 1.2e-3;

// A piece that covers more than a few of these squares is filled square by square.
constexpr double BlockSide = 256;
constexpr int SkirtNodes = 129;
constexpr int BorderNodes = 129;
constexpr std::size_t StrokeIndices = 6000; ///< drawn together

// In vertex buffers, beyond as much memory as the grid itself takes. With the levels of detail and the contours
// all geometry so takes less than two grids and 64 MiB.
constexpr std::size_t KeptBesideGrid = std::size_t{40} << 20;

// Of contour lines, in meshes.
constexpr double Straightness = 0.06;

// Beside the levels of all grids: walls of the four sides are pieces of a key of their own.
int skirtPiece(int side, int first)
{
    return -1 - (first / (SkirtNodes - 1)) * 4 - side;
}

GeometryBytes bytesOf(const MeshPart& part)
{
    return {part.vertices.data(), part.vertices.size() * sizeof(MeshVertex), part.indices.data(), part.indices.size()};
}

std::size_t trianglesFor(const Drawing& drawing, const CoarseBudget& coarse)
{
    return drawing.detail == Detail::Coarse ? coarse.triangles() : std::numeric_limits<std::size_t>::max();
}

} // namespace

GLsizei TerrainPainter::Triangles::count() const
{
    return kept ? kept->indexCount : static_cast<GLsizei>(part->indices.size());
}

TerrainPainter::TerrainPainter(Canvas& canvas, SurfaceData& data, SurfaceMemory& memory, const Camera& camera)
    : m_canvas(canvas), m_data(data), m_camera(camera),
      m_visible(chooseVisiblePieces(data, camera, canvas, trianglesFor(canvas.drawing(), memory.coarseBudget))),
      m_mesh(data.levels, data.shape, m_visible.level), m_kept(memory.geometryOf(canvas.drawing().context))
{
    if (m_kept)
        m_kept->beginDrawing(canvas.gl(), data.number, KeptBesideGrid + data.grid().values.size() * sizeof(float));
}

void TerrainPainter::paintSurface(double piecesEnd, double skirtsEnd)
{
    if (m_canvas.stopped())
        return;
    const BandTexture texture(m_canvas.gl(), static_cast<int>(m_data.shape.bandEdges().size()) - 1);
    useSurface();
    m_canvas.gl().Clear(GL_DEPTH_BUFFER_BIT);
    m_canvas.beginPhase(piecesEnd, pieces());
    paintPieces();
    m_canvas.beginPhase(skirtsEnd,
                        static_cast<std::size_t>(2 * (m_mesh.columns() + m_mesh.rows()) / (SkirtNodes - 1) + 4));
    paintSkirts();
}

void TerrainPainter::useSurface() const
{
    const GLFunctions& gl = m_canvas.gl();
    gl.MatrixMode(GL_PROJECTION);
    gl.LoadMatrixd(glm::value_ptr(m_camera.projectionMatrix(m_canvas.drawing())));
    gl.MatrixMode(GL_MODELVIEW);
    gl.LoadIdentity();
    useLight();
    gl.LoadMatrixd(glm::value_ptr(m_camera.modelMatrix()));
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
void TerrainPainter::useLight() const
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

void TerrainPainter::paintPieces()
{
    for (const VisiblePiece& piece : m_visible.pieces) {
        if (m_canvas.stopped())
            return;
        const Triangles triangles = geometry(number(piece), [&] {
            m_mesh.makePiece(piece.column, piece.row, m_part);
            keepContours(number(piece));
        });
        paintTriangles(triangles, piece.where);
    }
}

/// What is kept, or else made.
template <class Make>
TerrainPainter::Triangles TerrainPainter::geometry(int piece, const Make& make)
{
    const KeptGeometry::Key key(m_data.number, m_visible.level, piece);
    const KeptGeometry::Entry* kept = m_kept ? m_kept->find(key) : nullptr;
    if (!kept) {
        make();
        if (m_kept)
            kept = m_kept->add(m_canvas.gl(), key, bytesOf(m_part));
    }
    return {kept, &m_part};
}

// What is kept may be given up in a turn of the application, but then the drawing is told to stop.
void TerrainPainter::paintTriangles(const Triangles& triangles, const Rect& where)
{
    const double cost = triangles.count() / 3.0;
    const Rect visible = m_canvas.visiblePart(where);
    if (where.width() <= 2 * BlockSide && where.height() <= 2 * BlockSide) {
        draw(triangles);
        m_canvas.charge(cost, visible);
        m_canvas.step();
        return;
    }
    for (double y = visible.y1; y < visible.y2; y += BlockSide)
        for (double x = visible.x1; x < visible.x2; x += BlockSide) {
            if (m_canvas.stopped())
                return;
            const Rect block{x, y, std::min(x + BlockSide, visible.x2), std::min(y + BlockSide, visible.y2)};
            m_canvas.clip(block);
            draw(triangles);
            m_canvas.charge(cost / 2, block);
            m_canvas.stepWithin();
        }
    m_canvas.clipToFrame();
    m_canvas.step();
}

void TerrainPainter::draw(const Triangles& triangles) const
{
    if (triangles.count() == 0)
        return;
    const GLFunctions& gl = m_canvas.gl();
    const auto* const first = triangles.kept ? nullptr : reinterpret_cast<const char*>(triangles.part->vertices.data());
    const void* const indices = triangles.kept ? nullptr : triangles.part->indices.data();
    if (triangles.kept) {
        gl.BindBuffer(GL_ARRAY_BUFFER, triangles.kept->vertices);
        gl.BindBuffer(GL_ELEMENT_ARRAY_BUFFER, triangles.kept->indices);
    }
    gl.EnableClientState(GL_VERTEX_ARRAY);
    gl.EnableClientState(GL_NORMAL_ARRAY);
    gl.EnableClientState(GL_TEXTURE_COORD_ARRAY);
    gl.VertexPointer(3, GL_FLOAT, sizeof(MeshVertex), first + offsetof(MeshVertex, position));
    gl.NormalPointer(GL_SHORT, sizeof(MeshVertex), first + offsetof(MeshVertex, normal));
    gl.TexCoordPointer(1, GL_FLOAT, sizeof(MeshVertex), first + offsetof(MeshVertex, band));
    gl.DrawElements(GL_TRIANGLES, triangles.count(), GL_UNSIGNED_SHORT, indices);
    gl.DisableClientState(GL_TEXTURE_COORD_ARRAY);
    gl.DisableClientState(GL_NORMAL_ARRAY);
    gl.DisableClientState(GL_VERTEX_ARRAY);
    if (triangles.kept) {
        gl.BindBuffer(GL_ARRAY_BUFFER, 0);
        gl.BindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
    }
}

void TerrainPainter::paintSkirts()
{
    m_canvas.gl().Disable(GL_TEXTURE_2D);
    // Paler than the surface and hardly shaded: walls are there to hold it, not to be looked at.
    const GLfloat glow[] = {0.50F, 0.51F, 0.53F, 1};
    const GLfloat stone[] = {0.44F, 0.44F, 0.45F, 1};
    m_canvas.gl().Materialfv(GL_FRONT_AND_BACK, GL_EMISSION, glow);
    m_canvas.gl().Materialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, stone);
    for (int side = 0; side < 4; ++side)
        for (int first = 0; first + 1 < m_mesh.sideLength(side) && !m_canvas.stopped(); first += SkirtNodes - 1)
            paintSkirt(side, first);
}

void TerrainPainter::paintSkirt(int side, int first)
{
    const int count = std::min(SkirtNodes, m_mesh.sideLength(side) - first);
    const Rect where = sideRect(side, first, count);
    if (!m_canvas.shows(where)) {
        m_canvas.step();
        return;
    }
    paintTriangles(geometry(skirtPiece(side, first), [&] { m_mesh.makeSkirt(side, first, count, m_part); }), where);
}

/// What a part of a wall covers at most.
Rect TerrainPainter::sideRect(int side, int first, int count) const
{
    std::vector<glm::dvec3> corners = m_mesh.sideEnds(side, first, count);
    for (std::size_t i = 0; i < 2; ++i)
        corners.push_back({corners[i].x, corners[i].y, m_data.shape.halfZ()});
    return coveredBy(corners, m_camera);
}

StrokePoint TerrainPainter::onSurface(const glm::dvec3& place) const
{
    const StrokePoint point = m_camera.project(place);
    return {point.x, point.y, -(point.z - LineLift)};
}

void TerrainPainter::useLinesOnSurface()
{
    m_canvas.useFlat();
    const GLFunctions& gl = m_canvas.gl();
    gl.Disable(GL_POLYGON_OFFSET_FILL);
    gl.Enable(GL_DEPTH_TEST);
    gl.DepthMask(GL_FALSE);
}

void TerrainPainter::paintLines(const TerrainLines& lines, double end)
{
    if (m_canvas.stopped())
        return;
    useLinesOnSurface();
    m_canvas.beginPhase(end, pieces());
    paintContours(lines);
    for (int side = 0; side < 4; ++side)
        paintBorder(side, lines);
    m_canvas.useFlat();
}

std::shared_ptr<const ContourLines> TerrainPainter::keepContours(int piece) const
{
    const KeptContours::Key key(m_visible.level, piece);
    if (auto kept = m_data.contours.find(key))
        return kept;
    const double mesh = std::min(m_data.shape.stepX(), m_data.shape.stepY()) * (1 << m_visible.level);
    return m_data.contours.add(key, contoursOf(m_part, m_data.shape, Straightness * mesh));
}

std::shared_ptr<const ContourLines> TerrainPainter::contours(const VisiblePiece& piece)
{
    if (auto kept = m_data.contours.find({m_visible.level, number(piece)}))
        return kept;
    m_mesh.makePiece(piece.column, piece.row, m_part);
    return keepContours(number(piece));
}

void TerrainPainter::paintContours(const TerrainLines& lines)
{
    Stroke stroke(lines.contourWidth, lines.contourColor);
    std::vector<StrokePoint> points;
    for (const VisiblePiece& piece : m_visible.pieces) {
        if (m_canvas.stopped())
            return;
        for (const ContourLine& line : *contours(piece)) {
            points.clear();
            for (const glm::dvec3& place : line)
                points.push_back(onSurface(place));
            stroke.addLine(points.data(), points.size());
        }
        if (stroke.indices().size() > StrokeIndices)
            paintStroke(stroke);
        m_canvas.step();
    }
    paintStroke(stroke);
}

void TerrainPainter::paintStroke(Stroke& stroke)
{
    m_canvas.stroke(stroke);
    stroke.clear();
}

void TerrainPainter::paintBorder(int side, const TerrainLines& lines)
{
    Stroke stroke(lines.borderWidth, lines.borderColor);
    const int length = m_mesh.sideLength(side);
    for (int first = 0; first < length && !m_canvas.stopped(); first += BorderNodes - 1) {
        const int count = std::min(BorderNodes, length - first);
        if (!m_canvas.shows(sideRect(side, first, count).grown(lines.borderWidth)))
            continue;
        std::vector<StrokePoint> line;
        for (const glm::dvec3& place : m_mesh.sideNodes(side, first, count)) {
            if (!std::isnan(place.z)) {
                line.push_back(onSurface(place));
                continue;
            }
            stroke.addLine(line.data(), line.size());
            line.clear();
        }
        stroke.addLine(line.data(), line.size());
        paintStroke(stroke);
        m_canvas.stepWithin();
    }
}

} // namespace velmora::engine
