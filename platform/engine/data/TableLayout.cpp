#include "engine/data/TableLayout.h"

#include "engine/data/TableSample.h"
#include "engine/data/UnitText.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace velmora::engine {

namespace {

constexpr std::size_t LongestOddUnit = 12;
constexpr double FirstYear = 1500;
constexpr double LastYear = 2500;

/// Looks for the header among the rows of a sample.
class HeaderSearch {
public:
    explicit HeaderSearch(const Sample& sample);

    void find(TableLayout& layout) const;

private:
    void inspectColumns();
    bool fits(const SampleRow& row) const;
    bool isWords(std::size_t row) const;
    bool isData(std::size_t row) const;
    bool isNumbersHeader(std::size_t row) const;
    bool areUnits(std::size_t row, std::size_t rowsOfWords) const;
    bool isHeaderOfOtherLength(std::size_t row) const;
    bool isRowOfOtherLength(std::size_t row) const;
    std::size_t firstData() const;
    bool placeBelowWords(TableLayout& layout, std::size_t data) const;
    void place(TableLayout& layout, std::size_t first, bool hasHeader) const;

    const std::vector<SampleRow>& m_rows;
    const Sample& m_sample;
    bool m_lastIsEmpty = true;   ///< the last field of each row: all end with a delimiter
    bool m_allHoldValues = true; ///< no column holds words in most rows
    bool m_firstHoldsValues = true;
};

HeaderSearch::HeaderSearch(const Sample& sample) : m_rows(sample.rows), m_sample(sample)
{
    for (const SampleRow& row : m_rows)
        m_lastIsEmpty = m_lastIsEmpty && (row.fields.size() != m_sample.columns || row.fields.back().text.empty());
    inspectColumns();
}

/// By the rows from the first one with a value on: words above it are names and units.
void HeaderSearch::inspectColumns()
{
    std::vector<std::ptrdiff_t> moreWords(m_sample.columns);
    bool hasBegun = false;
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        const auto& fields = m_rows[row].fields;
        const bool hasValue =
            std::any_of(fields.begin(), fields.end(), [](const auto& field) { return field.isValue(); });
        hasBegun = hasBegun || (fits(m_rows[row]) && hasValue);
        for (std::size_t i = 0; hasBegun && i < std::min(moreWords.size(), fields.size()); ++i)
            moreWords[i] += fields[i].isWord() ? 1 : fields[i].isValue() ? -1 : 0;
    }
    m_allHoldValues = std::all_of(moreWords.begin(), moreWords.end(), [](std::ptrdiff_t more) { return more <= 0; });
    m_firstHoldsValues = moreWords.empty() || moreWords.front() <= 0;
}

/// Has as many fields as the table has columns, or differs by delimiters at the end of lines.
bool HeaderSearch::fits(const SampleRow& row) const
{
    const auto& fields = row.fields;
    if (fields.size() < m_sample.columns)
        return m_lastIsEmpty && fields.size() + 1 == m_sample.columns && !fields.empty();
    return std::all_of(fields.begin() + static_cast<std::ptrdiff_t>(m_sample.columns), fields.end(),
                       [](const SampleField& field) { return field.text.empty(); });
}

/// Of nothing but words and empty fields.
bool HeaderSearch::isWords(std::size_t row) const
{
    const auto& fields = m_rows[row].fields;
    const auto isWordOrNothing = [](const SampleField& field) {
        return field.isWord() || field.text.empty() || field.text == "-";
    };
    return fits(m_rows[row]) && std::all_of(fields.begin(), fields.end(), isWordOrNothing) &&
           std::any_of(fields.begin(), fields.end(), [](const SampleField& field) { return field.isWord(); });
}

/// A row of the table, not a name and its value above it.
bool HeaderSearch::isData(std::size_t row) const
{
    const auto& fields = m_rows[row].fields;
    if (!fits(m_rows[row]) || isWords(row) || (m_allHoldValues && fields.front().isWord()))
        return false;
    return std::any_of(fields.begin(), fields.end(), [](const SampleField& field) { return !field.text.empty(); });
}

bool HeaderSearch::isRowOfOtherLength(std::size_t row) const
{
    const auto& fields = m_rows[row].fields;
    return fields.size() > 1 && !fields.front().isWord() &&
           std::any_of(fields.begin(), fields.end(), [](const SampleField& field) { return field.isValue(); });
}

/// Words right above the data that name more or fewer columns than there are.
bool HeaderSearch::isHeaderOfOtherLength(std::size_t row) const
{
    const auto& fields = m_rows[row].fields;
    return m_sample.delimiter != Delimiter::Blanks && fields.size() > 1 &&
           m_rows[row].line + 1 == m_rows[row + 1].line &&
           std::all_of(fields.begin(), fields.end(),
                       [](const SampleField& field) { return field.isWord() || field.text.empty(); });
}

