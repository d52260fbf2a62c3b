#include "tests/platform/plot/SampleData.h"

#include "engine/core/Checkpoint.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace velmora::engine::test {

const double missing = std::numeric_limits<double>::quiet_NaN();

std::shared_ptr<Table> tableOf(const std::vector<std::vector<double>>& columns)
{
    auto table = std::make_shared<Table>();
    table->name = "sample.csv";
    Column x{"x", false, {}};
    for (std::size_t row = 0; row < columns.front().size(); ++row)
        x.values.push_back(static_cast<double>(row));
    table->columns.push_back(x);
    for (const std::vector<double>& values : columns)
        table->columns.push_back({"y" + std::to_string(table->columns.size()), false, values});
    return table;
}

std::shared_ptr<Grid> gridOf(int columns, int rows, const std::function<double(int, int)>& height)
{
    auto grid = std::make_shared<Grid>();
    grid->name = "sample.asc";
    grid->columns = columns;
    grid->rows = rows;
    grid->minimum = std::numeric_limits<float>::max();
    grid->maximum = std::numeric_limits<float>::lowest();
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            const auto value = static_cast<float>(height(column, row));
            grid->values.push_back(value);
            if (std::isnan(value)) {
                ++grid->gaps;
                continue;
            }
            grid->minimum = std::min(grid->minimum, value);
            grid->maximum = std::max(grid->maximum, value);
        }
    return grid;
}

Checkpoint& noCheckpoint()
{
    static NoCheckpoint checkpoint;
    return checkpoint;
}

std::shared_ptr<Grid> hill(int side)
{
    return gridOf(side, side, [side](int column, int row) {
        const double x = (column + 0.5) / side - 0.5;
        const double y = (row + 0.5) / side - 0.5;
        return 0.3 * side * std::exp(-(x * x + y * y) * 30);
    });
}

} // namespace velmora::engine::test
