#include "integration/toolkit/PixelBuffer.h"

#include "integration/toolkit/FramebufferLimit.h"
#include "integration/toolkit/GuiClient.h"

#include <vector>

namespace velmora::sdk::integration::toolkit {

bool hasPixelBuffers()
{
    // Without OpenGL the toolkit's own question is a null dereference.
    return isGuiClient() && canDrawOffscreen(QSize(1, 1)) && QGLPixelBuffer::hasOpenGLPbuffers();
}

std::unique_ptr<PixelBuffer> newUsablePixelBuffer(const QSize& size, const QGLFormat& format)
{
    auto buffer = std::make_unique<PixelBuffer>(size, format);
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
