#include "engine/data/ColumnBuilder.h"

#include "engine/data/DateText.h"
#include "engine/data/TextCase.h"
#include "engine/data/TextSource.h"

#include <algorithm>
#include <cmath>

namespace velmora::engine {

namespace {

constexpr std::size_t KeptText = 64;
constexpr std::size_t RowsAtATime = 8192;
constexpr double Gap = std::numeric_limits<double>::quiet_NaN();

/// The header says that the column holds dates.
bool saysDate(std::string_view name)
{
    std::string lower(name);
    std::transform(lower.begin(), lower.end(), lower.begin(), toLowerAscii);
    return lower.find("date") != std::string::npos || lower.find("datum") != std::string::npos;
}

} // namespace

void ColumnBuilder::add(const Cell& cell, std::string_view text, long line)
{
    double value = cell.value;
    if (cell.kind != m_lastKind || !isValue(m_lastKind)) // not as nearly always
        value = startRun(cell);
    m_values.push_back(value);
    m_smallest = value < m_smallest ? value : m_smallest;
    m_largest = value > m_largest ? value : m_largest;
    Tally& tally = m_tallies[index(cell.kind)];
    if (++tally.count == 1) {
        tally.line = line;
        tally.text = text.substr(0, KeptText);
    }
}

/// Notes a change of kind; the value, or that of a gap.
double ColumnBuilder::startRun(const Cell& cell)
{
    if (!isValue(cell.kind))
        return Gap;
    m_runs.push_back({m_values.size(), cell.kind});
    m_lastKind = cell.kind;
    return cell.value;
}

std::size_t ColumnBuilder::dates() const
{
    return tally(CellKind::Date).count + tally(CellKind::EitherDate).count + tally(CellKind::DayFirstDate).count +
           tally(CellKind::MonthFirstDate).count;
}

ColumnSummary::Kind ColumnBuilder::kind() const
{
    const std::size_t numbers = tally(CellKind::Number).count;
    if (tally(CellKind::Word).count > numbers + dates())
        return ColumnSummary::Text;
    if (numbers + dates() == 0)
        return ColumnSummary::Empty;
    return dates() > numbers ? ColumnSummary::Dates : ColumnSummary::Numbers;
}

ColumnSummary ColumnBuilder::finish(TextSource& source, std::vector<std::string>& notes)
{
    ColumnSummary summary;
    summary.name = m_name;
    summary.unit = m_unit;
    summary.kind = kind();
    m_monthFirst = tally(CellKind::MonthFirstDate).count > tally(CellKind::DayFirstDate).count;
    const bool isCompact = summary.kind == ColumnSummary::Numbers && saysDate(m_name) && hasOnlyCompactDates(source);
    summary.kind = isCompact ? ColumnSummary::Dates : summary.kind;
    m_isDate = summary.kind == ColumnSummary::Dates;
    const bool isPlain = m_runs.size() == 1 && (m_lastKind == CellKind::Number || m_lastKind == CellKind::Date);
    if ((!isPlain || isCompact) && (m_isDate || summary.kind == ColumnSummary::Numbers))
        unify(summary.kind, source);
    addNotes(summary.kind, notes);
    if (summary.kind != ColumnSummary::Text) {
        const bool countsNumbers = summary.kind == ColumnSummary::Numbers || isCompact;
        summary.values = countsNumbers ? tally(CellKind::Number).count : dates() - oddDates().count;
        summary.smallest = m_smallest;
        summary.largest = m_largest;
    }
    summary.gaps = m_values.size() - summary.values;
    return summary;
}

/// What a value is in a column of that kind: a gap if it is of another.
double ColumnBuilder::valueAs(ColumnSummary::Kind kind, CellKind cell, double value) const
{
    double days = value;
    switch (cell) {
    case CellKind::Number:
        if (kind == ColumnSummary::Numbers)
            return value;
        return dates() == 0 && daysOfCompactDate(value, days) ? days : Gap;
    case CellKind::Date:
        return kind == ColumnSummary::Dates ? value : Gap;
    case CellKind::EitherDate:
        return kind != ColumnSummary::Dates ? Gap : m_monthFirst ? withDayAndMonthSwapped(value) : value;
    default:
        return kind == ColumnSummary::Dates && m_monthFirst == (cell == CellKind::MonthFirstDate) ? value : Gap;
    }
}

void ColumnBuilder::unify(ColumnSummary::Kind kind, TextSource& source)
{
    m_smallest = std::numeric_limits<double>::infinity();
    m_largest = -m_smallest;
    m_runs.push_back({m_values.size(), CellKind::Missing});
    for (std::size_t i = 0; i + 1 < m_runs.size(); ++i) {
        for (std::size_t row = m_runs[i].row; row < m_runs[i + 1].row; ++row) {
            if (row % RowsAtATime == 0)
                source.goOn();
            double& value = m_values[row];
            value = std::isnan(value) ? value : valueAs(kind, m_runs[i].kind, value);
            m_smallest = value < m_smallest ? value : m_smallest;
            m_largest = value > m_largest ? value : m_largest;
        }
    }
}

bool ColumnBuilder::hasOnlyCompactDates(TextSource& source) const
{
    for (std::size_t row = 0; row < m_values.size(); ++row) {
        if (row % RowsAtATime == 0)
            source.goOn();
        double days = 0;
        if (!std::isnan(m_values[row]) && !daysOfCompactDate(m_values[row], days))
            return false;
    }
    return dates() == 0;
}

void ColumnBuilder::addNotes(ColumnSummary::Kind kind, std::vector<std::string>& notes) const
{
    if (kind == ColumnSummary::Text) {
        notes.push_back("The column \"" + m_name + "\" holds text and is left out.");
        return;
    }
    const bool isDate = kind == ColumnSummary::Dates;
    addNote(tally(CellKind::Word), isDate ? "no date" : "no number", notes);
    addNote(tally(CellKind::TooLarge), "too large for a number", notes);
    if (isDate && dates() > 0) {
        addNote(tally(CellKind::Number), "no date", notes);
        addNote(oddDates(), m_monthFirst ? "no date with the month first" : "no date with the day first", notes);
    } else {
        for (const CellKind date :
             {CellKind::Date, CellKind::EitherDate, CellKind::DayFirstDate, CellKind::MonthFirstDate})
            addNote(tally(date), "no number", notes);
    }
    const bool isOpen = tally(CellKind::DayFirstDate).count + tally(CellKind::MonthFirstDate).count == 0;
    const Tally& either = tally(CellKind::EitherDate);
    if (isDate && isOpen && either.count > 0) {
        notes.push_back("The column \"" + m_name + "\": whether " + quotedForMessage(either.text) + " in line " +
                        std::to_string(either.line) +
                        " has the day or the month first no row tells; the day first is taken.");
    }
}

void ColumnBuilder::addNote(const Tally& tally, const std::string& what, std::vector<std::string>& notes) const
{
    const std::string place = quotedForMessage(tally.text) + " in line " + std::to_string(tally.line);
    const std::string start = "The column \"" + m_name + "\": ";
    if (tally.count == 1) {
        notes.push_back(start + place + " is " + what + " and shows as a gap.");
    } else if (tally.count > 1) {
        notes.push_back(start + std::to_string(tally.count) + " fields, the first " + place + ", are " + what +
                        " and show as gaps.");
    }
}

Column ColumnBuilder::take()
{
    Column column;
    column.name = m_name;
    column.unit = m_unit;
    column.isDate = m_isDate;
    column.values = std::move(m_values);
    return column;
}

} // namespace velmora::engine
