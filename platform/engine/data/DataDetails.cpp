#include "engine/data/DataDetails.h"

#include "engine/data/DateText.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace velmora::engine {

namespace {

template <class Real>
std::string numberText(Real value)
{
    std::array<char, 32> text = {};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return std::string(text.data(), end);
}

std::string lineOf(const ColumnSummary& column)
{
    constexpr std::array<const char*, 4> Kinds = {"numbers", "dates", "text", "empty"};
    const auto valueText = [&](double value) {
        return column.values == 0 ? "" : column.kind == ColumnSummary::Dates ? dateText(value) : numberText(value);
    };
    return fieldOf(column.name) + "\t" + fieldOf(column.unit) + "\t" + Kinds[column.kind] + "\t" +
           std::to_string(column.values) + "\t" + std::to_string(column.gaps) + "\t" + valueText(column.smallest) +
           "\t" + valueText(column.largest) + "\t" + column.whyLeftOut;
}

/// From the outer edge of the first cell to that of the last.
std::string extentText(double center, double cellSize, int cells)
{
    const double from = center - cellSize / 2;
    return numberText(from) + " to " + numberText(from + cellSize * cells);
}

} // namespace

std::string detailsOf(const Table& table)
{
    std::string text = "Column\tUnit\tKind\tValues\tGaps\tSmallest\tLargest\tLeft out because";
    for (const ColumnSummary& column : table.summaries)
        text += "\n" + lineOf(column);
    return text;
}

std::string detailsOf(const Grid& grid)
{
    return "Rows\t" + std::to_string(grid.rows) + "\nColumns\t" + std::to_string(grid.columns) + "\nExtent in x\t" +
           extentText(grid.xCenter, grid.cellSize, grid.columns) + "\nExtent in y\t" +
           extentText(grid.yCenter, grid.cellSize, grid.rows) + "\nSpacing\t" + numberText(grid.cellSize) +
           "\nSmallest\t" + numberText(grid.minimum) + "\nLargest\t" + numberText(grid.maximum) + "\nGaps\t" +
           std::to_string(grid.gaps);
}

std::string fieldOf(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
    return text;
}

std::string notesOf(const std::vector<std::string>& notes)
{
    std::string text;
    for (const std::string& note : notes)
        text += (text.empty() ? "" : "\n") + fieldOf(note);
    return text;
}

} // namespace velmora::engine
