#pragma once

#include "engine/plot/surface/SurfaceMemory.h"
#include "engine/plot/surface/VisiblePieces.h"

namespace velmora::engine {

/// How wide the lines on a surface are, in pixels, and in which colour.
struct TerrainLines {
    double contourWidth = 1;
    Color contourColor;
    double borderWidth = 1;
    Color borderColor;
};

/// Draws the surface itself, at the level of detail that the drawing asks for: the lit pieces and the walls
/// below their border, then the lines on them.
class TerrainPainter {
public:
    TerrainPainter(Canvas& canvas, SurfaceData& data, SurfaceMemory& memory, const Camera& camera);

    std::size_t pieces() const { return m_visible.pieces.size(); }
    void paintSurface(double piecesEnd, double skirtsEnd);
    void paintLines(const TerrainLines& lines, double end);

private:
    /// Triangles in the context's memory, or else in ours.
    struct Triangles {
        const KeptGeometry::Entry* kept = nullptr;
        const MeshPart* part = nullptr;
        GLsizei count() const;
    };

    void useSurface() const;
    void useLight() const;
    void useLinesOnSurface();
    void paintPieces();
    void paintSkirts();
    void paintSkirt(int side, int first);
    template <class Make>
    Triangles geometry(int piece, const Make& make);
    void paintTriangles(const Triangles& triangles, const Rect& where);
    void draw(const Triangles& triangles) const;
    std::shared_ptr<const ContourLines> keepContours(int piece) const;
    std::shared_ptr<const ContourLines> contours(const VisiblePiece& piece);
    void paintContours(const TerrainLines& lines);
    void paintBorder(int side, const TerrainLines& lines);
    void paintStroke(Stroke& stroke);
    StrokePoint onSurface(const glm::dvec3& place) const;
    Rect sideRect(int side, int first, int count) const;
    int number(const VisiblePiece& piece) const { return piece.row * m_mesh.pieceColumns() + piece.column; }

    Canvas& m_canvas;
    SurfaceData& m_data;
    const Camera& m_camera;
    VisiblePieces m_visible;
    SurfaceMesh m_mesh;
    KeptGeometry* m_kept; ///< null where nothing is kept
    MeshPart m_part;
};

} // namespace velmora::engine
