#include "engine/plot/surface/SurfacePainter.h"

#include "engine/plot/Palette.h"

namespace velmora::engine {

namespace {

using Clock = std::chrono::steady_clock;

// Points.
constexpr double GridWidth = 0.6;
constexpr double EdgeWidth = 0.7;
constexpr double AxisWidth = 0.9;
constexpr double ContourWidth = 0.5;
constexpr double BorderWidth = 0.7;
constexpr double SelectedWidth = 2.2;

// Of the whole work.
constexpr double BoxEnds = 0.03;
constexpr double PiecesEnd = 0.62;
constexpr double SkirtsEnd = 0.66;
constexpr double LinesEnd = 0.9;

} // namespace

SurfacePainter::SurfacePainter(const Drawing& drawing, Checkpoint& checkpoint, SurfaceContent content,
                               Selection selection)
    : m_content(std::move(content)), m_selection(std::move(selection)), m_frame(frameSizeOf(drawing)),
      m_layout(layOut(m_content.data->grid(), m_content.data->shape, m_content.view, m_frame)),
      m_canvas(drawing, checkpoint)
{}

bool SurfacePainter::paint()
{
    const Clock::time_point begun = Clock::now();
    paintBox();
    paintTerrain();
    paintAxes();
    paintColorBar();
    paintTexts();
    const bool finished = m_canvas.finish();
    if (m_canvas.drawing().detail == Detail::Coarse)
        m_content.memory->coarseBudget.took(Clock::now() - begun);
    return finished;
}

void SurfacePainter::paintBox()
{
    m_canvas.beginPhase(BoxEnds, 1);
    for (const BoxLine& line : m_layout.grid)
        m_canvas.line(line.from, line.to, points(GridWidth), palette::Grid);
    for (const BoxLine& line : m_layout.edges)
        m_canvas.line(line.from, line.to, points(EdgeWidth), palette::BoxEdge);
    m_canvas.step();
}

void SurfacePainter::paintTerrain()
{
    TerrainPainter terrain(m_canvas, *m_content.data, *m_content.memory, m_layout.camera);
    terrain.paintSurface(PiecesEnd, SkirtsEnd);
    const bool selected = isSelectedObject(ObjectKind::Zone, surfaceobject::Surface);
    terrain.paintLines({points(selected ? 2 * ContourWidth : ContourWidth),
                        selected ? palette::Selected : palette::Contour, points(selected ? SelectedWidth : BorderWidth),
                        selected ? palette::Selected : palette::SurfaceBorder},
                       LinesEnd);
}

void SurfacePainter::paintAxes()
{
    m_canvas.beginPhase(LinesEnd + 0.01, 1);
    for (const SurfaceAxis& axis : m_layout.axes) {
        const bool selected = isSelectedObject(ObjectKind::Geometry, axis.object);
        const Color color = selected ? palette::Selected : palette::Axis;
        for (const BoxLine& tick : axis.ticks)
            m_canvas.line(tick.from, tick.to, points(AxisWidth), color);
        m_canvas.line(axis.line.from, axis.line.to, points(selected ? SelectedWidth : AxisWidth), color);
    }
    m_canvas.step();
}

void SurfacePainter::paintBarVeil()
{
    Rect veiled = m_layout.bar;
    for (const TextItem& label : m_layout.barLabels)
        veiled.take({textRect(label).x2, textRect(label).y2});
    for (const PlotText& text : m_layout.texts)
        if (text.object == surfaceobject::BarTitle)
            veiled.take({textRect(text.item).x1, textRect(text.item).y2});
    m_canvas.fill(veiled.grown(points(3)), palette::Veil);
}

void SurfacePainter::paintColorBar()
{
    const Rect& bar = m_layout.bar;
    paintBarVeil();
    const std::size_t bands = m_content.data->shape.bandEdges().size() - 1;
    for (std::size_t band = 0; band < bands; ++band) {
        const double from = bar.y1 + bar.height() * static_cast<double>(band) / static_cast<double>(bands);
        const double to = bar.y1 + bar.height() * static_cast<double>(band + 1) / static_cast<double>(bands);
        m_canvas.fill({bar.x1, from, bar.x2, to},
                      heightColor(bands < 2 ? 0.5 : static_cast<double>(band) / static_cast<double>(bands - 1)));
    }
    const bool selected = isSelectedObject(ObjectKind::Geometry, surfaceobject::ColorBar);
    m_canvas.outline(bar, points(selected ? SelectedWidth : AxisWidth), selected ? palette::Selected : palette::Axis);
    for (const TextItem& label : m_layout.barLabels)
        m_canvas.line({bar.x2, label.anchor.y}, {bar.x2 + points(3), label.anchor.y}, points(AxisWidth), palette::Axis);
    m_canvas.step();
}

void SurfacePainter::paintTexts()
{
    m_canvas.beginPhase(1, m_layout.texts.size() + m_layout.barLabels.size() + 15);
    for (const SurfaceAxis& axis : m_layout.axes)
        for (const TextItem& label : axis.labels)
            m_canvas.text(label);
    for (const TextItem& label : m_layout.barLabels)
        m_canvas.text(label);
    for (const PlotText& text : m_layout.texts) {
        const bool selected = isSelectedObject(ObjectKind::Text, text.object);
        if (text.object == surfaceobject::Title && !selected)
            m_canvas.fill(textRect(text.item).grown(points(2)), palette::Veil);
        paintPlotText(m_canvas, m_frame, text.item, selected);
    }
}

} // namespace velmora::engine
