#pragma once

#include "engine/plot/SelectablePlot.h"
#include "engine/plot/surface/SurfacePainter.h"

#include <memory>

namespace velmora::engine {

/// A grid of heights as a lit surface in a box, with lines of equal height and a colour bar. Seen
/// from above only: the underside of heights shows nothing.
class SurfacePlot : public SelectablePlot {
public:
    /// Asks `checkpoint` to go on; throws ReadInterrupted when it says no.
    SurfacePlot(std::shared_ptr<const Grid> grid, Checkpoint& checkpoint);

    bool draw(const Drawing& drawing, Checkpoint& checkpoint) override;
    bool canRotate() const override { return true; }
    void rotate(double aboutVertical, double tilt) override;
    void translate(double dx, double dy) override;
    void zoom(double factor, double x, double y) override;
    void zoomTo(double x1, double y1, double x2, double y2) override;
    bool zoomAxis(double, double, double) override { return false; } ///< a surface is zoomed as a whole
    void fit() override;
    bool valueAt(double x, double y, ShownValue& found) const override;
    void takeViewOf(const Plot& other, Checkpoint& checkpoint) override;
    std::string description() const override;

    const SurfaceView& view() const { return m_content.view; }

protected:
    std::string nameOf(const ObjectId& object) const override;
    void collect(const Rect& rect, const PickFilter& filter, Selection& found) const override;

private:
    bool meetsSurface(const Camera& camera, const Rect& rect) const;

    SurfaceContent m_content;
};

} // namespace velmora::engine
