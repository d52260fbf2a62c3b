#pragma once

#include "engine/plot/surface/Camera.h"
#include "engine/plot/surface/HeightPatch.h"
#include "engine/plot/surface/SurfaceShape.h"

#include <cstdint>
#include <vector>

namespace velmora::engine {

/// A corner of the surface. `band` is where its height lies between the lowest and highest band.
struct MeshVertex {
    float position[3];
    float band;
    std::int16_t normal[3]; ///< of length 32767
    std::int16_t unused;
};

/// A piece of the surface.
struct MeshPart {
    std::vector<MeshVertex> vertices;
    std::vector<std::uint16_t> indices; ///< of triangles
    void clear();
};

/// Makes the triangles of a level of detail, piece by piece. Cells around a gap are left out; a value
/// without neighbours shows as a level cell.
class SurfaceMesh {
public:
    /// Meshes along the side of a piece. A power of two: the nodes of a level this many levels further up
    /// stand for whole pieces.
    static constexpr int PieceLevels = 5;
    static constexpr int PieceSide = 1 << PieceLevels;

    SurfaceMesh(const SurfaceLevels& levels, const SurfaceShape& shape, int level);

    int level() const { return m_level; }
    int columns() const { return m_columns; } ///< of nodes
    int rows() const { return m_rows; }
    int pieceColumns() const { return pieces(m_columns); }
    int pieceRows() const { return pieces(m_rows); }
    void makePiece(int pieceColumn, int pieceRow, MeshPart& part) const;
    /// The corners of the box that holds the piece; none for a piece of nothing but gaps.
    std::vector<glm::dvec3> pieceBox(int pieceColumn, int pieceRow) const;
    /// The part of a wall from the surface's border down to the floor that stands at `count` nodes of a
    /// side, from `first` on: 0 south, 1 east, 2 north, 3 west.
    void makeSkirt(int side, int first, int count, MeshPart& part) const;
    int sideLength(int side) const { return side % 2 == 0 ? m_columns : m_rows; }
    /// The upper border of that wall. Two neighbours are joined where both are values; NaN stands for a gap.
    std::vector<glm::dvec3> sideNodes(int side, int first, int count) const;
    /// The first and the last of these nodes, on the floor.
    std::vector<glm::dvec3> sideEnds(int side, int first, int count) const;

private:
    static int pieces(int nodes);
    int sideColumn(int side, int n) const { return side % 2 == 0 ? n : side == 1 ? m_columns - 1 : 0; }
    int sideRow(int side, int n) const { return side % 2 != 0 ? n : side == 0 ? m_rows - 1 : 0; }
    glm::dvec3 place(const HeightPatch& patch, int column, int row) const;
    double slopeX(const HeightPatch& patch, int column, int row) const;
    double slopeY(const HeightPatch& patch, int column, int row) const;
    MeshVertex vertex(const HeightPatch& patch, int column, int row) const;
    void addLevelCell(const HeightPatch& patch, int column, int row, MeshPart& part) const;

    const SurfaceLevels& m_levels;
    const SurfaceShape& m_shape;
    int m_level;
    int m_columns;
    int m_rows;
};

} // namespace velmora::engine
