#include "integration/offscreen/PixelMemory.h"

#include "exception/ExceptionBase.h"
#include "integration/offscreen/ImageSizeText.h"

#include <algorithm>

#include <sys/mman.h>

namespace velmora::sdk::integration::intern {

namespace {

std::size_t bytesOf(int width, int height)
{
    const std::size_t bytes =
        sizeof(std::uint32_t) * static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    return std::max<std::size_t>(bytes, 1); // the system gives no memory of no size
}

[[noreturn]] void fail(int width, int height, std::size_t bytes)
{
    constexpr std::size_t Megabyte = std::size_t{1} << 20;
    throw ExceptionBase("There is no memory for an off-screen image of " + sizeText(width, height) + " pixels, " +
                            std::to_string((bytes + Megabyte - 1) / Megabyte) + " MB" + TrySmaller,
                        false);
}

} // namespace

PixelMemory::PixelMemory(int width, int height) : m_bytes(bytesOf(width, height))
{
    void* const memory = mmap(nullptr, m_bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        fail(width, height, m_bytes);
    // Advice only: a system without large pages ignores it.
    madvise(memory, m_bytes, MADV_HUGEPAGE);
    m_pixels = static_cast<std::uint32_t*>(memory);
}

PixelMemory::~PixelMemory()
{
    munmap(m_pixels, m_bytes);
}

} // namespace velmora::sdk::integration::intern
