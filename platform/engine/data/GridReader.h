#pragma once

#include "engine/data/Grid.h"
#include "engine/data/GridHeader.h"

#include <memory>
#include <string_view>

namespace velmora::engine {

class TextSource;

/// Reads an ESRI ASCII grid. The numbers go straight into their place: besides them the reading
/// needs no memory to speak of.
class GridReader {
public:
    explicit GridReader(TextSource& source) : m_source(source) {}

    /// Throws ReadError and ReadInterrupted.
    std::shared_ptr<Grid> read();

private:
    void start(Grid& grid);
    void readValues(Grid& grid);
    void expectEnd(const Grid& grid);
    void describe(Grid& grid) const;
    void add(Grid& grid, float value);
    float valueOf(std::string_view word) const;
    float valueOfUncommon(std::string_view word) const;
    [[noreturn]] void failCount(const Grid& grid, std::uint64_t found) const;

    TextSource& m_source;
    GridHeader m_header;
};

} // namespace velmora::engine
