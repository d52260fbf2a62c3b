#pragma once

#include "engine/plot/SelectablePlot.h"
#include "engine/plot/xy/XYLayout.h"

#include <memory>

namespace velmora::engine {

/// The columns of a table as lines over one of them or the row numbers. The view is the range of both axes.
class XYPlot : public SelectablePlot {
public:
    /// Asks `checkpoint` to go on; throws ReadInterrupted when it says no.
    XYPlot(std::shared_ptr<const Table> table, Checkpoint& checkpoint);

    bool draw(const Drawing& drawing, Checkpoint& checkpoint) override;
    bool drawsCoarsely() const override { return true; }
    void translate(double dx, double dy) override;
    void zoom(double factor, double x, double y) override;
    void zoomTo(double x1, double y1, double x2, double y2) override;
    bool zoomAxis(double factor, double x, double y) override;
    void fit() override;
    std::string viewState() const override;
    bool setViewState(const std::string& state) override;
    bool valueAt(double x, double y, ShownValue& found) const override;
    void takeViewOf(const Content& other, Checkpoint& checkpoint) override;
    std::string description() const override;
    std::string notes() const override;
    std::string details() const override;
    bool extent(Extent& found) const override;

    const Table& table() const { return *m_content.table; }
    const std::vector<Series>& lines() const { return m_content.series; }
    /// Null: the row numbers.
    const Column* xColumn() const { return m_content.series.empty() ? nullptr : m_content.series.front().x; }
    /// Draws the lines over another column of the table or over the row numbers, and shows all of them that were
    /// chosen. The column that was the axis first is no such line. Asks `checkpoint` to go on; throws ReadInterrupted,
    /// before anything is changed, when it says no.
    void setXColumn(const Column* x, Checkpoint& checkpoint);

    std::size_t lineCount() const { return m_content.series.size(); }
    bool isLineShown(std::size_t line) const { return m_content.series[line].isShown; }
    /// Shows or hides a line. A hidden one cannot be selected and does not count when all is to be shown; its entry
    /// in the legend is pale.
    void showLine(std::size_t line, bool shown);
    void showAllLines(bool shown);
    /// Hides all other lines; when that is so already, shows all.
    void showLineAlone(std::size_t line);
    /// The line whose entry in the legend is at a place; false where there is none.
    bool legendLineAt(double x, double y, std::size_t& line) const;

    const AxisScales& scales() const { return m_content.map.scales; }
    /// Dates have no logarithm.
    bool canBeLogarithmic(const AxisScales& scales) const;
    /// An axis whose scale changes shows all that the lines have there. False, and nothing has changed, where a
    /// logarithmic axis would have nothing to show.
    bool setScales(const AxisScales& scales);
    /// How many values of the lines that are shown have no place because an axis is logarithmic.
    std::size_t leftOut() const { return m_full.leftOut; }

    const AxisRange& xRange() const { return m_content.map.x; }
    const AxisRange& yRange() const { return m_content.map.y; }

protected:
    std::string nameOf(const ObjectId& object) const override;
    void collect(const Rect& rect, const PickFilter& filter, Selection& found) const override;

private:
    void setRanges(const AxisRange& x, const AxisRange& y);
    void arrange(const Column* x, Checkpoint& checkpoint);
    void keepPossibleScales();
    void linesChanged();
    std::size_t placeOf(const Column* column) const;
    void collectLines(const XYLayout& layout, const Rect& rect, bool shownOnly, Selection& found) const;
    static void collectGeometries(const XYLayout& layout, const Rect& rect, Selection& found);

    XYContent m_content;
    SeriesRanges m_full;
    std::vector<bool> m_chosen; ///< by column, also of the one that is the axis
};

} // namespace velmora::engine
