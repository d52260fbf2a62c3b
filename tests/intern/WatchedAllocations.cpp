#include "tests/intern/WatchedAllocations.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace velmora::test {

namespace {

// Without allocations of its own.
std::array<const void*, 64> g_watched;
std::size_t g_count = 0;

void forget(const void* block)
{
    const auto end = g_watched.begin() + static_cast<std::ptrdiff_t>(g_count);
    const auto place = std::find(g_watched.begin(), end, block);
    if (place == end)
        return;
    *place = g_watched[g_count - 1];
    --g_count;
}

} // namespace

void WatchedAllocations::reset()
{
    g_count = 0;
}

void WatchedAllocations::watch(const void* block)
{
    forget(block);
    if (g_count == g_watched.size())
        std::abort();
    g_watched[g_count++] = block;
}

int WatchedAllocations::alive()
{
    return static_cast<int>(g_count);
}

} // namespace velmora::test

void* operator new(std::size_t size)
{
    if (void* const block = std::malloc(size ? size : 1))
        return block;
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept
{
    if (velmora::test::g_count > 0)
        velmora::test::forget(block);
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    operator delete(block);
}
