#pragma once

#include "engine/data/Grid.h"
#include "engine/data/Table.h"
#include "engine/plot/surface/SurfacePlot.h"

#include <functional>
#include <memory>
#include <vector>

namespace velmora::engine::test {

/// A gap.
extern const double missing;

/// A table with an "x" column 0, 1, 2, … and the columns "y1", "y2", ….
std::shared_ptr<Table> tableOf(const std::vector<std::vector<double>>& columns);

/// A grid with the heights of a function of column and row.
std::shared_ptr<Grid> gridOf(int columns, int rows, const std::function<double(int, int)>& height);

/// For what is not to be disturbed.
Checkpoint& noCheckpoint();

/// The surface of a grid as it is plotted.
struct GridPlot : SurfacePlot {
    explicit GridPlot(std::shared_ptr<const Grid> grid) : SurfacePlot(std::move(grid), noCheckpoint()) {}
};

/// A smooth hill in the middle of a plain, 0 to 30 high, cells of 1.
std::shared_ptr<Grid> hill(int side);

} // namespace velmora::engine::test
