#include "engine/data/ColumnBuilder.h"

#include "engine/data/TextSource.h"

#include <limits>

namespace velmora::engine {

namespace {

constexpr std::size_t keptText = 64;

bool hasValue(CellKind kind)
{
    return kind == CellKind::Number || kind == CellKind::Date;
}

} // namespace

void ColumnBuilder::add(const Cell& cell, std::string_view text, long line)
{
    m_values.push_back(hasValue(cell.kind) ? cell.value : std::numeric_limits<double>::quiet_NaN());
    Tally& tally = m_tallies[index(cell.kind)];
    if (++tally.count == 1) {
        tally.line = line;
        tally.text = text.substr(0, keptText);
    }
}

CellKind ColumnBuilder::kind(const TextSource& source) const
{
    const std::size_t words = tally(CellKind::Word).count;
    const std::size_t numbers = tally(CellKind::Number).count;
    const std::size_t dates = tally(CellKind::Date).count;
    if (words + numbers + dates == 0) {
        return CellKind::Missing;
    }
    if (words > numbers + dates) {
        return CellKind::Word;
    }
    const CellKind kind = dates > numbers ? CellKind::Date : CellKind::Number;
    refuse(CellKind::Word, kind, source);
    refuse(kind == CellKind::Date ? CellKind::Number : CellKind::Date, kind, source);
    return kind;
}

void ColumnBuilder::refuse(CellKind odd, CellKind kind, const TextSource& source) const
{
    const Tally& found = tally(odd);
    if (found.count == 0) {
        return;
    }
    const bool isDate = kind == CellKind::Date;
    source.fail(found.line,
                quotedForMessage(found.text) + " stands in the column " + quotedForMessage(m_name) +
                    (isDate ? " of dates" : " of numbers"),
                std::string(isDate ? "Write a date as YYYY-MM-DD" : "Write a number") +
                    ", or leave it empty for a gap; if the line is the header, name every column in words");
}

Column ColumnBuilder::take(CellKind kind)
{
    Column column;
    column.name = m_name;
    column.isDate = kind == CellKind::Date;
    column.values = std::move(m_values);
    return column;
}

} // namespace velmora::engine