std::size_t HeaderSearch::firstData() const
{
    std::size_t row = 0;
    while (row < m_rows.size() && !isData(row))
        ++row;
    return row;
}

bool HeaderSearch::isNumbersHeader(std::size_t row) const
{
    const auto& fields = m_rows[row].fields;
    if (fields.size() < 2 || !fits(m_rows[row]) || row + 1 == m_rows.size())
        return false;
    std::set<double> different;
    bool areYears = fields.size() > 2 && (fields[0].isWord() || fields[0].text.empty());
    for (std::size_t i = 1; i < fields.size(); ++i) {
        const Cell& cell = fields[i].cell;
        if (!fields[i].isValue() || !different.insert(cell.value).second)
            return false;
        areYears = areYears && cell.kind == CellKind::Number && cell.decimalMark == 0 && cell.value >= FirstYear &&
                   cell.value <= LastYear && *different.rbegin() == cell.value;
    }
    return areYears || (m_firstHoldsValues && fields[0].isWord());
}

/// Whether the last of some rows of words has the units. Where names and values above a table cannot be taken for a
/// row of it, because it has more columns, a short word is a unit even if it is an unusual one.
bool HeaderSearch::areUnits(std::size_t row, std::size_t rowsOfWords) const
{
    const auto& fields = m_rows[row].fields;
    const bool isWide = m_sample.columns > 2 && m_sample.delimiter != Delimiter::Blanks && m_allHoldValues;
    return rowsOfWords > 1 && std::all_of(fields.begin(), fields.end(), [&](const SampleField& field) {
               return !field.isWord() || looksLikeUnit(field.text) ||
                      (isWide && rowsOfWords == 2 && field.text.size() <= LongestOddUnit);
           });
}

/// False when there are no words above the data.
bool HeaderSearch::placeBelowWords(TableLayout& layout, std::size_t data) const
{
    std::size_t top = data;
    while (top > 0 && isWords(top - 1))
        --top;
    if (top == data)
        return false;
    layout.hasUnits = areUnits(data - 1, data - top);
    place(layout, layout.hasUnits ? data - 2 : m_allHoldValues ? data - 1 : top, true);
    return true;
}

void HeaderSearch::place(TableLayout& layout, std::size_t first, bool hasHeader) const
{
    layout.columns = m_sample.columns;
    layout.hasHeader = hasHeader;
    layout.headerHasNumbers = hasHeader && isNumbersHeader(first);
    layout.firstLine = m_rows[first].line;
    for (std::size_t row = first; row-- > 0;)
        layout.firstAbove = row == 0 && layout.hasSeparatorLine ? layout.firstAbove : m_rows[row].line;
}

void HeaderSearch::find(TableLayout& layout) const
{
    const std::size_t data = firstData();
    if (data == m_rows.size()) {
        std::size_t words = 0;
        while (words < m_rows.size() && !isWords(words))
            ++words;
        if (words < m_rows.size())
            place(layout, words, true);
        return;
    }
    // Rows with an odd first field may stand between the header and the first row that is beyond doubt.
    std::size_t first = data;
    while (first > 0 && fits(m_rows[first - 1]) && !isWords(first - 1))
        --first;
    // So may rows of another length; they are for the reading to refuse.
    std::size_t firstOfAnyLength = first;
    while (firstOfAnyLength > 0 && isRowOfOtherLength(firstOfAnyLength - 1))
        --firstOfAnyLength;
    if (placeBelowWords(layout, first) || placeBelowWords(layout, firstOfAnyLength))
        return;
    if (isNumbersHeader(data)) {
        place(layout, data, true);
    } else if (first < data && isNumbersHeader(data - 1)) {
        place(layout, data - 1, true);
    } else {
        const bool hasOddHeader = first > 0 && isHeaderOfOtherLength(first - 1);
        place(layout, hasOddHeader ? first - 1 : first, hasOddHeader);
    }
}

/// Without a line that the end of a sample cuts through.
std::string_view wholeLines(std::string_view sample, bool isWhole)
{
    const std::size_t lastEnd = isWhole ? std::string_view::npos : sample.find_last_of("\n\r");
    return lastEnd == std::string_view::npos ? sample : sample.substr(0, lastEnd);
}

} // namespace

TableLayout findLayout(std::string_view begin, bool isWhole)
{
    const std::string_view text = wholeLines(begin, isWhole);
    TableLayout layout;
    layout.hasSeparatorLine = takeSeparatorLine(text, layout.delimiter);
    const Sample sample = layout.hasSeparatorLine ? sampleOf(text, layout.delimiter) : bestSample(text);
    layout.delimiter = sample.delimiter;
    layout.decimalMark = sample.decimalMark;
    layout.isMarkClear = sample.isMarkClear;
    const bool isCut = !isWhole && text.size() == begin.size();
    if (!isCut && sample.columns > 0)
        HeaderSearch(sample).find(layout);
    return layout;
}

} // namespace velmora::engine
