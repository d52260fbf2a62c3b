#pragma once

#include "benchmarks/support/Median.h"

namespace velmora::benchmark {

/// What the windows of this process have shown, which the X server is told by glXSwapBuffers.
struct Swaps {
    long count = 0;
    Clock::time_point last;
};

/// Up to now. GUI thread.
const Swaps& swaps();

} // namespace velmora::benchmark
