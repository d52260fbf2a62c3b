#include "engine/plot/xy/XYLayout.h"

#include "engine/plot/DateTicks.h"
#include "engine/plot/Palette.h"
#include "engine/text/PlainText.h"

#include <cmath>

namespace velmora::engine {

namespace {

// Points.
constexpr double SampleLength = 20;
constexpr double EntryGap = 16;

constexpr std::size_t MostLegendRows = 3;

/// Lays out one plot from the outside inwards: each part takes its room from `free`.
class Builder {
public:
    Builder(const XYContent& content, const FrameSize& frame) : m_content(content), m_frame(frame)
    {
        m_layout.map = content.map;
        m_free = frame.rect().grown(-points(plotsize::Edge));
    }

    XYLayout build()
    {
        addTitle();
        addLegend();
        m_free.y1 += textSize(plotsize::AxisTitle) * 1.2 + points(plotsize::Gap) + textSize(plotsize::Label) * 1.3 +
                     points(plotsize::Tick + plotsize::Gap);
        chooseYTicks();
        m_free.x2 -= m_frame.besideLabel(plotsize::Edge);
        snap(m_free);
        m_layout.map.plot = m_free;
        chooseXTicks();
        addAxisTitles();
        addTickLabels();
        return std::move(m_layout);
    }

private:
    double points(double length) const { return m_frame.points(length); }
    double textSize(double height) const { return m_frame.textSize(height); }
    void addTitle();
    void addLegend();
    bool placeEntry(std::size_t line, Point& at, std::size_t& row);
    void chooseYTicks();
    void chooseXTicks();
    void addAxisTitles();
    void addTickLabels();
    const Column* xColumn() const { return m_content.series.empty() ? nullptr : m_content.series[0].x; }
    TextItem axisTitle(const std::string& title, Point anchor, bool upwards) const;
    double widestLabel(const std::vector<Tick>& ticks) const;
    std::vector<Tick> yTicksFor(int most) const;
    std::vector<Tick> xTicksFor(int most) const;
    static void snap(Rect& rect);

