#pragma once

#include "engine/page/Paper.h"
#include "engine/plot/Plot.h"

#include <memory>
#include <vector>

namespace velmora::engine {

/// A place on the paper with what it shows. The content is shared with the work that draws it, so that
/// a page can get other frames while it is being drawn.
struct Frame {
    InchRect rect;
    std::shared_ptr<Content> content;
};

/// The rectangle around all frames.
InchRect boundsOf(const std::vector<Frame>& frames);
/// Scales and moves all frames together until the rectangle around them is `target`.
void fitFramesInto(std::vector<Frame>& frames, const InchRect& target);

} // namespace velmora::engine
