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
    bool drawsCoarsely() const override { return true; }
    void leaveContext(unsigned long context, bool isCurrent) override;
    bool canRotate() const override { return true; }
    void rotate(double aboutVertical, double tilt) override;
    bool lookFrom(Side side) override;
    void translate(double dx, double dy) override;
    void zoom(double factor, double x, double y) override;
    void zoomTo(double x1, double y1, double x2, double y2) override;
    void fit() override;
    void showAll() override;
    std::string viewState() const override;
    bool setViewState(const std::string& state) override;
    bool valueAt(double x, double y, ShownValue& found) const override;
    void takeViewOf(const Content& other, Checkpoint& checkpoint) override;
    std::string description() const override;
    std::string notes() const override;
    std::string details() const override;
    bool extent(Extent& found) const override;

    const SurfaceView& view() const { return m_content.view; }

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
