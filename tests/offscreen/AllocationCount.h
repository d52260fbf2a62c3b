#pragma once

namespace velmora::test {

/// How many pieces of memory the program has asked for so far; -1 when nobody counts, because a
/// sanitizer has the memory in hand.
long allocationCount();

} // namespace velmora::test
