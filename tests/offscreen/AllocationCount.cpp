#include "tests/offscreen/AllocationCount.h"

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)

namespace velmora::test {

long allocationCount()
{
    return -1;
}

} // namespace velmora::test

#else

#include <atomic>

namespace {

std::atomic<long> count{0};

} // namespace

// The C library lets a program have a malloc of its own; operator new and the toolkit go through it.
extern "C" void* __libc_malloc(std::size_t size);

extern "C" void* malloc(std::size_t size)
{
    ++count;
    return __libc_malloc(size);
}

namespace velmora::test {

long allocationCount()
{
    return count;
}

} // namespace velmora::test

#endif
