#pragma once

#include "engine/data/RecordReader.h"

#include <string_view>

namespace velmora::engine {

/// The delimiter that gives the lines of a sample the same number of fields, more than one. Of
/// several: tab, then semicolon, comma, blanks, because what comes later may occur in values (a
/// decimal comma, the blank between date and time). `isWhole` when nothing follows the sample.
Delimiter guessDelimiter(std::string_view sample, bool isWhole);

} // namespace velmora::engine
