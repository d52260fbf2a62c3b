// What docs/data-files.md says that is read, is read so.

#include "engine/data/DataDetails.h"
#include "engine/data/DateText.h"
#include "tests/platform/data/ReadSupport.h"
#include "tests/support/DataExamples.h"

#include <gmock/gmock.h>

#include <sstream>

using namespace velmora::engine;
using namespace velmora::engine::test;
using velmora::test::DataExample;

namespace {

std::string valueText(double value, bool isDate)
{
    if (std::isnan(value))
        return "~";
    if (isDate) {
        std::string text = dateText(value);
        std::replace(text.begin(), text.end(), ' ', 'T');
        return text;
    }
    std::ostringstream text;
    text.precision(12);
    text << value;
    return text.str();
}

std::string describe(const Table& table)
{
    std::string text;
    for (const Column& column : table.columns) {
        text += (text.empty() ? "" : "; ") + column.name + (column.unit.empty() ? "" : " [" + column.unit + "]") + ":";
        for (const double value : column.values)
            text += " " + valueText(value, column.isDate);
    }
    return text;
}

std::string describe(const Grid& grid)
{
    std::string text = std::to_string(grid.columns) + " x " + std::to_string(grid.rows) + " at " +
                       valueText(grid.xCenter, false) + ", " + valueText(grid.yCenter, false) + " by " +
                       valueText(grid.cellSize, false) + ":";
    for (const float value : grid.values)
        text += " " + valueText(value, false);
    return text;
}

const std::vector<DataExample>& examples()
{
    static const std::vector<DataExample> all = velmora::test::dataExamples(VELMORA_DATA_EXAMPLES);
    return all;
}

class DataExamples : public testing::TestWithParam<std::size_t> {};

} // namespace

TEST_P(DataExamples, AreReadAsTheDocumentSays)
{
    const DataExample& example = examples()[GetParam()];
    SCOPED_TRACE(example.what);
    if (example.read == "refused") {
        EXPECT_THAT(errorOf(example.text), testing::HasSubstr(example.note));
        EXPECT_NE(example.note, "");
        return;
    }
    const DataSet data = readText(example.text);
    EXPECT_EQ(std::visit([](const auto& set) { return describe(*set); }, data), example.read);
    const std::string notes = std::visit([](const auto& set) { return notesOf(set->notes); }, data);
    if (example.note.empty())
        EXPECT_EQ(notes, "");
    else
        EXPECT_THAT(notes, testing::HasSubstr(example.note));
}

INSTANTIATE_TEST_SUITE_P(Document, DataExamples, testing::Range<std::size_t>(0, examples().size()));

TEST(DataExamples, AreFound)
{
    EXPECT_GT(examples().size(), 60u);
}
