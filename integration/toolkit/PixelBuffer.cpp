#include "integration/toolkit/PixelBuffer.h"

#include <vector>

namespace velmora::sdk::integration::toolkit {

std::unique_ptr<PixelBuffer> newUsablePixelBuffer(const QSize& size, const FormatRequest& request)
{
    auto buffer = std::make_unique<PixelBuffer>(size, request);
    if (buffer->isUsable())
        return buffer;
    if (!buffer->canBeDestroyed()) {
        // Kept for good: rather some memory than the application.
        static auto& abandoned = *std::make_unique<std::vector<std::unique_ptr<PixelBuffer>>>().release();
        abandoned.push_back(std::move(buffer));
    }
    return nullptr;
}

} // namespace velmora::sdk::integration::toolkit
