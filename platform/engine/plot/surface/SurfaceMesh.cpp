#include "engine/plot/surface/SurfaceMesh.h"

#include <algorithm>
#include <cmath>

namespace velmora::engine {

namespace {

constexpr double UnitNormal = 32767;

void setNormal(MeshVertex& vertex, double x, double y, double z)
{
    const double scale = UnitNormal / std::sqrt(x * x + y * y + z * z);
    vertex.normal[0] = static_cast<std::int16_t>(std::lrint(x * scale));
    vertex.normal[1] = static_cast<std::int16_t>(std::lrint(y * scale));
    vertex.normal[2] = static_cast<std::int16_t>(std::lrint(z * scale));
}

void setPosition(MeshVertex& vertex, const glm::dvec3& place)
{
    vertex.position[0] = static_cast<float>(place.x);
    vertex.position[1] = static_cast<float>(place.y);
    vertex.position[2] = static_cast<float>(place.z);
}

int valuesInMesh(const HeightPatch& patch, int column, int row)
{
    return int(patch.isValue(column, row)) + int(patch.isValue(column + 1, row)) + int(patch.isValue(column, row + 1)) +
           int(patch.isValue(column + 1, row + 1));
}

bool isAlone(const HeightPatch& patch, int column, int row)
{
    return patch.isValue(column, row) && valuesInMesh(patch, column, row) < 3 &&
           valuesInMesh(patch, column - 1, row) < 3 && valuesInMesh(patch, column, row - 1) < 3 &&
           valuesInMesh(patch, column - 1, row - 1) < 3;
}

// Two triangles; with one corner missing the one triangle that is left. `first` is the mesh's first corner.
void addMesh(const HeightPatch& patch, int column, int row, unsigned first, unsigned across, MeshPart& part)
{
    const unsigned corners[] = {first, first + 1, first + across + 1, first + across};
    const bool there[] = {patch.isValue(column, row), patch.isValue(column + 1, row),
                          patch.isValue(column + 1, row + 1), patch.isValue(column, row + 1)};
    const long count = std::count(there, there + 4, true);
    if (count < 3)
        return;
    // Starting beside the missing corner, the first three corners are the triangle that is left.
    const auto missing = static_cast<unsigned>(std::find(there, there + 4, false) - there);
    const unsigned start = count == 4 ? 0 : missing + 1;
    for (unsigned i : {0u, 2u, 1u})
        part.indices.push_back(static_cast<std::uint16_t>(corners[(start + i) % 4]));
    if (count == 4)
        for (unsigned i : {0u, 3u, 2u})
            part.indices.push_back(static_cast<std::uint16_t>(corners[i]));
}

} // namespace

void MeshPart::clear()
{
    vertices.clear();
    indices.clear();
}

SurfaceMesh::SurfaceMesh(const SurfaceLevels& levels, const SurfaceShape& shape, int level)
    : m_levels(levels), m_shape(shape), m_level(level), m_columns(levels.columns(level)), m_rows(levels.rows(level))
{}

int SurfaceMesh::pieces(int nodes)
{
    return std::max(1, (nodes - 1 + PieceSide - 1) / PieceSide);
}

glm::dvec3 SurfaceMesh::place(const HeightPatch& patch, int column, int row) const
{
    return {m_shape.x(m_levels.columnPlace(m_level, column)), m_shape.y(m_levels.rowPlace(m_level, row)),
            m_shape.z(patch.at(column, row))};
}

/// The rise eastwards, one-sided at borders and gaps.
double SurfaceMesh::slopeX(const HeightPatch& patch, int column, int row) const
{
    const int after = patch.isValue(column + 1, row) ? column + 1 : column;
    const int before = patch.isValue(column - 1, row) ? column - 1 : column;
    const double run = (m_levels.columnPlace(m_level, after) - m_levels.columnPlace(m_level, before)) * m_shape.stepX();
    return run == 0 ? 0 : (m_shape.z(patch.at(after, row)) - m_shape.z(patch.at(before, row))) / run;
}

/// The rise northwards.
double SurfaceMesh::slopeY(const HeightPatch& patch, int column, int row) const
{
    const int after = patch.isValue(column, row + 1) ? row + 1 : row;
    const int before = patch.isValue(column, row - 1) ? row - 1 : row;
    const double run = (m_levels.rowPlace(m_level, before) - m_levels.rowPlace(m_level, after)) * m_shape.stepY();
    return run == 0 ? 0 : (m_shape.z(patch.at(column, after)) - m_shape.z(patch.at(column, before))) / run;
}

MeshVertex SurfaceMesh::vertex(const HeightPatch& patch, int column, int row) const
{
    MeshVertex made{};
    if (!patch.isValue(column, row))
        return made;
    made.band = static_cast<float>(m_shape.bandPlace(patch.at(column, row)));
    setPosition(made, place(patch, column, row));
    setNormal(made, -slopeX(patch, column, row), -slopeY(patch, column, row), 1);
    return made;
}

void SurfaceMesh::makePiece(int pieceColumn, int pieceRow, MeshPart& part) const
{
    part.clear();
    const int firstColumn = pieceColumn * PieceSide;
    const int firstRow = pieceRow * PieceSide;
    const int lastColumn = std::min(firstColumn + PieceSide, m_columns - 1);
    const int lastRow = std::min(firstRow + PieceSide, m_rows - 1);
    const auto across = static_cast<unsigned>(lastColumn - firstColumn + 1);
    const HeightPatch patch(m_levels, m_level, firstColumn - 1, firstRow - 1, lastColumn - firstColumn + 3,
                            lastRow - firstRow + 3);
    for (int row = firstRow; row <= lastRow; ++row)
        for (int column = firstColumn; column <= lastColumn; ++column) {
            if (row < lastRow && column < lastColumn)
                addMesh(patch, column, row, static_cast<unsigned>(part.vertices.size()), across, part);
            part.vertices.push_back(vertex(patch, column, row));
        }
    for (int row = firstRow; row <= lastRow; ++row)
        for (int column = firstColumn; column <= lastColumn; ++column)
            if (isAlone(patch, column, row))
                addLevelCell(patch, column, row, part);
}

void SurfaceMesh::addLevelCell(const HeightPatch& patch, int column, int row, MeshPart& part) const
{
    const auto first = static_cast<unsigned>(part.vertices.size());
    const glm::dvec3 middle = place(patch, column, row);
    const double side = 1 << m_level;
    const double signs[4][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
    for (const auto& sign : signs) {
        MeshVertex corner{};
        corner.band = static_cast<float>(m_shape.bandPlace(patch.at(column, row)));
        setPosition(corner, {middle.x + sign[0] * side * m_shape.stepX() / 2,
                             middle.y + sign[1] * side * m_shape.stepY() / 2, middle.z});
        setNormal(corner, 0, 0, 1);
        part.vertices.push_back(corner);
    }
    for (unsigned i : {0u, 1u, 2u, 0u, 2u, 3u})
        part.indices.push_back(static_cast<std::uint16_t>(first + i));
}

std::vector<glm::dvec3> SurfaceMesh::pieceBox(int pieceColumn, int pieceRow) const
{
    // A piece takes its last nodes from its neighbours.
    HeightRange heights;
    const int above = std::min(m_level + PieceLevels, m_levels.count() - 1);
    const int shift = above - m_level;
    for (int i = 0; i < 4; ++i)
        heights.take(
            m_levels.range(above, (pieceColumn * PieceSide >> shift) + i % 2, (pieceRow * PieceSide >> shift) + i / 2));
    std::vector<glm::dvec3> corners;
    if (heights.isGap())
        return corners;
    // Half a node more on each side: level cells reach that far.
    const double reach = (1 << m_level) / 2.0;
    for (int i = 0; i < 8; ++i) {
        const int column = std::min(pieceColumn * PieceSide + (i & 1 ? PieceSide : 0), m_columns - 1);
        const int row = std::min(pieceRow * PieceSide + (i & 2 ? PieceSide : 0), m_rows - 1);
        corners.push_back({m_shape.x(m_levels.columnPlace(m_level, column) + (i & 1 ? reach : -reach)),
                           m_shape.y(m_levels.rowPlace(m_level, row) + (i & 2 ? reach : -reach)),
                           m_shape.z(i & 4 ? heights.high : heights.low)});
    }
    return corners;
}

std::vector<glm::dvec3> SurfaceMesh::sideNodes(int side, int first, int count) const
{
    const bool isAcross = side % 2 == 0;
    const HeightPatch patch(m_levels, m_level, sideColumn(side, first), sideRow(side, first), isAcross ? count : 1,
                            isAcross ? 1 : count);
    std::vector<glm::dvec3> nodes;
    for (int n = first; n < first + count; ++n)
        nodes.push_back(place(patch, sideColumn(side, n), sideRow(side, n)));
    return nodes;
}

std::vector<glm::dvec3> SurfaceMesh::sideEnds(int side, int first, int count) const
{
    std::vector<glm::dvec3> ends;
    for (const int n : {first, first + count - 1})
        ends.push_back({m_shape.x(m_levels.columnPlace(m_level, sideColumn(side, n))),
                        m_shape.y(m_levels.rowPlace(m_level, sideRow(side, n))), -m_shape.halfZ()});
    return ends;
}

void SurfaceMesh::makeSkirt(int side, int first, int count, MeshPart& part) const
{
    static const double normals[4][2] = {{0, -1}, {1, 0}, {0, 1}, {-1, 0}};
    part.clear();
    bool hadValue = false;
    for (const glm::dvec3& place : sideNodes(side, first, count)) {
        const bool isHere = !std::isnan(place.z);
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
                    part.indices.push_back(static_cast<std::uint16_t>(next - back));
        }
        hadValue = isHere;
    }
}

} // namespace velmora::engine
