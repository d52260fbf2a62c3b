#include "integration/toolkit/LargeImage.h"

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

std::uint32_t* LargeImage::pixelsFor(int width, int height)
{
    if (!m_image.isDetached() || m_image.size() != QSize(width, height)) {
        m_image = QImage(); // before there are two
        m_image = QImage(width, height, QImage::Format_RGB32);
        if (!m_image.isNull())
            adviseLargePages(m_image.bits(),
                             static_cast<std::uintptr_t>(m_image.bytesPerLine()) * static_cast<std::uintptr_t>(height));
    }
    return reinterpret_cast<std::uint32_t*>(m_image.bits());
}

} // namespace velmora::sdk::integration::toolkit
