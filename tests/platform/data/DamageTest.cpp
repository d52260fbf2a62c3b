#include "tests/platform/data/ReadSupport.h"

#include <rapidcheck.h>

#include <iterator>

using namespace velmora::engine;
using namespace velmora::engine::test;

namespace {

std::string contentOf(const std::string& name)
{
    std::ifstream file(std::string(VELMORA_SAMPLE_DATA) + "/" + name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

/// A sample cut to a size at which thousands of variants are read quickly.
std::string smallTable()
{
    const std::string text = contentOf("weather_station.csv");
    return text.substr(0, text.find('\n', 4000) + 1);
}

std::string smallGrid()
{
    std::string text = "ncols 20\nnrows 20\nxllcorner 1\nyllcorner 2\ncellsize 3\nNODATA_value -9999\n";
    for (int i = 0; i < 400; ++i)
        text += (i % 13 == 0 ? "-9999" : std::to_string(i) + ".5") + std::string(i % 20 == 19 ? "\n" : " ");
    return text;
}

/// What every data set keeps to, however damaged the text was.
void expectSound(const DataSet& data)
{
    if (const auto* grid = std::get_if<std::shared_ptr<const Grid>>(&data)) {
        RC_ASSERT((*grid)->values.size() == static_cast<std::size_t>((*grid)->columns * (*grid)->rows));
        RC_ASSERT((*grid)->minimum <= (*grid)->maximum);
        RC_ASSERT((*grid)->cellSize > 0);
        return;
    }
    const Table& table = *std::get<std::shared_ptr<const Table>>(data);
    RC_ASSERT(table.columns.size() >= 2u);
    for (const Column& column : table.columns)
        RC_ASSERT(column.values.size() == table.columns[0].values.size());
}

/// Either a sound data set or an error that names the file.
void expectReadOrRefused(const std::string& text)
{
    try {
        expectSound(readText(text));
    } catch (const ReadError& error) {
        RC_ASSERT(std::string(error.what()).find("\"folder/sample.txt\"") == 0);
    }
}

std::string named(const testing::TestParamInfo<const char*>& info)
{
    return info.param;
}

class Damage : public testing::TestWithParam<const char*> {
protected:
    const std::string m_text = GetParam() == std::string("Grid") ? smallGrid() : smallTable();
};

} // namespace

TEST_P(Damage, ATextCutAnywhereIsReadOrRefused)
{
    EXPECT_NO_THROW(readText(m_text));
    EXPECT_TRUE(
        rc::check([this] { expectReadOrRefused(m_text.substr(0, *rc::gen::inRange<std::size_t>(0, m_text.size()))); }));
}

TEST_P(Damage, ATextWithChangedBytesIsReadOrRefused)
{
    EXPECT_TRUE(rc::check([this] {
        std::string text = m_text;
        for (int i = *rc::gen::inRange(1, 10); i > 0; --i)
            text[*rc::gen::inRange<std::size_t>(0, text.size())] = *rc::gen::arbitrary<char>();
        expectReadOrRefused(text);
    }));
}

TEST_P(Damage, ATextWithAPieceTakenOutOrDoubledIsReadOrRefused)
{
    EXPECT_TRUE(rc::check([this] {
        std::string text = m_text;
        const std::size_t from = *rc::gen::inRange<std::size_t>(0, text.size());
        const std::string piece = text.substr(from, *rc::gen::inRange<std::size_t>(1, 200));
        if (*rc::gen::arbitrary<bool>())
            text.erase(from, piece.size());
        else
            text.insert(from, piece);
        expectReadOrRefused(text);
    }));
}

INSTANTIATE_TEST_SUITE_P(DataFile, Damage, testing::Values("Grid", "Table"), named);
