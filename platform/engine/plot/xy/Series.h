#pragma once

#include "engine/data/Table.h"
#include "engine/plot/Geometry.h"
#include "engine/plot/Ticks.h"
#include "engine/plot/xy/AxisScales.h"
#include "engine/plot/xy/SeriesBlocks.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace velmora::engine {

/// A line of a plot: a column over another one, or over the row numbers. Over a column that goes to and fro it is
/// points, because lines between them would cover all and tell nothing.
struct Series {
    const Column* x = nullptr;
    const Column* y = nullptr;
    Color color;
    std::shared_ptr<const SeriesBlocks> blocks;
    std::size_t dashes = 0; ///< pattern, see Dashes
    bool isShown = true;
    bool isPoints = false;

    std::size_t size() const { return x ? std::min(x->values.size(), y->values.size()) : y->values.size(); }
    Point at(std::size_t row) const { return {x ? x->values[row] : static_cast<double>(row) + 1, y->values[row]}; }
};

/// The column that is the horizontal axis of a table when nobody has chosen another: the first one; null, which stands
/// for the row numbers, when the table has one column only.
const Column* usualX(const Table& table);

/// The columns of a table but `x`, as lines over `x`. They point into the table. The look of a column does not depend
/// on `x`, but for the first one, which takes what is free. Asks `checkpoint` to go on; throws ReadInterrupted when it
/// says no.
std::vector<Series> seriesOf(const Table& table, const Column* x, Checkpoint& checkpoint);
inline std::vector<Series> seriesOf(const Table& table, Checkpoint& checkpoint)
{
    return seriesOf(table, usualX(table), checkpoint);
}

/// What the lines of a plot cover.
struct SeriesRanges {
    AxisRange x; ///< of a logarithmic axis: the decadic logarithms
    AxisRange y;
    bool isEmpty = false;    ///< nothing to be seen
    std::size_t leftOut = 0; ///< values that have no place on the axes because these are logarithmic
};

/// Of the lines that are shown; rows with a gap count on neither axis.
SeriesRanges rangesOf(const std::vector<Series>& series, const AxisScales& scales);

} // namespace velmora::engine
