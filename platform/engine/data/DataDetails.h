#pragma once

#include "engine/data/DataSet.h"

#include <string>
#include <vector>

namespace velmora::engine {

/// What a table holds, in lines whose fields are separated by tabs: a line of titles, then one line a column of the
/// file.
std::string detailsOf(const Table& table);
/// What a grid holds: one line a property, its name and its value with a tab between them.
std::string detailsOf(const Grid& grid);

/// A text in one line and one field.
std::string fieldOf(std::string text);

/// The notes of a data set, one a line.
std::string notesOf(const std::vector<std::string>& notes);

} // namespace velmora::engine
