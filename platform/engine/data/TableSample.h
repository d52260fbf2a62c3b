#pragma once

#include "engine/data/Cell.h"
#include "engine/data/RecordReader.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::engine {

struct SampleField {
    std::string text;
    Cell cell;
    bool isWord() const { return cell.kind == CellKind::Word; }
    bool isValue() const { return engine::isValue(cell.kind); }
};

struct SampleRow {
    long line = 0;
    std::vector<SampleField> fields;
};

/// The first records of a text as one delimiter takes them apart.
struct Sample {
    Delimiter delimiter = Delimiter::Comma;
    char decimalMark = '.';
    bool isMarkClear = false;
    std::vector<SampleRow> rows;
    std::size_t columns = 0; ///< that most rows have, the later the more it counts
    double score = 0;        ///< how much speaks for the delimiter
};

/// Takes the beginning of a text apart by one delimiter.
Sample sampleOf(std::string_view text, Delimiter delimiter);
/// By the delimiter for which most speaks; by the comma where nothing delimits.
Sample bestSample(std::string_view text);
/// Whether the text begins with Excel's line that names the delimiter, such as sep=;
bool takeSeparatorLine(std::string_view text, Delimiter& delimiter);

} // namespace velmora::engine
