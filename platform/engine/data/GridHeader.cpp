#include "engine/data/GridHeader.h"

#include "engine/data/Cell.h"
#include "engine/data/NumberText.h"
#include "engine/data/TextCase.h"
#include "engine/data/TextSource.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace velmora::engine {

namespace {

enum Key { Columns, Rows, XCorner, XCenter, YCorner, YCenter, CellSize, NoData, KeyCount };

/// In the order of Key. What is an alternative of the one before is asked for together with it.
constexpr std::array<std::string_view, KeyCount> Keywords = {"ncols",     "nrows",     "xllcorner", "xllcenter",
                                                             "yllcorner", "yllcenter", "cellsize",  "nodata_value"};

/// 4 GiB of values.
constexpr std::uint64_t MostCells = std::uint64_t(1) << 30;

Key findKey(std::string_view word)
{
    std::size_t key = 0;
    while (key < KeyCount && !equalsIgnoringCase(word, Keywords[key]))
        ++key;
    return static_cast<Key>(key);
}

bool startsValue(std::string_view word)
{
    return word.find_first_of("0123456789+-.") == 0 || isGapMark(word);
}

class HeaderReader {
public:
    explicit HeaderReader(TextSource& source) : m_source(source) {}

    GridHeader read();

private:
    struct Entry {
        long line = 0; ///< 0: not given
        double number = 0;
    };

    void readEntries();
    void readEntry(std::string_view word);
    void readSize(Key key, std::string_view text);
    void readNumber(Key key, std::string_view text);
    double center(Key corner, Key centerKey) const;
    void require(Key key, const std::string& names) const;
    void checkExtent(const GridHeader& header) const;
    void checkRoom(const GridHeader& header) const;
    bool has(Key key) const { return m_entries[key].line > 0; }

    TextSource& m_source;
    std::array<Entry, KeyCount> m_entries = {};
    bool m_noDataIsNoNumber = false;
    float m_noDataValue = std::numeric_limits<float>::quiet_NaN();
};

GridHeader HeaderReader::read()
{
    readEntries();
    for (const Key key : {Columns, Rows, CellSize})
        require(key, std::string(Keywords[key]));
    GridHeader header;
    header.columns = static_cast<int>(m_entries[Columns].number);
    header.rows = static_cast<int>(m_entries[Rows].number);
    header.cellSize = m_entries[CellSize].number;
    header.xCenter = center(XCorner, XCenter);
    header.yCenter = center(YCorner, YCenter);
    header.saysNoData = has(NoData);
    if (has(NoData)) {
        header.noData = m_noDataIsNoNumber ? std::numeric_limits<double>::quiet_NaN() : m_entries[NoData].number;
        header.noDataValue = m_noDataValue;
    }
    checkExtent(header);
    checkRoom(header);
    return header;
}

void HeaderReader::readEntries()
{
    std::string_view word = m_source.nextWord();
    while (!word.empty() && !startsValue(word)) {
        readEntry(word);
        word = m_source.nextWord();
    }
    if (!word.empty())
        m_source.putWordBack();
}

void HeaderReader::readEntry(std::string_view word)
{
    const Key key = findKey(word);
    const long line = m_source.line();
    if (key == KeyCount) {
        m_source.fail(line, quotedForMessage(word) + " is neither a number nor a keyword of an ESRI ASCII grid",
                      "Keywords are ncols, nrows, xllcorner or xllcenter, yllcorner or yllcenter, cellsize and "
                      "NODATA_value");
    }
    const std::string name(Keywords[key]);
    if (has(key)) {
        m_source.fail(line, name + " was already given in line " + std::to_string(m_entries[key].line),
                      "Leave one of the two out");
    }
    const std::string_view text = m_source.nextWord();
    if (text.empty())
        m_source.fail(line, "the file ends before the value of " + name, "It is cut short: get a complete copy");
    m_entries[key].line = line;
    key == Columns || key == Rows ? readSize(key, text) : readNumber(key, text);
}

void HeaderReader::readSize(Key key, std::string_view text)
{
    int size = 0;
    const std::string name(Keywords[key]);
    const std::string_view digits = text.substr(text.size() > 1 && text.front() == '+' ? 1 : 0);
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), size);
    if (read.ptr != digits.data() + digits.size() || read.ec == std::errc::invalid_argument) {
        m_source.fail(m_source.line(), quotedForMessage(text) + " stands where the whole number " + name + " should be",
                      "Write how many " + std::string(key == Columns ? "columns" : "rows") + " the grid has");
    }
    if (read.ec != std::errc() || size <= 0) {
        m_source.fail(m_source.line(), name + " is " + quotedForMessage(text),
                      "It must be from 1 to " + std::to_string(std::numeric_limits<int>::max()));
    }
    m_entries[key].number = size;
}

