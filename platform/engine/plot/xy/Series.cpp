#include "engine/plot/xy/Series.h"

#include "engine/core/Checkpoint.h"
#include "engine/plot/Palette.h"

#include <limits>

namespace velmora::engine {

namespace {

constexpr double RoomBeside = 0.015;
constexpr double RoomAbove = 0.05;

} // namespace

std::vector<Series> seriesOf(const Table& table, Checkpoint& checkpoint)
{
    std::vector<Series> series;
    const std::vector<Column>& columns = table.columns;
    if (columns.size() == 1)
        series.push_back({nullptr, &columns.front(), lineColor(0), nullptr});
    for (std::size_t i = 1; i < columns.size(); ++i)
        series.push_back({&columns.front(), &columns[i], lineColor(i - 1), nullptr});
    for (std::size_t i = 0; i < series.size(); ++i) {
        Series& line = series[i];
        line.blocks = std::make_shared<SeriesBlocks>(line.x, *line.y, checkpoint);
        line.dashes = lineDashes(i);
    }
    return series;
}

void findRanges(const std::vector<Series>& series, AxisRange& x, AxisRange& y)
{
    constexpr double Most = std::numeric_limits<double>::infinity();
    Rect covered{Most, Most, -Most, -Most};
    for (const Series& line : series)
        for (std::size_t row = 0; line.isShown && row < line.size(); row += SeriesBlocks::RowsABlock) {
            const Rect& block = line.blocks->blockOf(row).covered;
            if (block.x1 > block.x2)
                continue;
            covered.take({block.x1, block.y1});
            covered.take({block.x2, block.y2});
        }
    x = rangeAround(covered.x1, covered.x2, RoomBeside);
    y = rangeAround(covered.y1, covered.y2, RoomAbove);
}

} // namespace velmora::engine
