#include "tests/platform/data/ReadSupport.h"

#include <gmock/gmock.h>

using namespace velmora::engine;
using namespace velmora::engine::test;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

DataSet readSample(const std::string& name)
{
    CountingCheckpoint checkpoint;
    return readDataFile(std::string(VELMORA_SAMPLE_DATA) + "/" + name, checkpoint);
}

} // namespace

TEST(SampleData, TheIslandIsAGridWithSeaAroundIt)
{
    const auto grid = std::get<std::shared_ptr<const Grid>>(readSample("volcanic_island.asc"));
    EXPECT_EQ(grid->columns, 200);
    EXPECT_EQ(grid->rows, 160);
    EXPECT_GT(grid->gaps, grid->values.size() / 4);
    EXPECT_LT(grid->gaps, grid->values.size() * 3 / 4);
    EXPECT_GE(grid->minimum, 0);
    EXPECT_GT(grid->maximum, 1000);
    for (int column = 0; column < grid->columns; ++column)
        EXPECT_TRUE(std::isnan(grid->at(column, 0)) && std::isnan(grid->at(column, grid->rows - 1)));
}

TEST(SampleData, TheStationHasDatesThreeColumnsWithGapsAndAText)
{
    const auto table = std::get<std::shared_ptr<const Table>>(readSample("weather_station.csv"));
    ASSERT_EQ(table->columns.size(), 4u);
    EXPECT_TRUE(table->columns[0].isDate);
    EXPECT_EQ(table->columns[0].values.size(), 730u);
    for (std::size_t i = 1; i < 4; ++i) {
        const std::vector<double>& values = table->columns[i].values;
        EXPECT_GT(std::count_if(values.begin(), values.end(), [](double value) { return std::isnan(value); }), 0);
    }
    EXPECT_THAT(table->notes, ElementsAre(HasSubstr("\"weather\" holds text")));
}
