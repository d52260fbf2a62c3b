#pragma once

#include "benchmarks/support/Median.h"

#include <vector>

namespace velmora::benchmark {

/// When the windows of this process have shown a picture, which the X server is told by glXSwapBuffers.
/// Up to now, in their order. GUI thread.
const std::vector<Clock::time_point>& swaps();

} // namespace velmora::benchmark