    const XYContent& m_content;
    const FrameSize& m_frame;
    Rect m_free;
    XYLayout m_layout;
};

std::string withUnit(const std::string& name, const std::string& unit)
{
    return unit.empty() ? name : name + " (" + unit + ")";
}

std::string titleOf(const Column& column)
{
    return withUnit(column.name, column.unit);
}

std::string legendNameOf(const Column& column)
{
    return withUnit(shortened(column.name, LongestName), shortened(column.unit, LongestName));
}

bool allDates(const std::vector<Series>& series)
{
    return !series.empty() &&
           std::all_of(series.begin(), series.end(), [](const Series& line) { return line.y->isDate; });
}

void Builder::snap(Rect& rect)
{
    rect.x2 = std::max(rect.x2, rect.x1 + 2);
    rect.y2 = std::max(rect.y2, rect.y1 + 2);
    rect = {std::round(rect.x1), std::round(rect.y1), std::round(rect.x2), std::round(rect.y2)};
}

void Builder::addTitle()
{
    m_layout.texts.push_back({plotTitle(m_content.table->name, m_frame, m_free.y2), xyobject::Title});
    m_free.y2 -= textSize(plotsize::Title) * 1.2 + points(plotsize::Gap) * 2;
}

bool Builder::placeEntry(std::size_t line, Point& at, std::size_t& row)
{
    const double size = textSize(plotsize::Label);
    const Series& series = m_content.series[line];
    const auto& colour = series.isShown ? palette::Ink : palette::Hidden;
    const double besideText = m_frame.besideLabel(SampleLength + plotsize::Gap);
    const std::string name = fitted(FontFace::regular(), legendNameOf(*series.y), size, m_free.width() - besideText);
    TextItem text{name, at, size, Align::Start, Align::Middle, false, false, colour};
    const double width = besideText + measureText(FontFace::regular(), text.text, size).width;
    if (at.x + width > m_free.x2 && at.x > m_free.x1) {
        at = {m_free.x1, at.y - size * 1.6};
        if (++row == MostLegendRows) {
            text = {"… " + std::to_string(m_content.series.size() - line) + " more",
                    at,
                    size,
                    Align::Start,
                    Align::Middle,
                    false,
                    false,
                    palette::Label};
            m_layout.texts.push_back({text, xyobject::LegendText + static_cast<int>(line)});
            return false;
        }
    }
    const Rect entry{at.x, at.y - size * 0.8, at.x + width, at.y + size * 0.8};
    m_layout.samples.push_back({at, {at.x + m_frame.besideLabel(SampleLength), at.y}, entry, line});
    text.anchor = {at.x + besideText, at.y};
    m_layout.texts.push_back({text, xyobject::LegendText + static_cast<int>(line)});
    at.x += width + m_frame.besideLabel(EntryGap);
    return true;
}

// One line needs no legend: its name is the title of the vertical axis.
void Builder::addLegend()
{
    if (m_content.series.size() < 2)
        return;
    const double size = textSize(plotsize::Label);
    Point at{m_free.x1, m_free.y2 - size / 2};
    std::size_t row = 0;
    const std::size_t firstText = m_layout.texts.size();
    for (std::size_t line = 0; line < m_content.series.size(); ++line)
        if (!placeEntry(line, at, row))
            break;
    m_layout.legend = {at.x, at.y, at.x, at.y};
    for (std::size_t i = firstText; i < m_layout.texts.size(); ++i) {
        const Rect text = textRect(m_layout.texts[i].item);
        m_layout.legend.take({text.x1 - m_frame.besideLabel(SampleLength + plotsize::Gap), text.y1});
        m_layout.legend.take({text.x2, text.y2});
    }
    m_free.y2 = m_layout.legend.y1 - points(plotsize::Gap) * 1.6;
}

double Builder::widestLabel(const std::vector<Tick>& ticks) const
{
    double widest = 0;
    for (const Tick& tick : ticks)
        widest = std::max(widest, measureText(FontFace::regular(), tick.label, textSize(plotsize::Label)).width);
    return widest;
}

std::vector<Tick> Builder::yTicksFor(int most) const
{
    if (m_layout.map.scales.isLogY)
        return logarithmicTicks(m_layout.map.y, most);
    return allDates(m_content.series) ? dateTicks(m_layout.map.y, most) : numberTicks(m_layout.map.y, most);
}

std::vector<Tick> Builder::xTicksFor(int most) const
{
    if (m_layout.map.scales.isLogX)
        return logarithmicTicks(m_layout.map.x, most);
    const bool isDate = xColumn() && xColumn()->isDate;
    const double leastStep = !xColumn() || xColumn()->countsRows ? 1 : 0;
    return isDate ? dateTicks(m_layout.map.x, most) : numberTicks(m_layout.map.x, most, leastStep);
}

void Builder::chooseYTicks()
{
    const int most = std::clamp(static_cast<int>(m_free.height() / (textSize(plotsize::Label) * 3.6)), 1, 12);
    m_layout.yTicks = yTicksFor(most);
    m_free.x1 += textSize(plotsize::AxisTitle) * 1.2 + points(plotsize::Gap) + widestLabel(m_layout.yTicks) +
                 points(plotsize::Tick + plotsize::Gap);
}

// As many ticks as the widths of their labels allow; how wide they are the ticks tell.
void Builder::chooseXTicks()
{
    const Rect& plot = m_layout.map.plot;
    const int upper = std::clamp(static_cast<int>(plot.width() / (textSize(plotsize::Label) * 4)), 1, 12);
    for (int most = upper; most >= 1; --most) {
        m_layout.xTicks = xTicksFor(most);
        const double needed = widestLabel(m_layout.xTicks) + textSize(plotsize::Label) * 1.5;
        if (needed * static_cast<double>(m_layout.xTicks.size()) <= plot.width() + textSize(plotsize::Label))
            return;
    }
}

/// In the middle of its axis; cut at its end where it is longer than the room to the nearer edge allows.
TextItem Builder::axisTitle(const std::string& title, Point anchor, bool upwards) const
{
    const double size = textSize(plotsize::AxisTitle);
    const double middle = upwards ? anchor.y : anchor.x;
    const double end = upwards ? m_frame.height : m_frame.width;
    const double room = 2 * (std::min(middle, end - middle) - points(plotsize::Gap));
    return {fitted(FontFace::regular(), title, size, room),
            anchor,
            size,
            Align::Middle,
            upwards ? Align::End : Align::Start,
            upwards,
            false,
            palette::Ink};
}

void Builder::addAxisTitles()
{
    const Rect& plot = m_layout.map.plot;
    const bool single = m_content.series.size() == 1;
    const std::string xTitle = xColumn() ? titleOf(*xColumn()) : "Row";
    const std::string yTitle = single ? titleOf(*m_content.series[0].y) : "Value";
    const Point below{(plot.x1 + plot.x2) / 2, points(plotsize::Edge)};
    const Point beside{points(plotsize::Edge), (plot.y1 + plot.y2) / 2};
    m_layout.texts.push_back({axisTitle(xTitle, below, false), xyobject::XTitle});
    m_layout.texts.push_back({axisTitle(yTitle, beside, true), xyobject::YTitle});
}

void Builder::addTickLabels()
{
    const Rect& plot = m_layout.map.plot;
    const double size = textSize(plotsize::Label);
    const double away = points(plotsize::Tick + plotsize::Gap / 2);
    m_layout.xAxis = {plot.x1, plot.y1 - away, plot.x2, plot.y1};
    m_layout.yAxis = {plot.x1 - away, plot.y1, plot.x1, plot.y2};
    std::vector<TextItem>& labels = m_layout.tickLabels;
    for (const Tick& tick : m_layout.xTicks) {
        const double x = m_layout.map({tick.value, 0}).x;
        labels.push_back(
            {tick.label, {x, plot.y1 - away}, size, Align::Middle, Align::End, false, false, palette::Label});
        m_layout.xAxis.y1 = std::min(m_layout.xAxis.y1, textRect(labels.back()).y1);
    }
    for (const Tick& tick : m_layout.yTicks) {
        const double y = m_layout.map({0, tick.value}).y;
        labels.push_back(
            {tick.label, {plot.x1 - away, y}, size, Align::End, Align::Middle, false, false, palette::Label});
        m_layout.yAxis.x1 = std::min(m_layout.yAxis.x1, textRect(labels.back()).x1);
    }
}

} // namespace

XYLayout layOut(const XYContent& content, const FrameSize& frame)
{
    return Builder(content, frame).build();
}

} // namespace velmora::engine
