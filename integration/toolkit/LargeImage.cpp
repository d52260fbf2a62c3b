#include "integration/toolkit/LargeImage.h"

#include <cstdint>
#include <sys/mman.h>

namespace velmora::sdk::integration::toolkit {

namespace {

constexpr std::uintptr_t LargePage = std::uintptr_t{2} << 20;

/// Advice only: a system without large pages ignores it.
void adviseLargePages(void* memory, std::uintptr_t bytes)
{
    const auto start = (reinterpret_cast<std::uintptr_t>(memory) + LargePage - 1) / LargePage * LargePage;
    const auto end = (reinterpret_cast<std::uintptr_t>(memory) + bytes) / LargePage * LargePage;
    if (start < end)
        madvise(reinterpret_cast<void*>(start), end - start, MADV_HUGEPAGE);
}

} // namespace

QImage newLargeImage(int width, int height, QImage::Format format)
{
    QImage image(width, height, format);
    if (!image.isNull())
        adviseLargePages(image.bits(),
                         static_cast<std::uintptr_t>(image.bytesPerLine()) * static_cast<std::uintptr_t>(height));
    return image;
}

} // namespace velmora::sdk::integration::toolkit
