#include "engine/data/DataDetails.h"
#include "tests/fuzz/ReadSupport.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>

using namespace velmora::engine;

namespace {

void checkColumns(const Table& table)
{
    fuzz::require(table.columns.size() >= 2, "there are two columns at least");
    for (const Column& column : table.columns) {
        fuzz::require(column.values.size() == table.columns[0].values.size(), "all columns are as long");
        fuzz::require(!column.name.empty(), "every column has a name");
        for (const double value : column.values)
            fuzz::require(!std::isinf(value), "no value is infinite");
    }
}

bool shows(const Table& table, std::size_t row)
{
    const auto hasValue = [row](const Column& column) { return !std::isnan(column.values[row]); };
    return hasValue(table.columns[0]) && std::any_of(table.columns.begin() + 1, table.columns.end(), hasValue);
}

bool isSummaryOf(const ColumnSummary& summary, const Column& column)
{
    std::size_t values = 0;
    bool isInside = true;
    for (const double value : column.values) {
        values += std::isnan(value) ? 0 : 1;
        isInside = isInside && (std::isnan(value) || (value >= summary.smallest && value <= summary.largest));
    }
    return isInside && summary.name == column.name && summary.unit == column.unit && summary.values == values &&
           summary.values + summary.gaps == column.values.size() &&
           (summary.kind == ColumnSummary::Dates) == column.isDate;
}

void check(const Table& table)
{
    checkColumns(table);
    bool showsAny = false;
    for (std::size_t row = 0; row < table.columns[0].values.size(); ++row)
        showsAny = showsAny || shows(table, row);
    fuzz::require(showsAny, "there is something to show");
    for (const ColumnSummary& summary : table.summaries) {
        const bool isKept = std::any_of(table.columns.begin(), table.columns.end(),
                                        [&](const Column& column) { return isSummaryOf(summary, column); });
        fuzz::require(isKept || !summary.whyLeftOut.empty(),
                      "a column shows as its summary tells, or that tells why not");
    }
    const std::string details = detailsOf(table);
    const auto lines = static_cast<std::size_t>(std::count(details.begin(), details.end(), '\n'));
    fuzz::require(lines == table.summaries.size(), "each column has a line of details");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string text(bytes, bytes + size);
    const auto data = fuzz::read(text);
    if (data && std::holds_alternative<std::shared_ptr<const Table>>(*data))
        check(*std::get<std::shared_ptr<const Table>>(*data));
    return 0;
}
