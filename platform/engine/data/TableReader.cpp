#include "engine/data/TableReader.h"

#include "engine/data/DelimiterGuess.h"
#include "engine/data/TextSource.h"

#include <algorithm>

namespace velmora::engine {

namespace {

constexpr std::size_t rowsBeforeEstimate = 1000;
constexpr std::size_t rowsAtATime = 8192;

std::string plural(std::size_t count, const std::string& what)
{
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

} // namespace

TableReader::TableReader(TextSource& source)
    : m_source(source), m_delimiter(guessDelimiter(source.ahead(), source.isAllAhead())),
      m_allowDecimalComma(m_delimiter == Delimiter::Semicolon || m_delimiter == Delimiter::Tab)
{}

std::shared_ptr<Table> TableReader::read()
{
    RecordReader records(m_source, m_delimiter);
    Record record;
    if (!records.next(record)) {
        m_source.fail("is empty", "Choose a file with a table of numbers or an ESRI ASCII grid");
    }
    const bool headed = isHeader(record);
    startColumns(record, headed);
    if (!headed) {
        addRow(record);
    }
    while (records.next(record)) {
        addRow(record);
    }
    if (m_rows == 0) {
        m_source.fail("has no row of values below its header", "Add the values, or choose another file");
    }
    auto table = std::make_shared<Table>();
    keepColumns(*table);
    chooseAxis(*table);
    return table;
}

bool TableReader::isHeader(const Record& record) const
{
    bool hasWord = false;
    for (std::size_t i = 0; i < record.fields.size(); ++i) {
        const CellKind kind = parseCell(record.fields[i], m_allowDecimalComma).kind;
        if (kind == CellKind::Number || kind == CellKind::Date) {
            return false;
        }
        hasWord = hasWord || kind == CellKind::Word;
    }
    return hasWord;
}

void TableReader::startColumns(const Record& first, bool isHeader)
{
    m_firstLine = first.line;
    m_builders.reserve(first.fields.size());
    for (std::size_t i = 0; i < first.fields.size(); ++i) {
        const bool isNamed = isHeader && !first.fields[i].empty();
        m_builders.emplace_back(isNamed ? std::string(first.fields[i]) : "Column " + std::to_string(i + 1));
    }
}

void TableReader::addRow(const Record& record)
{
    if (record.fields.size() != m_builders.size()) {
        m_source.fail(record.line,
                      "there are " + plural(record.fields.size(), "value") + ", but line " +
                          std::to_string(m_firstLine) + " has " + std::to_string(m_builders.size()) +
                          " (the last here is " + quotedForMessage(record.fields.back()) + ")",
                      "Give each line as many values, and quote a value that holds the delimiter");
    }
    if (++m_rows == rowsBeforeEstimate) {
        expectRows();
    }
    for (std::size_t i = 0; i < record.fields.size(); ++i) {
        const Cell cell = parseCell(record.fields[i], m_allowDecimalComma);
        checkDecimalMark(cell, record.fields[i], record.line);
        m_builders[i].add(cell, record.fields[i], record.line);
    }
}

/// Makes room for all rows that are likely to come: to move a long column to a larger place would
/// take longer than a portion of work may.
void TableReader::expectRows()
{
    const double done = static_cast<double>(std::max<std::uint64_t>(m_source.size() - m_source.remaining(), 1));
    const double rows = static_cast<double>(m_source.size()) / done * static_cast<double>(m_rows);
    for (ColumnBuilder& builder : m_builders) {
        builder.reserve(static_cast<std::size_t>(rows * 1.1));
    }
}

/// Where both marks occur, one of them separates thousands: "1,234" would be read as 1.234.
void TableReader::checkDecimalMark(const Cell& cell, std::string_view text, long line)
{
    if (cell.decimalMark == 0 || cell.decimalMark == m_decimalMark) {
        return;
    }
    if (m_decimalMark != 0) {
        m_source.fail(
            line, quotedForMessage(text) + " has another decimal mark than line " + std::to_string(m_decimalMarkLine),
            "Write all numbers with a decimal point, or all with a decimal comma, and without marks between "
            "thousands");
    }
    m_decimalMark = cell.decimalMark;
    m_decimalMarkLine = line;
}

void TableReader::keepColumns(Table& table)
{
    std::size_t empty = 0;
    for (ColumnBuilder& builder : m_builders) {
        const CellKind kind = builder.kind(m_source);
        if (kind == CellKind::Word) {
            table.notes.push_back("The column \"" + builder.name() + "\" holds text and is left out.");
        } else if (kind == CellKind::Missing) {
            table.notes.push_back("The column \"" + builder.name() + "\" holds no values and is left out.");
            ++empty;
        } else {
            m_firstHasGaps = table.columns.empty() ? builder.gaps() > 0 : m_firstHasGaps;
            table.columns.push_back(builder.take(kind));
        }
    }
    if (empty == m_builders.size()) {
        m_source.fail("holds nothing but gaps", "Choose a file with values");
    }
    const bool hasNumbers =
        std::any_of(table.columns.begin(), table.columns.end(), [](const Column& column) { return !column.isDate; });
    if (!hasNumbers) {
        m_source.fail("has no column of numbers", "Add one, or check what delimits the columns");
    }
}

void TableReader::chooseAxis(Table& table)
{
    std::vector<Column>& columns = table.columns;
    const auto date = std::find_if(columns.begin(), columns.end(), [](const Column& column) { return column.isDate; });
    if (date != columns.end()) {
        std::rotate(columns.begin(), date, date + 1);
        return;
    }
    if (columns.size() > 1 && !m_firstHasGaps) {
        return;
    }
    table.notes.push_back("No column can be the axis; the row number is.");
    columns.insert(columns.begin(), rowNumbers());
}

Column TableReader::rowNumbers()
{
    Column column;
    column.name = "Row";
    column.values.reserve(m_rows);
    for (std::size_t row = 1; row <= m_rows; ++row) {
        if (row % rowsAtATime == 0) {
            m_source.goOn();
        }
        column.values.push_back(static_cast<double>(row));
    }
    return column;
}

} // namespace velmora::engine
