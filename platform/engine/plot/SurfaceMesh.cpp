#include "engine/plot/SurfaceMesh.h"

#include <algorithm>
#include <cmath>

namespace velmora::engine {

namespace {

int nodesFor(int cells, int stride)
{
    return (cells - 1 + stride - 1) / stride + 1;
}

void setNormal(MeshVertex& vertex, double x, double y, double z)
{
    const double length = std::sqrt(x * x + y * y + z * z);
    vertex.normal[0] = static_cast<float>(x / length);
    vertex.normal[1] = static_cast<float>(y / length);
    vertex.normal[2] = static_cast<float>(z / length);
}

void setPosition(MeshVertex& vertex, const Vector3& place)
{
    vertex.position[0] = static_cast<float>(place.x);
    vertex.position[1] = static_cast<float>(place.y);
    vertex.position[2] = static_cast<float>(place.z);
}

} // namespace

void MeshPart::clear()
{
    vertices.clear();
    indices.clear();
}

SurfaceMesh::SurfaceMesh(const Grid& grid, const SurfaceShape& shape, int stride)
    : m_grid(grid), m_shape(shape), m_stride(stride), m_columns(nodesFor(grid.columns, stride)),
      m_rows(nodesFor(grid.rows, stride))
{}

int SurfaceMesh::strideFor(const Grid& grid, double scale)
{
    return std::max(1, static_cast<int>(std::max(grid.columns, grid.rows) / std::max(scale, 1.0)));
}

int SurfaceMesh::pieces(int nodes)
{
    return std::max(1, (nodes - 1 + pieceSide - 1) / pieceSide);
}

int SurfaceMesh::gridColumn(int column) const
{
    return std::min(column * m_stride, m_grid.columns - 1);
}

int SurfaceMesh::gridRow(int row) const
{
    return std::min(row * m_stride, m_grid.rows - 1);
}

float SurfaceMesh::value(int column, int row) const
{
    return m_grid.at(gridColumn(column), gridRow(row));
}

bool SurfaceMesh::isValue(int column, int row) const
{
    return column >= 0 && row >= 0 && column < m_columns && row < m_rows && std::isfinite(value(column, row));
}

bool SurfaceMesh::node(int column, int row, Vector3& place) const
{
    place.x = m_shape.x(gridColumn(column));
    place.y = m_shape.y(gridRow(row));
    const float height = value(column, row);
    place.z = m_shape.z(height);
    return std::isfinite(height);
}

bool SurfaceMesh::sideNode(int side, int n, Vector3& place) const
{
    if (side % 2 == 0)
        return node(n, side == 0 ? m_rows - 1 : 0, place);
    return node(side == 1 ? m_columns - 1 : 0, n, place);
}

/// The rise along one direction of the grid, one-sided at borders and gaps.
double SurfaceMesh::slope(int column, int row, int dColumn, int dRow) const
{
    const bool after = isValue(column + dColumn, row + dRow);
    const bool before = isValue(column - dColumn, row - dRow);
    const int c1 = after ? column + dColumn : column;
    const int r1 = after ? row + dRow : row;
    const int c0 = before ? column - dColumn : column;
    const int r0 = before ? row - dRow : row;
    const double run =
        (gridColumn(c1) - gridColumn(c0)) * m_shape.stepX() - (gridRow(r1) - gridRow(r0)) * m_shape.stepY();
    return run == 0 ? 0 : (m_shape.z(value(c1, r1)) - m_shape.z(value(c0, r0))) / run;
}

MeshVertex SurfaceMesh::vertex(int column, int row) const
{
    MeshVertex made{};
    Vector3 place;
    if (!node(column, row, place))
        return made;
    made.band = static_cast<float>(m_shape.bandPlace(value(column, row)));
    setPosition(made, place);
    setNormal(made, -slope(column, row, 1, 0), -slope(column, row, 0, 1), 1);
    return made;
}

int SurfaceMesh::valuesInMesh(int column, int row) const
{
    return int(isValue(column, row)) + int(isValue(column + 1, row)) + int(isValue(column, row + 1)) +
           int(isValue(column + 1, row + 1));
}

bool SurfaceMesh::isAlone(int column, int row) const
{
    return isValue(column, row) && valuesInMesh(column, row) < 3 && valuesInMesh(column - 1, row) < 3 &&
           valuesInMesh(column, row - 1) < 3 && valuesInMesh(column - 1, row - 1) < 3;
}

void SurfaceMesh::makePiece(int pieceColumn, int pieceRow, MeshPart& part) const
{
    part.clear();
    const int firstColumn = pieceColumn * pieceSide;
    const int firstRow = pieceRow * pieceSide;
    const int lastColumn = std::min(firstColumn + pieceSide, m_columns - 1);
    const int lastRow = std::min(firstRow + pieceSide, m_rows - 1);
    const auto across = static_cast<unsigned>(lastColumn - firstColumn + 1);
    for (int row = firstRow; row <= lastRow; ++row)
        for (int column = firstColumn; column <= lastColumn; ++column) {
            if (row < lastRow && column < lastColumn)
                addMesh(column, row, static_cast<unsigned>(part.vertices.size()), across, part);
            part.vertices.push_back(vertex(column, row));
        }
    for (int row = firstRow; row <= lastRow; ++row)
        for (int column = firstColumn; column <= lastColumn; ++column)
            if (isAlone(column, row))
                addLevelCell(column, row, part);
}

// Two triangles; with one corner missing the one triangle that is left.
void SurfaceMesh::addMesh(int column, int row, unsigned first, unsigned across, MeshPart& part) const
{
    const unsigned corners[] = {first, first + 1, first + across + 1, first + across};
    const bool there[] = {isValue(column, row), isValue(column + 1, row), isValue(column + 1, row + 1),
                          isValue(column, row + 1)};
    const long count = std::count(there, there + 4, true);
    if (count < 3)
        return;
    // Starting beside the missing corner, the first three corners are the triangle that is left.
    const auto missing = static_cast<unsigned>(std::find(there, there + 4, false) - there);
    const unsigned start = count == 4 ? 0 : missing + 1;
    for (unsigned i : {0u, 2u, 1u})
        part.indices.push_back(corners[(start + i) % 4]);
    if (count == 4)
        for (unsigned i : {0u, 3u, 2u})
            part.indices.push_back(corners[i]);
}

void SurfaceMesh::addLevelCell(int column, int row, MeshPart& part) const
{
    const auto first = static_cast<unsigned>(part.vertices.size());
    Vector3 middle;
    node(column, row, middle);
    const double signs[4][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
    for (const auto& sign : signs) {
        MeshVertex corner{};
        corner.band = static_cast<float>(m_shape.bandPlace(value(column, row)));
        setPosition(corner, {middle.x + sign[0] * m_stride * m_shape.stepX() / 2,
                             middle.y + sign[1] * m_stride * m_shape.stepY() / 2, middle.z});
        setNormal(corner, 0, 0, 1);
        part.vertices.push_back(corner);
    }
    for (unsigned i : {0u, 1u, 2u, 0u, 2u, 3u})
        part.indices.push_back(first + i);
}

std::vector<Vector3> SurfaceMesh::pieceBox(int pieceColumn, int pieceRow) const
{
    // Half a stride more on each side: level cells reach that far.
    const double reach = m_stride / 2.0;
    std::vector<Vector3> corners;
    for (int i = 0; i < 8; ++i) {
        const int column = gridColumn(pieceColumn * pieceSide + (i & 1 ? pieceSide : 0));
        const int row = gridRow(pieceRow * pieceSide + (i & 2 ? pieceSide : 0));
        corners.push_back({m_shape.x(column + (i & 1 ? reach : -reach)), m_shape.y(row + (i & 2 ? reach : -reach)),
                           i & 4 ? m_shape.halfZ() : -m_shape.halfZ()});
    }
    return corners;
}

void SurfaceMesh::makeSkirt(int side, int first, int last, MeshPart& part) const
{
    static const double normals[4][2] = {{0, -1}, {1, 0}, {0, 1}, {-1, 0}};
    part.clear();
    bool hadValue = false;
    for (int n = first; n <= last; ++n) {
        Vector3 place;
        const bool isHere = sideNode(side, n, place);
        if (isHere) {
            MeshVertex top{};
            setNormal(top, normals[side][0], normals[side][1], 0);
            MeshVertex foot = top;
            setPosition(top, place);
            setPosition(foot, {place.x, place.y, -m_shape.halfZ()});
            part.vertices.push_back(top);
            part.vertices.push_back(foot);
            const auto next = static_cast<unsigned>(part.vertices.size());
            if (hadValue)
                for (unsigned back : {4u, 3u, 2u, 2u, 3u, 1u})
                    part.indices.push_back(next - back);
        }
        hadValue = isHere;
    }
}

} // namespace velmora::engine
