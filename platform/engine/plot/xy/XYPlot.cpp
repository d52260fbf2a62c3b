#include "engine/plot/xy/XYPlot.h"

#include "engine/data/DataDetails.h"
#include "engine/data/DateText.h"
#include "engine/gl/GLStateGuard.h"
#include "engine/plot/ValueText.h"
#include "engine/plot/ViewText.h"
#include "engine/plot/xy/NearestValue.h"
#include "engine/plot/xy/XYPainter.h"
#include "engine/text/PlainText.h"

#include <cmath>

namespace velmora::engine {

namespace {

// Beyond these nothing is to be seen, and soon nothing to be computed.
constexpr double Nearest = 1e-9;
constexpr double Farthest = 1e3;
// Of the larger number: a few thousand doubles are between them, more than a picture is wide.
constexpr double ClosestTogether = 1e-12;

bool isRange(const AxisRange& range)
{
    return std::isfinite(range.from) && std::isfinite(range.to) && range.span() > 0;
}

constexpr double ReachOfValue = 12; // points
constexpr const char* ViewKind = "lines";

/// Scales the range about the value that lies at `fraction` of it.
AxisRange zoomed(const AxisRange& range, const AxisRange& full, double factor, double fraction)
{
    const double size = std::max(std::fabs(range.from), std::fabs(range.to));
    const AxisRange result{range.valueAt(fraction - fraction / factor),
                           range.valueAt(fraction + (1 - fraction) / factor)};
    const double share = full.fractionOf(result.to) - full.fractionOf(result.from);
    const bool isTooNear = share < Nearest || result.span() < size * ClosestTogether;
    if (!isRange(result) || (factor > 1 && isTooNear) || (factor < 1 && share > Farthest))
        return range;
    return result;
}

/// The part of a range that lies between two fractions of it, but no more of it than there is.
AxisRange cutOut(const AxisRange& range, const AxisRange& full, AxisRange fractions)
{
    fractions = {std::max(fractions.from, 0.0), std::min(fractions.to, 1.0)};
    const double span = fractions.span();
    if (!(span > 0))
        return range;
    return span < 1 ? zoomed(range, full, 1 / span, fractions.from / (1 - span)) : range;
}

/// Moves by a fraction of the range.
AxisRange moved(const AxisRange& range, double by)
{
    const AxisRange result{range.valueAt(by), range.valueAt(1 + by)};
    return isRange(result) ? result : range;
}

bool isSame(const AxisRange& a, const AxisRange& b)
{
    return a.from == b.from && a.to == b.to;
}

bool hasShown(const std::vector<Series>& series)
{
    return std::any_of(series.begin(), series.end(), [](const Series& line) { return line.isShown; });
}

/// The column of that name, best the one at that place; null when there is none.
const Column* columnLike(const std::vector<Column>& columns, const std::string& name, std::size_t place)
{
    if (place < columns.size() && columns[place].name == name)
        return &columns[place];
    const auto found =
        std::find_if(columns.begin(), columns.end(), [&name](const Column& column) { return column.name == name; });
    return found == columns.end() ? nullptr : &*found;
}

bool crosses(const Rect& rect, Point a, Point b)
{
    return clipLine(rect, a, b);
}

/// Whether the series touches the rectangle.
bool meets(const Series& series, const AxisMap& map, const Rect& rect)
{
    bool hasLast = false;
    Point last;
    for (std::size_t row = 0; row < series.size(); ++row) {
        const Point at = map(series.at(row));
        const bool isValue = std::isfinite(at.x) && std::isfinite(at.y);
        if (isValue && (rect.contains(at) || (hasLast && crosses(rect, last, at))))
            return true;
        hasLast = isValue && !series.isPoints;
        last = at;
    }
    return false;
}

Rect common(const Rect& a, const Rect& b)
{
    return {std::max(a.x1, b.x1), std::max(a.y1, b.y1), std::min(a.x2, b.x2), std::min(a.y2, b.y2)};
}

std::string textOf(const Column& column, double value)
{
    return column.isDate ? dateText(value) : valueText(value);
}

} // namespace

XYPlot::XYPlot(std::shared_ptr<const Table> table, Checkpoint& checkpoint)
{
    m_content.table = std::move(table);
    const std::vector<Column>& columns = m_content.table->columns;
    const Column* const x = usualX(*m_content.table);
    m_chosen.assign(columns.size(), true);
    if (x)
        m_chosen[placeOf(x)] = false;
    setXColumn(x, checkpoint);
}

bool XYPlot::draw(const Drawing& drawing, Checkpoint& checkpoint)
{
    rememberFrameSize(drawing);
    const GLStateGuard guard(*drawingMeans().gl);
    return XYPainter(drawing, checkpoint, m_content, selection()).paint();
}

// A range that the axis cannot show is not taken.
void XYPlot::setRanges(const AxisRange& x, const AxisRange& y)
{
    AxisMap& map = m_content.map;
    if (!map.scales.isLogX || (x.from >= logarithm::Least && x.to <= logarithm::Most))
        map.x = x;
    if (!map.scales.isLogY || (y.from >= logarithm::Least && y.to <= logarithm::Most))
        map.y = y;
}

void XYPlot::translate(double dx, double dy)
{
    const AxisMap& map = m_content.map;
    const Rect plot = layOut(m_content, frameSize()).map.plot;
    setRanges(moved(map.x, -dx * frameSize().width / plot.width()),
              moved(map.y, -dy * frameSize().height / plot.height()));
}

void XYPlot::zoom(double factor, double x, double y)
{
    if (!(factor > 0))
        return;
    const AxisMap& map = m_content.map;
    const Rect plot = layOut(m_content, frameSize()).map.plot;
    const double alongX = (x * frameSize().width - plot.x1) / plot.width();
    const double alongY = (y * frameSize().height - plot.y1) / plot.height();
    setRanges(zoomed(map.x, m_full.x, factor, alongX), zoomed(map.y, m_full.y, factor, alongY));
}

void XYPlot::zoomTo(double x1, double y1, double x2, double y2)
{
    const AxisMap& map = m_content.map;
    const Rect plot = layOut(m_content, frameSize()).map.plot;
    const AxisRange alongX{(x1 * frameSize().width - plot.x1) / plot.width(),
                           (x2 * frameSize().width - plot.x1) / plot.width()};
    const AxisRange alongY{(y1 * frameSize().height - plot.y1) / plot.height(),
                           (y2 * frameSize().height - plot.y1) / plot.height()};
    setRanges(cutOut(map.x, m_full.x, alongX), cutOut(map.y, m_full.y, alongY));
}

bool XYPlot::zoomAxis(double factor, double x, double y)
{
    const XYLayout layout = layOut(m_content, frameSize());
    const Rect& plot = layout.map.plot;
    const Point place{x * frameSize().width, y * frameSize().height};
    const AxisMap& map = m_content.map;
    if (layout.xAxis.contains(place))
        setRanges(zoomed(map.x, m_full.x, factor, (place.x - plot.x1) / plot.width()), map.y);
    else if (layout.yAxis.contains(place))
        setRanges(map.x, zoomed(map.y, m_full.y, factor, (place.y - plot.y1) / plot.height()));
    else
        return false;
    return true;
}

void XYPlot::fit()
{
    m_content.map.x = m_full.x;
    m_content.map.y = m_full.y;
}

std::string XYPlot::viewState() const
{
    const AxisMap& map = m_content.map;
    return viewText(ViewKind, {map.x.from, map.x.to, map.y.from, map.y.to, static_cast<double>(map.scales.isLogX),
                               static_cast<double>(map.scales.isLogY)});
}

bool XYPlot::setViewState(const std::string& state)
{
    const std::vector<double> numbers = numbersOfView(state, ViewKind);
    if (numbers.size() != 6)
        return false;
    const AxisRange x{numbers[0], numbers[1]};
    const AxisRange y{numbers[2], numbers[3]};
    if (!isRange(x) || !isRange(y) || !setScales({numbers[4] != 0, numbers[5] != 0}))
        return false;
    setRanges(x, y);
    return true;
}

void XYPlot::showLine(std::size_t line, bool shown)
{
    m_content.series[line].isShown = shown;
    linesChanged();
}

void XYPlot::showAllLines(bool shown)
{
    for (Series& line : m_content.series)
        line.isShown = shown;
    if (!shown)
        m_chosen.assign(m_chosen.size(), false);
    linesChanged();
}

void XYPlot::showLineAlone(std::size_t line)
{
    std::vector<Series>& series = m_content.series;
    const auto isAsWanted = [&](const Series& other) { return other.isShown == (&other == &series[line]); };
    const bool isAlone = std::all_of(series.begin(), series.end(), isAsWanted);
    for (Series& other : series)
        other.isShown = isAlone || &other == &series[line];
    linesChanged();
}

// With nothing to show the ranges stay what they were.
void XYPlot::linesChanged()
{
    const std::vector<Series>& series = m_content.series;
    if (hasShown(series))
        m_full = rangesOf(series, scales());
    for (const Series& line : series)
        m_chosen[placeOf(line.y)] = line.isShown;
    for (std::size_t i = 0; i < series.size(); ++i)
        if (!series[i].isShown)
            deselect({ObjectKind::Zone, static_cast<int>(i)});
}

bool XYPlot::canBeLogarithmic(const AxisScales& scales) const
{
    const std::vector<Series>& series = m_content.series;
    const auto isDate = [&scales](const Series& line) {
        return (scales.isLogX && line.x && line.x->isDate) || (scales.isLogY && line.y->isDate);
    };
    return std::none_of(series.begin(), series.end(), isDate);
}

bool XYPlot::setScales(const AxisScales& scales)
{
    AxisMap& map = m_content.map;
    const SeriesRanges ranges = rangesOf(m_content.series, scales);
    const bool isNew = (scales.isLogX && !map.scales.isLogX) || (scales.isLogY && !map.scales.isLogY);
    if (isNew && (!canBeLogarithmic(scales) || ranges.isEmpty))
        return false;
    m_full = ranges;
    if (scales.isLogX != map.scales.isLogX)
        map.x = ranges.x;
    if (scales.isLogY != map.scales.isLogY)
        map.y = ranges.y;
    map.scales = scales;
    return true;
}

std::size_t XYPlot::placeOf(const Column* column) const
{
    return static_cast<std::size_t>(column - m_content.table->columns.data());
}

void XYPlot::setXColumn(const Column* x, Checkpoint& checkpoint)
{
    arrange(x, checkpoint);
    const bool isOnlyXChosen = !hasShown(m_content.series) && std::count(m_chosen.begin(), m_chosen.end(), true) > 0;
    if (isOnlyXChosen)
        showAllLines(true);
    XYPlot::fit();
}

void XYPlot::arrange(const Column* x, Checkpoint& checkpoint)
{
    std::vector<Series> series = seriesOf(*m_content.table, x, checkpoint);
    for (Series& line : series)
        line.isShown = m_chosen[placeOf(line.y)];
    m_content.series = std::move(series);
    SelectablePlot::deselectAll();
    linesChanged();
    keepPossibleScales();
}

/// Another axis, or another file, may have no logarithm.
void XYPlot::keepPossibleScales()
{
    AxisScales& scales = m_content.map.scales;
    if (!(scales.isLogX || scales.isLogY) || (!m_full.isEmpty && canBeLogarithmic(scales)))
        return;
    scales = {};
    m_full = rangesOf(m_content.series, scales);
}

void XYPlot::takeViewOf(const Content& other, Checkpoint& checkpoint)
{
    const auto* const before = dynamic_cast<const XYPlot*>(&other);
    if (!before)
        return;
    const std::vector<Column>& old = before->table().columns;
    for (std::size_t i = 0; i < m_chosen.size(); ++i)
        if (const Column* const same = columnLike(old, table().columns[i].name, i))
            m_chosen[i] = before->m_chosen[before->placeOf(same)];
    const Column* const oldX = before->xColumn();
    const Column* const x = oldX ? columnLike(table().columns, oldX->name, before->placeOf(oldX)) : nullptr;
    const bool hasX = x || !oldX;
    m_content.map.scales = before->scales();
    arrange(hasX ? x : usualX(table()), checkpoint);
    fit();
    const bool hasScales = scales().isLogX == before->scales().isLogX && scales().isLogY == before->scales().isLogY;
    if (!hasScales)
        return;
    if (hasX && !isSame(before->xRange(), before->m_full.x))
        m_content.map.x = before->xRange();
    if (!isSame(before->yRange(), before->m_full.y))
        m_content.map.y = before->yRange();
}

bool XYPlot::legendLineAt(double x, double y, std::size_t& line) const
{
    const Point place{x * frameSize().width, y * frameSize().height};
    for (const LegendSample& sample : layOut(m_content, frameSize()).samples)
        if (sample.entry.contains(place)) {
            line = sample.line;
            return true;
        }
    return false;
}

std::string XYPlot::description() const
{
    const std::size_t lines = m_content.series.size();
    const std::size_t rows = lines ? m_content.series.front().size() : 0;
    return std::to_string(lines) + (lines == 1 ? " line, " : " lines, ") + std::to_string(rows) +
           (rows == 1 ? " row" : " rows");
}

std::string XYPlot::notes() const
{
    return notesOf(table().notes);
}

std::string XYPlot::details() const
{
    return detailsOf(table());
}

bool XYPlot::extent(Extent& found) const
{
    found = {{m_full.x.from, m_full.y.from, 0}, {m_full.x.to, m_full.y.to, 0}};
    return !m_full.isEmpty;
}

std::string XYPlot::nameOf(const ObjectId& object) const
{
    const auto [kind, number] = object;
    const auto lineName = [this](int line) {
        return shortened(m_content.series[static_cast<std::size_t>(line)].y->name, LongestName);
    };
    if (kind == ObjectKind::Zone)
        return "line " + lineName(number);
    if (kind == ObjectKind::Geometry)
        return number == xyobject::XAxis ? "horizontal axis" : number == xyobject::YAxis ? "vertical axis" : "legend";
    if (number >= xyobject::LegendText)
        return "legend entry " + lineName(number - xyobject::LegendText);
    return number == xyobject::Title    ? "title"
           : number == xyobject::XTitle ? "title of the horizontal axis"
                                        : "title of the vertical axis";
}

bool XYPlot::valueAt(double x, double y, ShownValue& found) const
{
    const AxisMap map = layOut(m_content, frameSize()).map;
    const Point place{x * frameSize().width, y * frameSize().height};
    NearestValue nearest;
    if (!map.plot.contains(place) ||
        !findNearestValue(m_content.series, map, place, frameSize().points(ReachOfValue), nearest))
        return false;
    const Series& line = m_content.series[nearest.line];
    const Point value = line.at(nearest.row);
    const std::string xName = line.x ? shortened(line.x->name, LongestName) : "row";
    const std::string xText = line.x ? textOf(*line.x, value.x) : valueText(value.x);
    found = {nearest.at.x / frameSize().width, nearest.at.y / frameSize().height,
             shortened(line.y->name, LongestName) + " = " + textOf(*line.y, value.y) + ", " + xName + " = " + xText};
    return true;
}

void XYPlot::collect(const Rect& rect, const PickFilter& filter, Selection& found) const
{
    const XYLayout layout = layOut(m_content, frameSize());
    if (filter.zones)
        collectLines(layout, rect, filter.considerStyle, found);
    if (filter.geometries)
        collectGeometries(layout, rect, found);
    if (filter.text)
        collectTexts(layout.texts, rect, found);
}

// What is beyond the axes' ranges is cut off and does not show.
void XYPlot::collectLines(const XYLayout& layout, const Rect& rect, bool shownOnly, Selection& found) const
{
    const Rect where = shownOnly ? common(rect, layout.map.plot) : rect;
    if (where.x1 > where.x2 || where.y1 > where.y2)
        return;
    for (std::size_t i = 0; i < m_content.series.size(); ++i)
        if (m_content.series[i].isShown && meets(m_content.series[i], layout.map, where))
            found.insert({ObjectKind::Zone, static_cast<int>(i)});
}

void XYPlot::collectGeometries(const XYLayout& layout, const Rect& rect, Selection& found)
{
    if (rect.meets(layout.xAxis))
        found.insert({ObjectKind::Geometry, xyobject::XAxis});
    if (rect.meets(layout.yAxis))
        found.insert({ObjectKind::Geometry, xyobject::YAxis});
    if (!layout.samples.empty() && rect.meets(layout.legend))
        found.insert({ObjectKind::Geometry, xyobject::Legend});
}

} // namespace velmora::engine
