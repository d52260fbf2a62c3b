#pragma once

#include "engine/data/RecordReader.h"

#include <cstddef>
#include <string_view>

namespace velmora::engine {

/// How the text of a table is laid out, as far as its beginning tells.
struct TableLayout {
    Delimiter delimiter = Delimiter::Comma;
    char decimalMark = '.';
    bool isMarkClear = false;      ///< a number shows it, or there is no reason to expect the other one
    bool hasSeparatorLine = false; ///< the first line says sep=; or the like
    std::size_t columns = 0;       ///< 0: the beginning does not tell, nor does it tell what follows here
    long firstLine = 1;            ///< of the table: its header, if it has one
    long firstAbove = 0;           ///< of the lines above that it does not need; 0: there are none
    bool hasHeader = false;
    bool headerHasNumbers = false;
    bool hasUnits = false; ///< in the line after the header
};

/// Finds out about the table that begins with `begin`; `isWhole` says that nothing follows.
///
/// The delimiter is the one by which most lines have as many fields, and most fields of those are values. Lines above
/// the table have another number of fields. The header is the line of nothing but words above the first values:
/// of several of them the last one that is no line of units, if all columns hold values. Without such a line it is one
/// whose first field is a word above values, followed by numbers or dates, all of them different, or, above text, by
/// two or more years that grow.
TableLayout findLayout(std::string_view begin, bool isWhole);

} // namespace velmora::engine
