#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace velmora::sdk::integration::intern {

/// Memory for the pixels of an image, 0 at first. The system hands it out zeroed, page by page as it is
/// used and in large pages where it has them: nothing is filled that is drawn over.
class PixelMemory {
public:
    /// Throws velmora::ExceptionBase with the size and what helps when there is not so much. Neither side
    /// is negative, and their product fits.
    PixelMemory(int width, int height);
    ~PixelMemory();
    PixelMemory(const PixelMemory&) = delete;
    PixelMemory& operator=(const PixelMemory&) = delete;

    std::uint32_t* pixels() const { return m_pixels; }

private:
    std::size_t m_bytes;
    std::uint32_t* m_pixels = nullptr;
};

} // namespace velmora::sdk::integration::intern
