#pragma once

#include <string_view>

namespace velmora::engine {

enum class CellKind { Missing, Number, Date, Word };

/// What one field of a table says.
struct Cell {
    CellKind kind = CellKind::Missing;
    double value = 0;     ///< of a number, or days since 1970-01-01 of a date
    char decimalMark = 0; ///< '.' or ',' where the number has one
};

/// Reads one field. Nothing at all, NA, N/A, null (in any case) and a lone '-' are missing values.
/// "nan" and "inf" are words, as is a number too large for a double.
Cell parseCell(std::string_view text, bool allowDecimalComma);

} // namespace velmora::engine
