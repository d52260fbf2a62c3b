#include "engine/data/TableReader.h"

#include "engine/data/TextSource.h"
#include "engine/data/UnitText.h"

#include <algorithm>
#include <cmath>

namespace velmora::engine {

namespace {

constexpr std::size_t RowsBeforeEstimate = 1000;
constexpr std::size_t RowsAtATime = 8192;

std::string plural(std::size_t count, const std::string& what)
{
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

} // namespace

TableReader::TableReader(TextSource& source)
    : m_source(source), m_layout(findLayout(source.ahead(), source.isAllAhead()))
{}

std::shared_ptr<Table> TableReader::read()
{
    RecordReader records(m_source, m_layout.delimiter);
    Record record;
    m_source.skipLines(m_layout.firstLine - 1);
    if (!records.next(record))
        m_source.fail("is empty", "Choose a file with a table of numbers or an ESRI ASCII grid");
    readHead(records, record);
    while (records.next(record))
        addRow(record);
    if (m_rows == 0)
        m_source.fail("has no row of values below its header", "Add the values, or choose another file");
    auto table = std::make_shared<Table>();
    noteLayout(*table);
    keepColumns(*table);
    chooseAxis(*table);
    requireSomethingToShow(*table);
    return table;
}

/// The header and the units, or the first row where there is no header.
void TableReader::readHead(RecordReader& records, Record& record)
{
    m_layout.hasHeader = m_layout.columns > 0 ? m_layout.hasHeader : isHeader(record);
    startColumns(record);
    if (!m_layout.hasHeader)
        addRow(record);
    else if (m_layout.hasUnits && records.next(record))
        takeUnits(record);
}

bool TableReader::isHeader(const Record& record) const
{
    bool hasWord = false;
    for (const std::string_view field : record.fields) {
        const CellKind kind = parseCell(field, m_layout.decimalMark).kind;
        if (isValue(kind))
            return false;
        hasWord = hasWord || kind == CellKind::Word;
    }
    return hasWord;
}

void TableReader::startColumns(const Record& first)
{
    std::size_t count = first.fields.size();
    while (m_layout.columns > 0 && count > m_layout.columns && first.fields[count - 1].empty())
        --count;
    m_firstLine = first.line;
    m_builders.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        m_lastHasName = m_layout.hasHeader && !first.fields[i].empty();
        m_builders.emplace_back(m_lastHasName ? std::string(first.fields[i]) : "Column " + std::to_string(i + 1));
    }
}

void TableReader::takeUnits(const Record& units)
{
    for (std::size_t i = 0; i < std::min(units.fields.size(), m_builders.size()); ++i)
        m_builders[i].setUnit(unitOf(units.fields[i]));
}

void TableReader::addRow(const Record& record)
{
    if (++m_rows == RowsBeforeEstimate)
        expectRows();
    if (record.fields.size() != m_builders.size()) {
        addOtherLength(record);
        return;
    }
    for (std::size_t i = 0; i < record.fields.size(); ++i)
        add(m_builders[i], record.fields[i], record.line);
}

/// Delimiters at the end of a line mean nothing. Where a run of blanks is one delimiter a missing value moves those
/// after it, so that none may be missing there.
void TableReader::addOtherLength(const Record& record)
{
    std::size_t count = record.fields.size();
    while (count > m_builders.size() && record.fields[count - 1].empty())
        --count;
    const bool isShort = count < m_builders.size();
    if (count > m_builders.size() || (isShort && m_layout.delimiter == Delimiter::Blanks)) {
        m_source.fail(record.line,
                      "there are " + plural(count, "value") + ", but line " + std::to_string(m_firstLine) + " has " +
                          std::to_string(m_builders.size()) + " (the last here is " +
                          quotedForMessage(record.fields[count - 1]) + ")",
                      "Give each line as many values, and quote a value that holds the delimiter");
    }
    if (isShort && ++m_shortRows == 1)
        m_firstShortLine = record.line;
    for (std::size_t i = 0; i < m_builders.size(); ++i)
        add(m_builders[i], i < count ? record.fields[i] : std::string_view(), record.line);
}

void TableReader::add(ColumnBuilder& column, std::string_view text, long line)
{
    Cell cell = parseCell(text, m_layout.decimalMark);
    if (cell.decimalMark != 0 && !m_layout.isMarkClear) {
        checkDecimalMark(cell, text, line);
        cell = parseCell(text, m_layout.decimalMark);
    }
    column.add(cell, text, line);
}

/// Makes room for all rows that are likely to come: to move a long column to a larger place would
/// take longer than a portion of work may.
void TableReader::expectRows()
{
    const double done = static_cast<double>(std::max<std::uint64_t>(m_source.size() - m_source.remaining(), 1));
    const double rows = static_cast<double>(m_source.size()) / done * static_cast<double>(m_rows);
    for (ColumnBuilder& builder : m_builders)
        builder.reserve(static_cast<std::size_t>(rows * 1.1));
}

/// Once a number shows clearly what the decimal mark is, one with the other mark is a word. Until then the mark in
/// "1,234" is taken for it, and the number may have been 1234.
void TableReader::checkDecimalMark(const Cell& cell, std::string_view text, long line)
{
    if (couldHaveEitherMark(text)) {
        if (m_unclearMarkLine == 0) {
            m_unclearMarkLine = line;
            m_layout.decimalMark = text.find('.') != std::string_view::npos ? '.' : ',';
        }
        return;
    }
    if (cell.decimalMark != m_layout.decimalMark && m_unclearMarkLine > 0) {
        m_source.fail(
            line, quotedForMessage(text) + " has another decimal mark than line " + std::to_string(m_unclearMarkLine),
            "Write all numbers with a decimal point, or all with a decimal comma, and without marks between "
            "thousands");
    }
    m_layout.isMarkClear = true;
    m_layout.decimalMark = cell.decimalMark;
}

void TableReader::noteLayout(Table& table) const
{
    const std::string first = std::to_string(m_layout.firstAbove);
    const std::string last = std::to_string(m_layout.firstLine - 1);
    if (m_layout.firstAbove > 0) {
        table.notes.push_back(first == last ? "Line " + first + ", above the table, is left out."
                                            : "Lines " + first + " to " + last + ", above the table, are left out.");
    }
    if (m_layout.headerHasNumbers)
        table.notes.push_back("Line " + std::to_string(m_firstLine) + " is taken for the header, with its numbers.");
    if (m_shortRows > 0) {
        const std::string where = "line " + std::to_string(m_firstShortLine);
        table.notes.push_back(
            (m_shortRows == 1 ? "In " + where + " there are"
                              : "In " + std::to_string(m_shortRows) + " lines, the first is " + where + ", there are") +
            " fewer values than columns; those that are missing show as gaps.");
    }
}

/// What delimiters at the end of all lines make: a column that nobody meant.
bool TableReader::isLastWithoutName(const ColumnBuilder& builder) const
{
    return &builder == &m_builders.back() && !m_lastHasName && m_builders.size() > 1;
}

void TableReader::keepColumns(Table& table)
{
    std::size_t empty = 0;
    for (ColumnBuilder& builder : m_builders) {
        ColumnSummary summary = builder.finish(m_source, table.notes);
        if (summary.kind == ColumnSummary::Empty) {
            ++empty;
            if (isLastWithoutName(builder))
                continue;
            table.notes.push_back("The column \"" + builder.name() + "\" holds no values and is left out.");
        }
        const bool isKept = summary.kind == ColumnSummary::Numbers || summary.kind == ColumnSummary::Dates;
        summary.whyLeftOut = isKept ? "" : summary.kind == ColumnSummary::Text ? "it holds text" : "it holds no values";
        if (isKept) {
            m_firstHasGaps = table.columns.empty() ? builder.missing() > 0 : m_firstHasGaps;
            table.columns.push_back(builder.take());
        }
        table.summaries.push_back(std::move(summary));
    }
    if (empty == m_builders.size())
        m_source.fail("holds nothing but gaps", "Choose a file with values");
    const bool hasNumbers =
        std::any_of(table.columns.begin(), table.columns.end(), [](const Column& column) { return !column.isDate; });
    if (!hasNumbers)
        m_source.fail("has no column of numbers", "Add one, or check what delimits the columns");
}

void TableReader::chooseAxis(Table& table)
{
    std::vector<Column>& columns = table.columns;
    const auto date = std::find_if(columns.begin(), columns.end(), [](const Column& column) { return column.isDate; });
    if (date != columns.end()) {
        std::rotate(columns.begin(), date, date + 1);
        return;
    }
    if (columns.size() > 1 && !m_firstHasGaps)
        return;
    table.notes.push_back("No column can be the axis; the row number is.");
    columns.insert(columns.begin(), rowNumbers());
}

/// A row shows where it has both a value on the axis and one beside it.
void TableReader::requireSomethingToShow(const Table& table)
{
    const std::vector<double>& axis = table.columns.front().values;
    for (std::size_t row = 0; row < axis.size(); ++row) {
        if (row % RowsAtATime == 0)
            m_source.goOn();
        const auto hasValue = [row](const Column& column) { return !std::isnan(column.values[row]); };
        if (hasValue(table.columns.front()) && std::any_of(table.columns.begin() + 1, table.columns.end(), hasValue))
            return;
    }
    m_source.fail("has no row with a value both in the column \"" + table.columns.front().name +
                      "\", which is the axis, and in another one",
                  "Complete the rows, or choose another file");
}

Column TableReader::rowNumbers()
{
    Column column;
    column.name = "Row";
    column.countsRows = true;
    column.values.reserve(m_rows);
    for (std::size_t row = 1; row <= m_rows; ++row) {
        if (row % RowsAtATime == 0)
            m_source.goOn();
        column.values.push_back(static_cast<double>(row));
    }
    return column;
}

} // namespace velmora::engine
