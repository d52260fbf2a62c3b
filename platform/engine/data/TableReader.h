#pragma once

#include "engine/data/ColumnBuilder.h"
#include "engine/data/RecordReader.h"
#include "engine/data/Table.h"

#include <memory>
#include <string>
#include <vector>

namespace velmora::engine {

class TextSource;

/// Reads a delimited table, with or without a header line.
///
/// The first column of dates becomes the axis, else the first column of numbers if it has no gaps
/// and others follow, else the row number. A first line of nothing but words is the header.
class TableReader {
public:
    explicit TableReader(TextSource& source);

    /// Throws ReadError and ReadInterrupted.
    std::shared_ptr<Table> read();

private:
    bool isHeader(const Record& record) const;
    void startColumns(const Record& first, bool isHeader);
    void addRow(const Record& record);
    void checkDecimalMark(const Cell& cell, std::string_view text, long line);
    void keepColumns(Table& table);
    void chooseAxis(Table& table);
    Column rowNumbers();
    void expectRows();

    TextSource& m_source;
    Delimiter m_delimiter;
    bool m_allowDecimalComma;
    std::vector<ColumnBuilder> m_builders;
    long m_firstLine = 0;
    std::size_t m_rows = 0;
    bool m_firstHasGaps = false; ///< the first of the columns that are kept
    char m_decimalMark = 0;      ///< the first that was met
    long m_decimalMarkLine = 0;
};

} // namespace velmora::engine
