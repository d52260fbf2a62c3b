#pragma once

#include "engine/core/Checkpoint.h"
#include "engine/data/DataSet.h"

#include <memory>

namespace velmora::engine {

using content::Content;
using content::Detail;
using content::Drawing;
using content::Extent;
using content::PickFilter;
using content::ShownValue;
using content::Side;

/// A plot for the data: XY lines for a table, a surface for a grid. Large data take their time: it asks
/// `checkpoint` to go on, and throws ReadInterrupted when that says no.
std::unique_ptr<Content> makePlot(const DataSet& data, Checkpoint& checkpoint);

} // namespace velmora::engine
