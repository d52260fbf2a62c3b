#pragma once

#include "engine/data/Grid.h"
#include "engine/data/GridHeader.h"

#include <memory>
#include <string>
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
    /// What becomes a gap although it does not mark one: how often, and where first.
    struct OddWords {
        std::size_t count = 0;
        long line = 0;
        std::string text;
    };

    static void addNote(const OddWords& odd, const std::string& what, Grid& grid);
    void start(Grid& grid);
    void readValues(Grid& grid);
    void expectEnd(const Grid& grid);
    void describe(Grid& grid) const;
    void add(Grid& grid, float value);
    float valueOf(std::string_view word);
    float valueOfUncommon(std::string_view word);
    [[noreturn]] void failAtWord(long line, const std::string& word) const;
    [[noreturn]] void failCount(const Grid& grid, std::uint64_t found) const;

    TextSource& m_source;
    GridHeader m_header;
    OddWords m_words;
    OddWords m_tooLarge;
    bool m_hasNoData = false;
};

} // namespace velmora::engine
