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
    void showAll() override;
    std::vector<double> viewNumbers() const override;
    bool setViewNumbers(const std::vector<double>& numbers) override;
    bool valueAt(double x, double y, ShownValue& found) const override;
    void takeViewOf(const Plot& other, Checkpoint& checkpoint) override;
    std::string description() const override;

    const SurfaceView& view() const { return m_content.view; }

    enum class Side { Above, South, East };
    /// Shows all from there, without perspective: from above as a map, with the north up. Turning it leaves that.
    void lookFrom(Side side);

    double exaggeration() const { return m_look.exaggeration; }
    void setExaggeration(double exaggeration);
    bool areColorsClipped() const { return m_look.colors.has_value(); }
    /// Whether the lowest and the highest heights, a fiftieth of all each, have the colours of the others' ends.
    void clipColors(bool clipped);
    const SurfaceShape& shape() const { return m_content.data->shape; }

protected:
    std::string nameOf(const ObjectId& object) const override;
    void collect(const Rect& rect, const PickFilter& filter, Selection& found) const override;

private:
    void lookChanged();
    bool meetsSurface(const Camera& camera, const Rect& rect) const;

    SurfaceContent m_content;
    SurfaceLook m_look;
    std::optional<AxisRange> m_middleHeights; ///< once they were asked for
};

} // namespace velmora::engine
