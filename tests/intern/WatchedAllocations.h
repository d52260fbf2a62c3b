#pragma once

namespace velmora::test {

/// Which of the blocks that were pointed out are not freed yet. A program that links it has its own
/// operator new and delete.
class WatchedAllocations {
public:
    static void reset();
    /// Pointing out a block twice counts once.
    static void watch(const void* block);
    static int alive();
};

} // namespace velmora::test
