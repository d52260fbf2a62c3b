#pragma once

#include "engine/plot/Camera.h"
#include "engine/plot/SurfaceShape.h"

#include <vector>

namespace velmora::engine {

/// A corner of the surface. `band` is where its height lies between the lowest and highest band.
struct MeshVertex {
    float band;
    float normal[3];
    float position[3];
};

/// A piece of the surface.
struct MeshPart {
    std::vector<MeshVertex> vertices;
    std::vector<unsigned> indices; ///< of triangles
    void clear();
};

/// Makes the triangles of a grid piece by piece, never all at once. Its nodes are the centres of
/// every `stride`-th cell and of the last ones. Cells around a gap are left out; a value without
/// neighbours shows as a level cell.
class SurfaceMesh {
public:
    /// Nodes along the side of a piece.
    static constexpr int pieceSide = 16;

    SurfaceMesh(const Grid& grid, const SurfaceShape& shape, int stride);

    /// The stride at which the meshes of a surface `scale` pixels wide are about a pixel wide.
    static int strideFor(const Grid& grid, double scale);

    int columns() const { return m_columns; } ///< of nodes
    int rows() const { return m_rows; }
    int pieceColumns() const { return pieces(m_columns); }
    int pieceRows() const { return pieces(m_rows); }
    void makePiece(int pieceColumn, int pieceRow, MeshPart& part) const;
    /// The corners of the box that holds the piece whatever its heights are.
    std::vector<Vector3> pieceBox(int pieceColumn, int pieceRow) const;
    /// The part of a wall from the surface's border down to the floor that stands at the nodes
    /// first to last of a side: 0 south, 1 east, 2 north, 3 west.
    void makeSkirt(int side, int first, int last, MeshPart& part) const;
    int sideLength(int side) const { return side % 2 == 0 ? m_columns : m_rows; }

    /// The place of a node; false for a gap.
    bool node(int column, int row, Vector3& place) const;
    /// The n-th node of a side.
    bool sideNode(int side, int n, Vector3& place) const;

private:
    static int pieces(int nodes);
    bool isValue(int column, int row) const;
    float value(int column, int row) const;
    int gridColumn(int column) const;
    int gridRow(int row) const;
    bool isAlone(int column, int row) const;
    int valuesInMesh(int column, int row) const;
    double slope(int column, int row, int dColumn, int dRow) const;
    MeshVertex vertex(int column, int row) const;
    void addMesh(int column, int row, unsigned lowerLeft, unsigned across, MeshPart& part) const;
    void addLevelCell(int column, int row, MeshPart& part) const;

    const Grid& m_grid;
    const SurfaceShape& m_shape;
    int m_stride;
    int m_columns;
    int m_rows;
};

} // namespace velmora::engine
