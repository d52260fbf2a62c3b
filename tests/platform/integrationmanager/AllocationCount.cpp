#include "AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {

long allocations = 0;

} // namespace

long velmora::tests::allocationCount()
{
    return allocations;
}

void* operator new(std::size_t size)
{
    ++allocations;
    if (void* const memory = std::malloc(size != 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
