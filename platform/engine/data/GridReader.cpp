#include "engine/data/GridReader.h"

#include "engine/data/Cell.h"
#include "engine/data/NumberText.h"
#include "engine/data/TextSource.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace velmora::engine {

namespace {

constexpr float Gap = std::numeric_limits<float>::quiet_NaN();

} // namespace

std::shared_ptr<Grid> GridReader::read()
{
    auto grid = std::make_shared<Grid>();
    start(*grid);
    readValues(*grid);
    expectEnd(*grid);
    describe(*grid);
    return grid;
}

void GridReader::start(Grid& grid)
{
    m_header = readGridHeader(m_source);
    grid.columns = m_header.columns;
    grid.rows = m_header.rows;
    grid.xCenter = m_header.xCenter;
    grid.yCenter = m_header.yCenter;
    grid.cellSize = m_header.cellSize;
    grid.minimum = std::numeric_limits<float>::max();
    grid.maximum = std::numeric_limits<float>::lowest();
    grid.values.reserve(m_header.cells());
}

void GridReader::readValues(Grid& grid)
{
    const std::size_t cells = m_header.cells();
    while (grid.values.size() < cells) {
        const std::string_view word = m_source.nextWord();
        if (word.empty())
            failCount(grid, grid.values.size());
        add(grid, valueOf(word));
    }
}

void GridReader::add(Grid& grid, float value)
{
    grid.values.push_back(value);
    if (std::isnan(value)) {
        ++grid.gaps;
        return;
    }
    grid.minimum = std::min(grid.minimum, value);
    grid.maximum = std::max(grid.maximum, value);
}

float GridReader::valueOf(std::string_view word)
{
    float value = 0;
    if (parseNumber(word, value) != NumberText::Number)
        return valueOfUncommon(word);
    if (value != m_header.noDataValue)
        return value;
    m_hasNoData = true;
    return Gap;
}

/// What is no number, or none for a float. Some writers mark gaps with the lowest double.
float GridReader::valueOfUncommon(std::string_view word)
{
    double value = 0;
    const NumberText kind = parseNumber(word, value);
    const bool isNoData = kind == NumberText::Number && value == m_header.noData;
    m_hasNoData = m_hasNoData || isNoData;
    if (!isNoData && !isGapMark(word)) {
        OddWords& odd = kind == NumberText::Word ? m_words : m_tooLarge;
        if (++odd.count == 1) {
            odd.line = m_source.line();
            odd.text = quotedForMessage(word);
        }
    }
    return Gap;
}

void GridReader::expectEnd(const Grid& grid)
{
    std::uint64_t found = grid.values.size();
    const std::size_t wordsBefore = m_words.count;
    for (std::string_view word = m_source.nextWord(); !word.empty(); word = m_source.nextWord()) {
        valueOf(word);
        ++found;
        if (m_words.count > wordsBefore)
            failAtWord(m_source.line(), quotedForMessage(word));
    }
    if (found > grid.values.size())
        failCount(grid, found);
}

void GridReader::failAtWord(long line, const std::string& word) const
{
    m_source.fail(line, word + " stands where a number should be",
                  "Write a number with a decimal point, or the NODATA_value for a gap");
}

void GridReader::failCount(const Grid& grid, std::uint64_t found) const
{
    const bool isShort = found < m_header.cells();
    m_source.fail(m_source.line(),
                  "the file ends after " + std::to_string(found) + " numbers, but ncols " +
                      std::to_string(grid.columns) + " x nrows " + std::to_string(grid.rows) + " = " +
                      std::to_string(m_header.cells()) + " are announced",
                  isShort ? "It is cut short, or ncols and nrows are wrong: get a complete copy or correct them"
                          : "There are too many: correct ncols and nrows, or take the surplus numbers out");
}

void GridReader::describe(Grid& grid) const
{
    if (m_words.count > grid.values.size() - grid.gaps)
        failAtWord(m_words.line, m_words.text);
    if (grid.gaps == grid.values.size())
        m_source.fail("holds nothing but gaps", "Choose a grid with values, or correct NODATA_value");
    if (m_hasNoData && !m_header.saysNoData)
        grid.notes.push_back("The grid names no NODATA_value; -9999 is taken as a gap.");
    addNote(m_words, "no number", grid);
    addNote(m_tooLarge, "too large for a value of the grid", grid);
}

void GridReader::addNote(const OddWords& odd, const std::string& what, Grid& grid)
{
    const std::string place = odd.text + " in line " + std::to_string(odd.line);
    if (odd.count == 1) {
        grid.notes.push_back(place + " is " + what + " and shows as a gap.");
    } else if (odd.count > 1) {
        grid.notes.push_back(std::to_string(odd.count) + " values, the first " + place + ", are " + what +
                             " and show as gaps.");
    }
}

} // namespace velmora::engine
