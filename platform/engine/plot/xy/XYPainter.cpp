#include "engine/plot/xy/XYPainter.h"

#include "engine/plot/Palette.h"
#include "engine/plot/xy/Dashes.h"

#include <cmath>

namespace velmora::engine {

namespace {

// Points.
constexpr double LineWidth = 1.2;
constexpr double SelectedWidth = 2;
constexpr double HaloWidth = 5;
constexpr double DotBesideLine = 1.4; ///< a dot stands out from its line
constexpr double SamplePoint = 2.6;
constexpr double MarkerRadius = 2.8;
constexpr double MarkerDistance = 14;
constexpr double GridWidth = 0.6;
constexpr double AxisWidth = 0.8;
constexpr double SelectedAxisWidth = 2;

// So many rows are read while a triangle is set up.
constexpr double RowsATriangle = 16;
constexpr std::size_t VerticesAtOnce = 4000; ///< a line of many dashes is drawn in parts

constexpr Color Halo{255, 178, 80, 150};

// Of the whole work: the grid, then the lines, then the rest.
constexpr double GridEnds = 0.05;
constexpr double LinesEnd = 0.7;

} // namespace

XYPainter::XYPainter(const Drawing& drawing, Checkpoint& checkpoint, XYContent content, Selection selection)
    : m_content(std::move(content)), m_selection(std::move(selection)), m_frame(frameSizeOf(drawing)),
      m_layout(layOut(m_content, m_frame)), m_canvas(drawing, checkpoint)
{}

bool XYPainter::paint()
{
    paintGrid();
    paintLines();
    paintAxes();
    paintLegend();
    paintTexts();
    return m_canvas.finish();
}

void XYPainter::paintGrid()
{
    const Rect& plot = m_layout.map.plot;
    m_canvas.beginPhase(GridEnds, 1);
    for (const Tick& tick : m_layout.xTicks) {
        const double x = m_layout.map({tick.value, 0}).x;
        m_canvas.line({x, plot.y1}, {x, plot.y2}, points(GridWidth), palette::Grid);
    }
    for (const Tick& tick : m_layout.yTicks) {
        const double y = m_layout.map({0, tick.value}).y;
        m_canvas.line({plot.x1, y}, {plot.x2, y}, points(GridWidth), palette::Grid);
    }
    m_canvas.step();
}

bool XYPainter::isLineSelected(std::size_t line) const
{
    return isSelected(m_selection, ObjectKind::Zone, static_cast<int>(line));
}

bool XYPainter::isDrawn(std::size_t line, bool selected) const
{
    return m_content.series[line].isShown && isLineSelected(line) == selected;
}

std::size_t XYPainter::lineSteps() const
{
    std::size_t steps = 0;
    for (std::size_t i = 0; i < m_content.series.size(); ++i)
        steps += SeriesPath::mostPortions(m_content.series[i]) * (isLineSelected(i) ? 3 : 1);
    return steps;
}

// Selected lines come last: they lie above the others.
void XYPainter::paintLines()
{
    m_canvas.beginPhase(LinesEnd, lineSteps());
    m_canvas.clip(m_layout.map.plot);
    const std::vector<Series>& series = m_content.series;
    for (std::size_t i = 0; i < series.size(); ++i)
        if (isDrawn(i, false))
            paintLine(i, points(LineWidth), series[i].color, true);
    for (std::size_t i = 0; i < series.size(); ++i)
        if (isDrawn(i, true)) {
            paintLine(i, points(HaloWidth), Halo, false);
            paintLine(i, points(SelectedWidth), series[i].color, false);
            paintMarkers(i);
        }
    m_canvas.clipToFrame();
}

void XYPainter::paintLine(std::size_t line, double width, Color color, bool withDots)
{
    SeriesPath path(m_content.series[line], m_layout.map, width, m_canvas.drawing().detail);
    SeriesPath::Portion portion;
    Dashes dashes(m_content.series[line].dashes, points(LineWidth));
    Stroke stroke(width, color);
    while (!m_canvas.stopped() && path.next(portion)) {
        stroke.clear();
        for (const auto& whole : portion.lines)
            for (const auto& dash : dashes.cut(whole)) {
                stroke.addLine(dash.data(), dash.size());
                drawWhenLong(stroke);
            }
        for (const Rect& bar : portion.bars)
            stroke.addBar(bar);
        for (const StrokePoint& dot : portion.dots)
            if (withDots || m_content.series[line].isPoints)
                stroke.addDisc(dot, width / 2 + points(DotBesideLine));
        m_canvas.stroke(stroke);
        m_canvas.charge(static_cast<double>(portion.rows) / RowsATriangle);
        m_canvas.step();
    }
}

void XYPainter::drawWhenLong(Stroke& stroke)
{
    if (stroke.vertices().size() < VerticesAtOnce)
        return;
    m_canvas.stroke(stroke);
    stroke.clear();
    m_canvas.stepWithin();
}

// Markers stand on values, with some room between them.
void XYPainter::paintMarkers(std::size_t line)
{
    const Series& series = m_content.series[line];
    Stroke markers(2, palette::Selected);
    Point last{-1e30, 0};
    for (std::size_t row = 0; row < series.size() && !m_canvas.stopped(); ++row) {
        const Point at = m_layout.map(series.at(row));
        const bool isRoomy = std::hypot(at.x - last.x, at.y - last.y) >= points(MarkerDistance);
        if (isRoomy && m_layout.map.plot.contains(at)) {
            markers.addDisc({at.x, at.y, 0}, points(MarkerRadius));
            last = at;
        }
        if ((row + 1) % 1024 == 0 || markers.vertices().size() > 1000 || row + 1 == series.size()) {
            m_canvas.stroke(markers);
            m_canvas.charge(1024 / RowsATriangle);
            markers.clear();
            m_canvas.step();
        }
    }
}

void XYPainter::paintTicks(double length, double width)
{
    const Rect& plot = m_layout.map.plot;
    for (const Tick& tick : m_layout.xTicks) {
        const double x = m_layout.map({tick.value, 0}).x;
        m_canvas.line({x, plot.y1 - length}, {x, plot.y1}, width, palette::Axis);
    }
    for (const Tick& tick : m_layout.yTicks) {
        const double y = m_layout.map({0, tick.value}).y;
        m_canvas.line({plot.x1 - length, y}, {plot.x1, y}, width, palette::Axis);
    }
}

void XYPainter::paintAxes()
{
    const Rect& plot = m_layout.map.plot;
    m_canvas.beginPhase(LinesEnd + 0.02, 1);
    paintTicks(points(plotsize::Tick), points(AxisWidth));
    m_canvas.outline(plot, points(AxisWidth), palette::Axis);
    if (isSelected(m_selection, ObjectKind::Geometry, xyobject::XAxis))
        m_canvas.line({plot.x1, plot.y1}, {plot.x2, plot.y1}, points(SelectedAxisWidth), palette::Selected);
    if (isSelected(m_selection, ObjectKind::Geometry, xyobject::YAxis))
        m_canvas.line({plot.x1, plot.y1}, {plot.x1, plot.y2}, points(SelectedAxisWidth), palette::Selected);
    m_canvas.step();
}

void XYPainter::paintLegend()
{
    if (isSelected(m_selection, ObjectKind::Geometry, xyobject::Legend))
        m_canvas.outline(m_layout.legend.grown(points(2)), points(1.2), palette::Selected);
    for (const LegendSample& sample : m_layout.samples)
        paintSample(sample);
    m_canvas.step();
}

void XYPainter::paintSample(const LegendSample& sample)
{
    const Series& line = m_content.series[sample.line];
    const Color& color = line.isShown ? line.color : palette::Hidden;
    if (line.isPoints) {
        Stroke point(points(LineWidth), color);
        point.addDisc({(sample.from.x + sample.to.x) / 2, sample.from.y, 0}, points(SamplePoint));
        m_canvas.stroke(point);
        return;
    }
    Dashes dashes(line.dashes, points(LineWidth));
    for (const Dashes::Line& dash : dashes.cut({{sample.from.x, sample.from.y, 0}, {sample.to.x, sample.to.y, 0}}))
        m_canvas.line({dash.front().x, dash.front().y}, {dash.back().x, dash.back().y},
                      points(isLineSelected(sample.line) ? 3 : 2), color);
}

void XYPainter::paintTexts()
{
    m_canvas.beginPhase(1, m_layout.texts.size() + m_layout.tickLabels.size());
    for (const TextItem& item : m_layout.tickLabels)
        m_canvas.text(item);
    for (const PlotText& text : m_layout.texts)
        paintPlotText(m_canvas, m_frame, text.item, isSelected(m_selection, ObjectKind::Text, text.object));
}

} // namespace velmora::engine
