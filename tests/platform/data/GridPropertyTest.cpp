#include "tests/platform/data/ReadSupport.h"

#include <rapidcheck.h>

#include <array>
#include <charconv>

using namespace velmora::engine;
using namespace velmora::engine::test;

namespace {

constexpr float FloatGap = std::numeric_limits<float>::quiet_NaN();

template <class Real>
std::string written(Real value)
{
    const auto format = *rc::gen::element(std::chars_format::general, std::chars_format::scientific);
    std::array<char, 64> text = {};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, format).ptr;
    return (value > 0 && *rc::gen::inRange(0, 8) == 0 ? "+" : "") + std::string(text.data(), end);
}

std::string blanks()
{
    return *rc::gen::element<std::string>(" ", " ", " ", "\n", "\r\n", "\t", "  \n ", " \r\n\r\n\t");
}

std::string inAnyCase(std::string word)
{
    for (char& c : word)
        if (*rc::gen::inRange(0, 3) == 0 && c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return word;
}

std::vector<float> anyValues(std::size_t count, bool withGaps)
{
    std::vector<float> values;
    for (std::size_t i = 0; i < count; ++i) {
        const int bits = *rc::gen::arbitrary<int>();
        const bool isGap = withGaps && i > 0 && *rc::gen::inRange(0, 5) == 0;
        values.push_back(isGap ? FloatGap : static_cast<float>(bits) / 1024.0F);
    }
    return values;
}

Grid anyGrid()
{
    Grid grid;
    grid.columns = *rc::gen::inRange(1, 12);
    grid.rows = *rc::gen::inRange(1, 12);
    grid.xCenter = *rc::gen::inRange(-1000000, 1000000) / 8.0;
    grid.yCenter = *rc::gen::inRange(-1000000, 1000000) / 8.0;
    grid.cellSize = *rc::gen::inRange(1, 1000) / 4.0;
    grid.values = anyValues(static_cast<std::size_t>(grid.columns * grid.rows), *rc::gen::arbitrary<bool>());
    return grid;
}

/// Written in a random one of the ways that mean the same.
std::string anyTextOf(const Grid& grid, const std::string& noData)
{
    const bool isCornered = *rc::gen::arbitrary<bool>();
    const double toCorner = isCornered ? grid.cellSize / 2 : 0;
    std::vector<std::pair<std::string, std::string>> entries = {
        {"ncols", std::to_string(grid.columns)},
        {"nrows", std::to_string(grid.rows)},
        {isCornered ? "xllcorner" : "xllcenter", written(grid.xCenter - toCorner)},
        {isCornered ? "yllcorner" : "yllcenter", written(grid.yCenter - toCorner)},
        {"cellsize", written(grid.cellSize)}};
    if (noData != "-9999" || *rc::gen::arbitrary<bool>())
        entries.emplace_back("nodata_value", noData);
    for (std::size_t i = entries.size(); i > 1; --i)
        std::swap(entries[i - 1], entries[*rc::gen::inRange<std::size_t>(0, i)]);
    std::string text = *rc::gen::element<std::string>("", "\n", "\xEF\xBB\xBF");
    for (const auto& [key, value] : entries)
        text += inAnyCase(key) + *rc::gen::element<std::string>(" ", "\t", "      ") + value + blanks();
    for (const float value : grid.values)
        text += (std::isnan(value) ? noData : written(value)) + blanks();
    return text;
}

} // namespace

TEST(GridProperty, AGridWrittenInAnyWayReadsBackEqual)
{
    EXPECT_TRUE(rc::check([] {
        const Grid grid = anyGrid();
        // Marks that the values, multiples of 1/1024, never are.
        const std::string noData = *rc::gen::element<std::string>("-9999", "1e30", "-3.4028235e+38", "1e300");
        const bool isClear = noData != "-9999" || std::count(grid.values.begin(), grid.values.end(), -9999.0F) == 0;
        RC_PRE(isClear);
        const Grid read = readGrid(anyTextOf(grid, noData));
        RC_ASSERT(read.columns == grid.columns);
        RC_ASSERT(read.rows == grid.rows);
        RC_ASSERT(read.cellSize == grid.cellSize);
        RC_ASSERT(read.xCenter == grid.xCenter);
        RC_ASSERT(read.yCenter == grid.yCenter);
        RC_ASSERT(sameValues(read.values, grid.values));
        const auto isGap = [](float value) { return std::isnan(value); };
        RC_ASSERT(read.gaps == static_cast<std::size_t>(std::count_if(grid.values.begin(), grid.values.end(), isGap)));
    }));
}
