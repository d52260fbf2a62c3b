#include "tests/platform/data/ReadSupport.h"

#include <rapidcheck.h>

#include <array>
#include <charconv>

using namespace velmora::engine;
using namespace velmora::engine::test;

namespace {

/// How a table is written.
struct Dialect {
    std::string delimiter = ",";
    std::string lineEnd = "\n";
    bool decimalComma = false;
    bool headed = true;
};

Dialect anyDialect()
{
    Dialect dialect;
    dialect.delimiter = *rc::gen::element<std::string>(",", ";", "\t", " ");
    dialect.lineEnd = *rc::gen::element<std::string>("\n", "\r\n", "\r");
    dialect.decimalComma = (dialect.delimiter == ";" || dialect.delimiter == "\t") && *rc::gen::arbitrary<bool>();
    dialect.headed = *rc::gen::arbitrary<bool>();
    return dialect;
}

std::string inQuotes(const std::string& text)
{
    std::string result = "\"";
    for (const char c : text)
        result += c == '"' ? "\"\"" : std::string(1, c);
    return result + "\"";
}

/// A word that is no number, date or mark of a missing value, with whatever needs quotes in it.
std::string anyWord()
{
    std::string word = "w";
    for (int i = *rc::gen::inRange(0, 6); i > 0; --i)
        word += *rc::gen::element<std::string>("a", "Z", "7", ",", ";", "\t", " ", "\"", "\n", "\r\n", "#", "\xC3\xA9");
    return word + "w";
}

std::string written(double value, const Dialect& dialect)
{
    std::array<char, 64> text = {};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    std::string result(text.data(), end);
    if (dialect.decimalComma && result.find('.') != std::string::npos)
        result[result.find('.')] = ',';
    return *rc::gen::inRange(0, 6) == 0 ? inQuotes(result) : result;
}

std::string anyGapMark(const Dialect& dialect)
{
    if (dialect.delimiter == " ")
        return *rc::gen::element<std::string>("NA", "-", "\"\"");
    return *rc::gen::element<std::string>("", "NA", "n/a", "-", "null", "\"\"");
}

Table anyTable(bool headed)
{
    Table table;
    const std::size_t columns = *rc::gen::inRange<std::size_t>(2, 6);
    const std::size_t rows = *rc::gen::inRange<std::size_t>(1, 12);
    for (std::size_t i = 0; i < columns; ++i) {
        Column column;
        column.name = headed ? anyWord() : "Column " + std::to_string(i + 1);
        for (std::size_t row = 0; row < rows; ++row) {
            const bool isGap = i > 0 && row > 0 && *rc::gen::inRange(0, 4) == 0;
            column.values.push_back(isGap ? Gap : *rc::gen::arbitrary<int>() / 1000.0);
        }
        table.columns.push_back(column);
    }
    return table;
}

std::string anyTextOf(const Table& table, const Dialect& dialect)
{
    std::string text = *rc::gen::element<std::string>("", "\xEF\xBB\xBF", "# remark" + dialect.lineEnd);
    const auto append = [&](std::size_t column, const std::string& field) {
        text += (column > 0 ? dialect.delimiter : "") + field;
    };
    for (std::size_t i = 0; dialect.headed && i < table.columns.size(); ++i)
        append(i, inQuotes(table.columns[i].name));
    text += dialect.headed ? dialect.lineEnd : "";
    for (std::size_t row = 0; row < table.columns[0].values.size(); ++row) {
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            const double value = table.columns[i].values[row];
            append(i, std::isnan(value) ? anyGapMark(dialect) : written(value, dialect));
        }
        text += dialect.lineEnd + *rc::gen::element<std::string>("", "", "", dialect.lineEnd, "#1,2" + dialect.lineEnd);
    }
    return text;
}

/// Line ends within quotes all come back as one character.
std::string withSimpleLineEnds(const std::string& text)
{
    std::string result;
    for (const char c : text)
        if (c != '\r')
            result += c;
    return result;
}

} // namespace

TEST(TableProperty, ATableWrittenInAnyWayReadsBackEqual)
{
    EXPECT_TRUE(rc::check([] {
        const Dialect dialect = anyDialect();
        const Table table = anyTable(dialect.headed);
        const std::string text = anyTextOf(table, dialect);
        RC_LOG() << text << std::endl;
        const Table read = readTable(text);
        RC_ASSERT(read.columns.size() == table.columns.size());
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            RC_ASSERT(read.columns[i].name == withSimpleLineEnds(table.columns[i].name));
            RC_ASSERT(sameValues(read.columns[i].values, table.columns[i].values));
        }
    }));
}
