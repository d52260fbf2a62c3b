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
/// of column it is.
class ColumnBuilder {
public:
    explicit ColumnBuilder(std::string name) : m_name(std::move(name)) {}

    void reserve(std::size_t rows) { m_values.reserve(rows); }
    void add(const Cell& cell, std::string_view text, long line);

    const std::string& name() const { return m_name; }
    std::size_t gaps() const { return m_tallies[index(CellKind::Missing)].count; }
    /// What nearly all values are; Missing when there are none at all. Throws ReadError where some
    /// are not of that kind. A column with more words than numbers and dates is text.
    CellKind kind(const TextSource& source) const;
    Column take(CellKind kind);

private:
    /// How often a kind occurred, and where first.
    struct Tally {
        std::size_t count = 0;
        long line = 0;
        std::string text;
    };

    static constexpr std::size_t index(CellKind kind) { return static_cast<std::size_t>(kind); }
    const Tally& tally(CellKind kind) const { return m_tallies[index(kind)]; }
    void refuse(CellKind odd, CellKind kind, const TextSource& source) const;

    std::string m_name;
    std::vector<double> m_values;
    std::array<Tally, 4> m_tallies;
};

} // namespace velmora::engine
