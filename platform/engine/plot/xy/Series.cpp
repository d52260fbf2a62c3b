#include "engine/plot/xy/Series.h"

#include "engine/core/Checkpoint.h"
#include "engine/data/DataReader.h"
#include "engine/plot/Palette.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace velmora::engine {

namespace {

constexpr double RoomBeside = 0.015;
constexpr double RoomAbove = 0.05;

/// Row by row only where some of the block's values have a place on the axes and others have none.
void takeBlock(const Series& line, std::size_t first, const AxisScales& scales, Rect& covered, std::size_t& leftOut)
{
    const Rect& block = line.blocks->blockOf(first).covered;
    if (block.x1 > block.x2)
        return;
    if (scales.hasPlaceFor({block.x1, block.y1})) {
        covered.take({block.x1, block.y1});
        covered.take({block.x2, block.y2});
        return;
    }
    const std::size_t end = std::min(first + SeriesBlocks::RowsABlock, line.size());
    for (std::size_t row = first; row < end; ++row) {
        const Point value = line.at(row);
        if (!std::isfinite(value.x) || !std::isfinite(value.y))
            continue;
        if (scales.hasPlaceFor(value))
            covered.take(value);
        else
            ++leftOut;
    }
}

AxisRange axisRange(double smallest, double largest, double room, bool isLogarithmic)
{
    if (!isLogarithmic || smallest > largest)
        return rangeAround(smallest, largest, room);
    const AxisRange range = rangeAround(std::log10(smallest), std::log10(largest), room);
    return {std::max(range.from, logarithm::Least), std::min(range.to, logarithm::Most)};
}

/// Whether the values never go back, or never go forward.
bool goesOneWay(const Column& column, Checkpoint& checkpoint)
{
    constexpr std::size_t RowsAPortion = 65536;
    bool rises = true;
    bool falls = true;
    double last = std::numeric_limits<double>::quiet_NaN();
    for (std::size_t row = 0; row < column.values.size() && (rises || falls); ++row) {
        if (row % RowsAPortion == 0 && !checkpoint.goOn(1))
            throw ReadInterrupted();
        const double value = column.values[row];
        if (!std::isfinite(value))
            continue;
        rises = rises && !(value < last);
        falls = falls && !(value > last);
        last = value;
    }
    return rises || falls;
}

} // namespace

const Column* usualX(const Table& table)
{
    return table.columns.size() > 1 ? &table.columns.front() : nullptr;
}

std::vector<Series> seriesOf(const Table& table, const Column* x, Checkpoint& checkpoint)
{
    std::vector<Series> series;
    const std::vector<Column>& columns = table.columns;
    const bool isPoints = x && !goesOneWay(*x, checkpoint);
    const std::size_t free =
        x && x != &columns.front() ? static_cast<std::size_t>(x - &columns.front()) : columns.size();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (&columns[i] == x)
            continue;
        const std::size_t look = (i == 0 ? free : i) - 1;
        const auto blocks = std::make_shared<SeriesBlocks>(x, columns[i], checkpoint);
        series.push_back({x, &columns[i], lineColor(look), blocks, lineDashes(look), true, isPoints});
    }
    return series;
}

SeriesRanges rangesOf(const std::vector<Series>& series, const AxisScales& scales)
{
    constexpr double Most = std::numeric_limits<double>::infinity();
    SeriesRanges ranges;
    Rect covered{Most, Most, -Most, -Most};
    for (const Series& line : series)
        for (std::size_t row = 0; line.isShown && row < line.size(); row += SeriesBlocks::RowsABlock)
            takeBlock(line, row, scales, covered, ranges.leftOut);
    ranges.isEmpty = covered.x1 > covered.x2;
    ranges.x = axisRange(covered.x1, covered.x2, RoomBeside, scales.isLogX);
    ranges.y = axisRange(covered.y1, covered.y2, RoomAbove, scales.isLogY);
    return ranges;
}

} // namespace velmora::engine
