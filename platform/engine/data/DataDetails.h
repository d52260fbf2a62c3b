#pragma once

#include "engine/data/DataSet.h"

#include <string>

namespace velmora::engine {

/// What a data set holds, in lines whose fields are separated by tabs. Of a table: a line of titles, then one line a
/// column of the file. Of a grid: one line a property, its name and its value.
std::string detailsOf(const DataSet& data);

/// A text in one line and one field.
std::string fieldOf(std::string text);

/// Its notes, one a line.
std::string notesOf(const DataSet& data);

} // namespace velmora::engine
