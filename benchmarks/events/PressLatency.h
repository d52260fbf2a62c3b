#pragma once

namespace velmora::benchmark {

/// Prints how long it takes from a real key press to the end of the work that it interrupts.
void measurePressToUnwound();

} // namespace velmora::benchmark
