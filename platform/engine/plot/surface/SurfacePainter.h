#pragma once

#include "engine/plot/surface/SurfaceLayout.h"
#include "engine/plot/surface/SurfaceMemory.h"
#include "engine/plot/surface/TerrainPainter.h"

namespace velmora::engine {

/// What a surface plot shows, for as long as one drawing of it lasts.
struct SurfaceContent {
    std::shared_ptr<SurfaceData> data;
    std::shared_ptr<SurfaceMemory> memory = std::make_shared<SurfaceMemory>();
    SurfaceView view;
};

/// Draws a surface plot once. It holds what it draws, so that the plot may change, or go, while the
/// drawing gives way to the application.
class SurfacePainter {
public:
    SurfacePainter(const Drawing& drawing, Checkpoint& checkpoint, SurfaceContent content, Selection selection);

    /// False when the checkpoint said to stop.
    bool paint();

private:
    void paintBox();
    void paintTerrain();
    void paintAxes();
    void paintBarVeil();
    void paintColorBar();
    void paintTexts();

    bool isSelectedObject(ObjectKind kind, int object) const { return isSelected(m_selection, kind, object); }
    double points(double length) const { return m_frame.points(length); }

    SurfaceContent m_content;
    Selection m_selection;
    FrameSize m_frame;
    SurfaceLayout m_layout;
    Canvas m_canvas;
};

} // namespace velmora::engine
