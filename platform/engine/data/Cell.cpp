#include "engine/data/Cell.h"

#include "engine/data/DateText.h"
#include "engine/data/NumberText.h"
#include "engine/data/TextCase.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>

namespace velmora::engine {

namespace {

bool isMissing(std::string_view text)
{
    constexpr std::array<std::string_view, 5> spellings = {"", "-", "na", "n/a", "null"};
    return text.size() <= 4 && std::any_of(spellings.begin(), spellings.end(), [text](std::string_view spelling) {
               return equalsIgnoringCase(text, spelling);
           });
}

/// What was in quotes may have blanks around it.
std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t first = std::min(text.find_first_not_of(blanks), text.size());
    text.remove_prefix(first);
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

bool parseWithDecimalComma(std::string_view text, double& value)
{
    std::array<char, 64> pointed = {};
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos || text.size() > pointed.size() || text.find('.') != std::string_view::npos) {
        return false;
    }
    text.copy(pointed.data(), text.size());
    pointed[comma] = '.';
    return parseNumber({pointed.data(), text.size()}, value) == NumberText::Number;
}

/// Nearly all cells, and cheaply: digits, perhaps a sign and a point, and nothing else.
bool parsePlainNumber(std::string_view text, Cell& cell)
{
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (text.empty() || !isDigit(text.back()) || (!isDigit(text.front()) && text.front() != '-')) {
        return false;
    }
    const auto read = std::from_chars(text.data(), text.data() + text.size(), cell.value);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size()) {
        return false;
    }
    cell.kind = CellKind::Number;
    cell.decimalMark = text.find('.') != std::string_view::npos ? '.' : '\0';
    return true;
}

} // namespace

Cell parseCell(std::string_view text, bool allowDecimalComma)
{
    Cell cell;
    if (parsePlainNumber(text, cell)) {
        return cell;
    }
    text = trimmed(text);
    if (isMissing(text)) {
        return cell;
    }
    if (parseNumber(text, cell.value) == NumberText::Number) {
        cell.kind = CellKind::Number;
        cell.decimalMark = text.find('.') != std::string_view::npos ? '.' : '\0';
    } else if (allowDecimalComma && parseWithDecimalComma(text, cell.value)) {
        cell.kind = CellKind::Number;
        cell.decimalMark = ',';
    } else {
        cell.kind = parseDate(text, cell.value) ? CellKind::Date : CellKind::Word;
    }
    return cell;
}

} // namespace velmora::engine
