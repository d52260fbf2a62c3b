#pragma once

#include "engine/data/ColumnBuilder.h"
#include "engine/data/RecordReader.h"
#include "engine/data/Table.h"
#include "engine/data/TableLayout.h"

#include <memory>
#include <string>
#include <vector>

namespace velmora::engine {

class TextSource;

/// Reads a delimited table, with or without a header line.
///
/// The first column of dates becomes the axis, else the first column of numbers if none is missing
/// and others follow, else the row number.
class TableReader {
public:
    explicit TableReader(TextSource& source);

    /// Throws ReadError and ReadInterrupted.
    std::shared_ptr<Table> read();

private:
    void readHead(RecordReader& records, Record& record);
    bool isHeader(const Record& record) const;
    void startColumns(const Record& first);
    void takeUnits(const Record& units);
    void addRow(const Record& record);
    void addOtherLength(const Record& record);
    void add(ColumnBuilder& column, std::string_view text, long line);
    void checkDecimalMark(const Cell& cell, std::string_view text, long line);
    void noteLayout(Table& table) const;
    void keepColumns(Table& table);
    bool isLastWithoutName(const ColumnBuilder& builder) const;
    void chooseAxis(Table& table);
    void requireSomethingToShow(const Table& table);
    Column rowNumbers();
    void expectRows();

    TextSource& m_source;
    TableLayout m_layout;
    std::vector<ColumnBuilder> m_builders;
    long m_firstLine = 0;
    std::size_t m_rows = 0;
    std::size_t m_shortRows = 0;
    long m_firstShortLine = 0;
    bool m_firstHasGaps = false; ///< the first of the columns that are kept
    bool m_lastHasName = false;
    long m_unclearMarkLine = 0; ///< where a number may have been read with the wrong decimal mark; 0: nowhere
};

} // namespace velmora::engine
