#pragma once

#include "engine/export/RowSink.h"

#include <cstddef>
#include <memory>

namespace velmora::engine {

/// Hands rows on to another sink on a thread of its own, so that they are compressed and written while the
/// next ones are drawn. The other sink is used by that thread alone, until finish() or the end.
class RowsBehind final : public RowSink {
public:
    /// Rows of that many bytes, `behind` of which it may hold at most. The other sink outlives this.
    RowsBehind(RowSink& sink, std::size_t rowBytes, int behind);
    /// Without finish() the rows that wait are dropped.
    ~RowsBehind();
    RowsBehind(const RowsBehind&) = delete;
    RowsBehind& operator=(const RowsBehind&) = delete;

    /// Keeps a copy. Throws what the other sink has thrown at an earlier row.
    void takeRow(int row, const unsigned char* rgb) override;
    /// Waits a moment for room; false when there is none yet. Throws like takeRow().
    bool hasRoom() override;
    /// Waits a moment for the other sink to have all rows; false when it has not yet. Throws like takeRow().
    bool isDone();

private:
    struct Shared;
    std::unique_ptr<Shared> m_shared;
};

} // namespace velmora::engine
