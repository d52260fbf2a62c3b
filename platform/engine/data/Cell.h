#pragma once

#include <string_view>

namespace velmora::engine {

enum class CellKind {
    Missing,
    Number,
    Date,       ///< whose parts have one order only
    EitherDate, ///< 05/01/2024: read with the day first; the month may be first as well
    DayFirstDate,
    MonthFirstDate,
    TooLarge, ///< a number beyond a double
    Word
};

constexpr int CellKinds = 8;

/// What one field of a table says.
struct Cell {
    CellKind kind = CellKind::Missing;
    double value = 0; ///< of a number, or days since 1970-01-01 of a date
    /// '.' or ',' where a number has one. A word has it as well when it were a number with that mark.
    char decimalMark = 0;
};

/// Reads one field of a table whose numbers have the decimal mark '.' or ','. The other one may separate thousands:
/// 1,234.5 or 1.234,5. What marks a gap is missing: nothing at all, NA, N/A, #N/A, null, none, nan and inf in any
/// case, and one or more of '-', '.', '*' or '?'.
Cell parseCell(std::string_view text, char decimalMark);

inline bool isDate(CellKind kind)
{
    return kind >= CellKind::Date && kind <= CellKind::MonthFirstDate;
}

inline bool isValue(CellKind kind)
{
    return kind == CellKind::Number || isDate(kind);
}

/// Whether the text says that there is no value; nan and inf, in any case, too.
bool isGapMark(std::string_view text);

/// Whether the only mark in a number is a decimal mark or separates thousands nobody can tell: 1,234.
bool couldHaveEitherMark(std::string_view text);

} // namespace velmora::engine
