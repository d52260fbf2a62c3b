#pragma once

#include "engine/data/Grid.h"
#include "engine/data/Table.h"

#include <memory>
#include <variant>

namespace velmora::engine {

/// What a file holds.
using DataSet = std::variant<std::shared_ptr<const Table>, std::shared_ptr<const Grid>>;

} // namespace velmora::engine
