#pragma once

#include "engine/data/Cell.h"
#include "engine/data/Table.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::engine {

class TextSource;

/// Collects the values of one column of a table and decides at the end, by the majority, what kind
/// of column it is. What is of another kind becomes a gap, with a note.
class ColumnBuilder {
public:
    explicit ColumnBuilder(std::string name) : m_name(std::move(name)) {}

    void reserve(std::size_t rows) { m_values.reserve(rows); }
    void setUnit(std::string unit) { m_unit = std::move(unit); }
    void add(const Cell& cell, std::string_view text, long line);

    const std::string& name() const { return m_name; }
    /// Fields that say that there is no value.
    std::size_t missing() const { return tally(CellKind::Missing).count; }
    /// After the last value: decides what the column is and makes its values one kind. Asks the source to go on.
    ColumnSummary finish(TextSource& source, std::vector<std::string>& notes);
    /// After that: the column.
    Column take();

private:
    /// How often a kind occurred, and where first.
    struct Tally {
        std::size_t count = 0;
        long line = 0;
        std::string text;
    };

    /// From a row on the values are of one kind; gaps do not end it.
    struct Run {
        std::size_t row;
        CellKind kind;
    };

    static constexpr std::size_t index(CellKind kind) { return static_cast<std::size_t>(kind); }
    const Tally& tally(CellKind kind) const { return m_tallies[index(kind)]; }
    double startRun(const Cell& cell);
    std::size_t dates() const;
    /// Those that do not fit the order of day and month of the others.
    const Tally& oddDates() const { return tally(m_monthFirst ? CellKind::DayFirstDate : CellKind::MonthFirstDate); }
    ColumnSummary::Kind kind() const;
    double valueAs(ColumnSummary::Kind kind, CellKind cell, double value) const;
    void unify(ColumnSummary::Kind kind, TextSource& source);
    bool hasOnlyCompactDates(TextSource& source) const;
    void addNotes(ColumnSummary::Kind kind, std::vector<std::string>& notes) const;
    void addNote(const Tally& tally, const std::string& what, std::vector<std::string>& notes) const;

    std::string m_name;
    std::string m_unit;
    std::vector<double> m_values;
    std::vector<Run> m_runs;
    CellKind m_lastKind = CellKind::Missing; ///< of the last run
    std::array<Tally, CellKinds> m_tallies;
    double m_smallest = std::numeric_limits<double>::infinity();
    double m_largest = -std::numeric_limits<double>::infinity();
    bool m_isDate = false;
    bool m_monthFirst = false;
};

} // namespace velmora::engine
