#include "engine/plot/xy/SeriesPath.h"

#include <algorithm>
#include <cmath>

namespace velmora::engine {

namespace {

// A portion ends after so many rows read or segments made, whichever is first: both take well
// under half a millisecond, the latter with their drawing by a software OpenGL.
constexpr std::size_t RowsAPortion = 8192;
constexpr std::size_t SegmentsAPortion = 160;
// In a column of pixels: more than these are drawn as a bar where a coarse picture will do.
constexpr std::size_t MostPointsOfLines = 4;
constexpr std::size_t MostCoarsePoints = 1024;

} // namespace

SeriesPath::SeriesPath(const Series& series, const AxisMap& map, double lineWidth, Detail detail)
    : m_series(series), m_map(map), m_clip(map.plot.grown(8 + 4 * lineWidth)),
      m_placeSize(std::max(lineWidth / 2, 1.0)), m_detail(detail)
{}

std::size_t SeriesPath::mostPortions(const Series& series)
{
    return series.size() / SegmentsAPortion + 1;
}

bool SeriesPath::next(Portion& portion)
{
    portion.lines.clear();
    portion.dots.clear();
    portion.bars.clear();
    if (m_row >= m_series.size())
        return false;
    m_segments = 0;
    portion.rows = 0;
    for (; portion.rows < RowsAPortion && m_segments < SegmentsAPortion && m_row < m_series.size(); ++portion.rows)
        if (m_series.isPoints)
            takePoint(portion);
        else if (!takeBlock(portion))
            takeRow(portion);
    if (m_row == m_series.size())
        endLine(portion);
    return true;
}

bool SeriesPath::isGap(std::size_t row) const
{
    const Point value = m_series.at(row);
    return !std::isfinite(value.x) || !std::isfinite(value.y) || !m_map.scales.hasPlaceFor(value);
}

bool SeriesPath::isAlone(std::size_t row) const
{
    return (row == 0 || isGap(row - 1)) && (row + 1 == m_series.size() || isGap(row + 1));
}

void SeriesPath::takeRow(Portion& portion)
{
    const std::size_t row = m_row++;
    if (isGap(row)) {
        endLine(portion);
        return;
    }
    const Point point = m_map(m_series.at(row));
    if (!isAlone(row))
        addToColumn(point, portion);
    else if (m_clip.contains(point))
        portion.dots.push_back({point.x, point.y, 0});
}

/// Rows that have no place on the axes, or some of which have none.
bool SeriesPath::takeBlockWithGaps(const SeriesBlocks::Block& block, Portion& portion)
{
    const AxisScales& scales = m_map.scales;
    if (!scales.hasPlaceFor({block.covered.x2, block.covered.y2})) {
        endLine(portion);
        m_row += SeriesBlocks::RowsABlock;
        return true;
    }
    // A coarse picture takes what is missing for what lies below the axis: that is quick, and the full one has it.
    const double first = m_map(m_series.at(m_row)).x;
    const double last = m_map(m_series.at(m_row + SeriesBlocks::RowsABlock - 1)).x;
    if (m_detail != Detail::Coarse || !std::isfinite(first) || std::floor(first) != std::floor(last))
        return false;
    addToColumn(m_map(m_series.at(m_row + block.highest)), portion);
    addToColumn({last, m_clip.y1}, portion);
    m_row += SeriesBlocks::RowsABlock;
    return true;
}

/// A coarse picture of many points takes some of them only: any order of rows may lie between two that it takes.
void SeriesPath::takePoint(Portion& portion)
{
    const Point point = m_map(m_series.at(m_row));
    const std::size_t step = m_detail == Detail::Coarse ? m_series.size() / MostCoarsePoints + 1 : 1;
    m_row = std::min(m_row + step, m_series.size());
    if (!std::isfinite(point.x) || !std::isfinite(point.y) || !m_clip.contains(point))
        return;
    const auto across = static_cast<std::size_t>(m_clip.width() / m_placeSize) + 1;
    const auto up = static_cast<std::size_t>(m_clip.height() / m_placeSize) + 1;
    m_takenPlaces.resize(across * up);
    const auto place = static_cast<std::size_t>((point.y - m_clip.y1) / m_placeSize) * across +
                       static_cast<std::size_t>((point.x - m_clip.x1) / m_placeSize);
    if (m_takenPlaces[place])
        return;
    m_takenPlaces[place] = true;
    portion.dots.push_back({point.x, point.y, 0});
    ++m_segments;
}

/// Many rows that are all in the same column of pixels: those that show are known.
bool SeriesPath::takeBlock(Portion& portion)
{
    if (m_row % SeriesBlocks::RowsABlock != 0 || !m_series.blocks || !m_series.blocks->blockOf(m_row).isPlain)
        return false;
    const SeriesBlocks::Block& block = m_series.blocks->blockOf(m_row);
    if (!m_map.scales.hasPlaceFor({block.covered.x1, block.covered.y1}))
        return takeBlockWithGaps(block, portion);
    const Point first = m_map(m_series.at(m_row));
    const Point last = m_map(m_series.at(m_row + SeriesBlocks::RowsABlock - 1));
    if (std::floor(first.x) != std::floor(last.x))
        return false;
    addToColumn(first, portion);
    addToColumn(m_map(m_series.at(m_row + std::min(block.lowest, block.highest))), portion);
    addToColumn(m_map(m_series.at(m_row + std::max(block.lowest, block.highest))), portion);
    addToColumn(last, portion);
    m_row += SeriesBlocks::RowsABlock;
    return true;
}

void SeriesPath::addToColumn(Point point, Portion& portion)
{
    const double number = std::floor(point.x);
    if (m_column.points > 0 && number != m_column.number)
        endColumn(portion);
    PixelColumn& column = m_column;
    if (column.points == 0)
        column = {number, 0, point, point, point, point, 0, 0};
    if (point.y < column.lowest.y) {
        column.lowest = point;
        column.lowestAt = column.points;
    }
    if (point.y > column.highest.y) {
        column.highest = point;
        column.highestAt = column.points;
    }
    column.last = point;
    ++column.points;
}

void SeriesPath::endColumn(Portion& portion)
{
    const PixelColumn column = m_column;
    m_column.points = 0;
    if (column.points == 0)
        return;
    const bool lowestFirst = column.lowestAt < column.highestAt;
    lineTo(column.first, portion);
    if (m_detail == Detail::Coarse && column.points > MostPointsOfLines) {
        addBar(column, portion);
        return;
    }
    if (column.points > 2) {
        lineTo(lowestFirst ? column.lowest : column.highest, portion);
        lineTo(lowestFirst ? column.highest : column.lowest, portion);
    }
    if (column.points > 1)
        lineTo(column.last, portion);
}

/// The lines between the points of a column cover all from the lowest to the highest one.
void SeriesPath::addBar(const PixelColumn& column, Portion& portion)
{
    const Rect bar{column.number, std::max(column.lowest.y, m_clip.y1), column.number + 1,
                   std::min(column.highest.y, m_clip.y2)};
    if (bar.y1 < bar.y2 && bar.x2 > m_clip.x1 && bar.x1 < m_clip.x2)
        portion.bars.push_back(bar);
    ++m_segments;
    m_last = column.last;
}

void SeriesPath::endLine(Portion& portion)
{
    endColumn(portion);
    m_hasLast = false;
}

void SeriesPath::lineTo(Point point, Portion& portion)
{
    if (m_hasLast)
        append(m_last, point, portion);
    m_last = point;
    m_hasLast = true;
}

void SeriesPath::append(Point from, Point to, Portion& portion)
{
    const Point start = from;
    if (!clipLine(m_clip, from, to))
        return;
    auto& lines = portion.lines;
    const bool goesOn = m_segments > 0 && !lines.empty() && from.x == start.x && from.y == start.y &&
                        lines.back().back().x == from.x && lines.back().back().y == from.y;
    if (!goesOn)
        lines.push_back({{from.x, from.y, 0}});
    lines.back().push_back({to.x, to.y, 0});
    ++m_segments;
}

} // namespace velmora::engine