void HeaderReader::readNumber(Key key, std::string_view text)
{
    double& number = m_entries[key].number;
    const std::string name(Keywords[key]);
    const NumberText kind = parseNumber(text, number);
    if (key == NoData && kind == NumberText::NotFinite) {
        m_noDataIsNoNumber = true;
        return;
    }
    if (kind != NumberText::Number) {
        m_source.fail(m_source.line(), quotedForMessage(text) + " stands where the number " + name + " should be",
                      "Write a finite number, with a decimal point");
    }
    if (key == NoData)
        parseNumber(text, m_noDataValue);
    if (key == CellSize && number <= 0)
        m_source.fail(m_source.line(), "cellsize is " + quotedForMessage(text), "It must be above 0");
}

void HeaderReader::require(Key key, const std::string& names) const
{
    if (!has(key))
        m_source.fail(m_source.line(), names + " is missing above the numbers", "Add it, or get a complete copy");
}

double HeaderReader::center(Key corner, Key centerKey) const
{
    if (has(corner) && has(centerKey)) {
        m_source.fail(std::max(m_entries[corner].line, m_entries[centerKey].line),
                      "there are both " + std::string(Keywords[corner]) + " and " + std::string(Keywords[centerKey]),
                      "Leave one of the two out");
    }
    if (has(centerKey))
        return m_entries[centerKey].number;
    require(corner, std::string(Keywords[corner]) + " or " + std::string(Keywords[centerKey]));
    return m_entries[corner].number + m_entries[CellSize].number / 2;
}

void HeaderReader::checkExtent(const GridHeader& header) const
{
    const double right = header.xCenter + header.cellSize * header.columns;
    const double top = header.yCenter + header.cellSize * header.rows;
    if (!std::isfinite(right) || !std::isfinite(top)) {
        m_source.fail(m_entries[CellSize].line, "the grid reaches beyond what a number can hold",
                      "Correct cellsize and the place of the lower left corner");
    }
}

/// Before anything of that size is allocated: each number takes a digit and, but for the last, a
/// separator.
void HeaderReader::checkRoom(const GridHeader& header) const
{
    const std::string sizes = "ncols " + std::to_string(header.columns) + " x nrows " + std::to_string(header.rows) +
                              " = " + std::to_string(header.cells()) + " numbers";
    if (header.cells() > (m_source.remaining() + 1) / 2) {
        m_source.fail(m_source.line(),
                      sizes + " are announced, but the rest of the file holds at most " +
                          std::to_string((m_source.remaining() + 1) / 2),
                      "The file is cut short, or ncols and nrows are wrong: get a complete copy or correct them");
    }
    if (header.cells() > MostCells)
        m_source.fail(m_source.line(), sizes + " are too many", "Read a part of the grid, or one with larger cells");
}

} // namespace

bool looksLikeGrid(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos)
        return false;
    text.remove_prefix(first);
    const std::size_t length = std::min(text.find_first_of(" \t\r\n"), text.size());
    if (findKey(text.substr(0, length)) == KeyCount)
        return false;
    // A lone keyword above a column of numbers is that column's name, unless another one follows.
    text.remove_prefix(length);
    if (text.empty() || text.front() == ' ' || text.front() == '\t')
        return true;
    const std::size_t value = std::min(text.find_first_not_of(" \t\r\n"), text.size());
    const std::size_t gap = std::min(text.find_first_of(" \t\r\n", value), text.size());
    const std::size_t second = std::min(text.find_first_not_of(" \t\r\n", gap), text.size());
    const std::size_t secondEnd = std::min(text.find_first_of(" \t\r\n", second), text.size());
    return findKey(text.substr(second, secondEnd - second)) != KeyCount;
}

GridHeader readGridHeader(TextSource& source)
{
    return HeaderReader(source).read();
}

} // namespace velmora::engine
