#pragma once

#include "engine/plot/Contours.h"
#include "engine/plot/SurfaceLayout.h"

namespace velmora::engine {

/// What a surface plot shows, for as long as one drawing of it lasts.
struct SurfaceContent {
    std::shared_ptr<const Grid> grid;
    std::shared_ptr<const SurfaceShape> shape;
    SurfaceView view;
};

/// Draws a surface plot once. It holds what it draws, so that the plot may change, or go, while the
/// drawing gives way to the application.
class SurfacePainter {
public:
    SurfacePainter(const Drawing& drawing, Breath& breath, SurfaceContent content, Selection selection);

    /// False when the breath said to stop.
    bool paint();

private:
    void paintBox();
    void paintSurface();
    void paintPieces();
    void paintPiece(int column, int row);
    void paintPart(const MeshPart& part, const Rect& where);
    void drawPart(const MeshPart& part) const;
    void paintSkirts();
    void paintLinesOnSurface();
    void paintContours();
    void paintBorder(int side, double width, Color color);
    void paintAxes();
    void paintBarVeil();
    void paintColorBar();
    void paintTexts();

    void useSurface() const;
    void useLight() const;
    void useLinesOnSurface();
    bool isVisible(int column, int row, Rect& where) const;
    Rect covered(const std::vector<Vector3>& points) const;
    StrokePoint onSurface(const Vector3& place) const;
    bool isSelectedObject(ObjectKind kind, int object) const { return isSelected(m_selection, kind, object); }
    double points(double length) const { return m_frame.points(length); }

    SurfaceContent m_content;
    Selection m_selection;
    FrameSize m_frame;
    SurfaceLayout m_layout;
    SurfaceMesh m_mesh;
    Canvas m_canvas;
    MeshPart m_part;
};

} // namespace velmora::engine
