#pragma once

#include "engine/plot/Geometry.h"
#include "engine/plot/Plot.h"

#include <set>
#include <utility>

namespace velmora::engine {

enum class ObjectKind { Zone, Geometry, Text };

/// An object of a plot: which kind, and which of them.
using ObjectId = std::pair<ObjectKind, int>;
using Selection = std::set<ObjectId>;

inline bool isSelected(const Selection& selection, ObjectKind kind, int index)
{
    return selection.count({kind, index}) != 0;
}

/// How large a frame is: in pixels, and how many of them make a point.
struct FrameSize {
    double width = 792; ///< a landscape letter sheet, until something was drawn
    double height = 612;
    double pixelsPerPoint = 1;
    double leastText = 0; ///< pixels

    /// Pixels for a length in points. In a small frame text and lines shrink with it.
    double points(double length) const;
    /// The same for the height of a text, which stays legible.
    double textSize(double length) const;
    /// The same for what stands beside a label and grows with it.
    double besideLabel(double length) const;
    Rect rect() const { return {0, 0, width, height}; }
};

FrameSize frameSizeOf(const Drawing& drawing);

/// A plot with a selection. Text keeps its size on paper, so where it lies depends on how large the
/// frame was drawn the last time.
class SelectablePlot : public Content {
public:
    int pick(double x1, double y1, double x2, double y2, const PickFilter& filter) override;
    void deselectAll() override { m_selection.clear(); }
    bool selectNeighbour(bool after) override;
    int selectedCount() const override { return static_cast<int>(m_selection.size()); }
    std::string selectionDescription() const override;

protected:
    /// What a person calls the object.
    virtual std::string nameOf(const ObjectId& object) const = 0;
    /// Adds the objects that lie in the rectangle, in pixels of `frameSize()`.
    virtual void collect(const Rect& rect, const PickFilter& filter, Selection& found) const = 0;

    const FrameSize& frameSize() const { return m_frameSize; }
    void rememberFrameSize(const Drawing& drawing) { m_frameSize = frameSizeOf(drawing); }
    const Selection& selection() const { return m_selection; }
    void deselect(const ObjectId& object) { m_selection.erase(object); }

private:
    FrameSize m_frameSize;
    Selection m_selection;
};

} // namespace velmora::engine
