#pragma once

#include "engine/data/DataSet.h"
#include "engine/page/Paper.h"

#include <memory>
#include <vector>

namespace velmora::engine {

class Plot;

/// A place on the paper with what it shows. The plot is shared with the work that draws it, so that
/// a page can get other frames while it is being drawn.
struct Frame {
    InchRect rect;
    std::shared_ptr<Plot> plot;
    DataSet data = {}; ///< what the plot was made from
};

/// The rectangle around all frames.
InchRect boundsOf(const std::vector<Frame>& frames);
/// Scales and moves all frames together until the rectangle around them is `target`.
void fitFramesInto(std::vector<Frame>& frames, const InchRect& target);

} // namespace velmora::engine
