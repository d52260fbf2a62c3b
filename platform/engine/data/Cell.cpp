#include "engine/data/Cell.h"

#include "engine/data/DateText.h"
#include "engine/data/NumberText.h"
#include "engine/data/TextCase.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <system_error>

namespace velmora::engine {

namespace {

constexpr std::size_t DigitsOfThousands = 3;

/// What was in quotes may have blanks around it.
std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view Blanks = " \t\r\n";
    const std::size_t first = std::min(text.find_first_not_of(Blanks), text.size());
    text.remove_prefix(first);
    return text.substr(0, text.find_last_not_of(Blanks) + 1);
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::size_t leadingDigits(std::string_view text)
{
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isDigit) - text.begin());
}

std::string_view withoutSign(std::string_view text)
{
    return text.substr(!text.empty() && (text.front() == '-' || text.front() == '+') ? 1 : 0);
}

bool couldBeThousands(std::string_view text, char mark)
{
    text = withoutSign(text);
    const std::size_t whole = leadingDigits(text);
    return whole >= 1 && whole <= DigitsOfThousands && text.front() != '0' && whole < text.size() &&
           text[whole] == mark && text.size() == whole + 1 + DigitsOfThousands &&
           leadingDigits(text.substr(whole + 1)) == DigitsOfThousands;
}

/// Takes the separators of thousands out; false when they do not stand where they should.
bool takeThousandsOut(std::string_view text, char separator, std::string& plain)
{
    const std::string_view unsignedText = withoutSign(text);
    plain = text.substr(0, text.size() - unsignedText.size());
    text = unsignedText;
    std::size_t digits = leadingDigits(text);
    if (digits < 1 || digits > DigitsOfThousands || text.front() == '0')
        return false;
    plain += text.substr(0, digits);
    for (text.remove_prefix(digits); !text.empty() && text.front() == separator; text.remove_prefix(digits + 1)) {
        digits = leadingDigits(text.substr(1));
        if (digits != DigitsOfThousands)
            return false;
        plain += text.substr(1, digits);
    }
    plain += text;
    return true;
}

/// A number without separators of thousands.
NumberText parseWithMark(std::string_view text, char mark, double& value)
{
    std::array<char, 64> pointed = {};
    if (mark == '.')
        return parseNumber(text, value);
    if (text.size() > pointed.size() || text.find('.') != std::string_view::npos)
        return NumberText::Word;
    text.copy(pointed.data(), text.size());
    std::replace(pointed.begin(), pointed.begin() + text.size(), mark, '.');
    return parseNumber({pointed.data(), text.size()}, value);
}

/// With the separators of thousands that go with the mark.
NumberText parseMarked(std::string_view text, char mark, Cell& cell)
{
    const char other = mark == '.' ? ',' : '.';
    cell.decimalMark = text.find(mark) != std::string_view::npos ? mark : '\0';
    if (text.find(other) == std::string_view::npos)
        return parseWithMark(text, mark, cell.value);
    std::string plain;
    cell.decimalMark = mark;
    return takeThousandsOut(text, other, plain) ? parseWithMark(plain, mark, cell.value) : NumberText::Word;
}

bool isMissing(std::string_view text)
{
    constexpr std::array<std::string_view, 5> Spellings = {"na", "n/a", "#n/a", "null", "none"};
    if (text.empty() || (std::string_view("-.*?").find(text.front()) != std::string_view::npos &&
                         text.find_first_not_of(text.front()) == std::string_view::npos))
        return true;
    return text.size() <= 4 && std::any_of(Spellings.begin(), Spellings.end(), [text](std::string_view spelling) {
               return equalsIgnoringCase(text, spelling);
           });
}

CellKind kindOf(DateOrder order)
{
    switch (order) {
    case DateOrder::Certain:
        return CellKind::Date;
    case DateOrder::Either:
        return CellKind::EitherDate;
    case DateOrder::DayFirst:
        return CellKind::DayFirstDate;
    case DateOrder::MonthFirst:
        return CellKind::MonthFirstDate;
    case DateOrder::NoDate:
        break;
    }
    return CellKind::Word;
}

/// Nearly all cells, and cheaply: digits, perhaps a sign and a point, and nothing else.
bool parsePlainNumber(std::string_view text, Cell& cell)
{
    if (text.empty() || !isDigit(text.back()) || (!isDigit(text.front()) && text.front() != '-'))
        return false;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), cell.value);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size())
        return false;
    cell.kind = CellKind::Number;
    cell.decimalMark = text.find('.') != std::string_view::npos ? '.' : '\0';
    return true;
}

/// With a letter that begins no number, no date and no mark of a gap. Such fields need no further look.
bool beginsLikeAWord(std::string_view text)
{
    const char first = text.empty() ? '\0' : toLowerAscii(text.front());
    return (first >= 'a' && first <= 'z' && first != 'n' && first != 'i') || (first & 0x80) != 0;
}

/// By its separators, which no number has at these places, except for points.
bool looksLikeADate(std::string_view text)
{
    constexpr std::size_t Shortest = 7;
    return text.size() >= Shortest && isDigit(text.front()) &&
           (text[4] == '-' || text[4] == '/' || text[2] == '/' || text[2] == '.');
}

/// Not inlined: what it needs on the stack would slow the plain numbers down.
[[gnu::noinline]] Cell parseOtherCell(std::string_view text, char decimalMark)
{
    Cell cell;
    text = trimmed(text);
    if (beginsLikeAWord(text))
        return {CellKind::Word};
    if (looksLikeADate(text)) {
        cell.kind = kindOf(parseDate(text, cell.value));
        cell.decimalMark = 0;
        if (cell.kind != CellKind::Word)
            return cell;
    }
    const NumberText number = isMissing(text) ? NumberText::NotFinite : parseMarked(text, decimalMark, cell);
    if (number == NumberText::NotFinite)
        return {};
    if (number != NumberText::Word) {
        cell.kind = number == NumberText::Number ? CellKind::Number : CellKind::TooLarge;
        return cell;
    }
    cell.kind = kindOf(parseDate(text, cell.value));
    if (cell.kind != CellKind::Word || parseMarked(text, decimalMark == '.' ? ',' : '.', cell) != NumberText::Number)
        cell.decimalMark = 0;
    return cell;
}

} // namespace

Cell parseCell(std::string_view text, char decimalMark)
{
    Cell cell;
    if (!parsePlainNumber(text, cell) || (decimalMark != '.' && cell.decimalMark != 0))
        cell = parseOtherCell(text, decimalMark);
    return cell;
}

bool isGapMark(std::string_view text)
{
    double value = 0;
    return isMissing(text) || parseNumber(text, value) == NumberText::NotFinite;
}

bool couldHaveEitherMark(std::string_view text)
{
    return couldBeThousands(text, ',') || couldBeThousands(text, '.');
}

} // namespace velmora::engine
