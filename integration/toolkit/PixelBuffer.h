#pragma once

#include "integration/toolkit/FormatRequest.h"

#include <QImage>
#include <memory>

namespace velmora::sdk::integration::toolkit {

/// Whether the toolkit can give pixel buffers in this process. Asks nothing of a window system that
/// is not there.
bool hasPixelBuffers();

/// A buffer of the toolkit to draw into off screen with OpenGL, in a context of its own. GUI thread only.
class PixelBuffer {
public:
    /// A size that canDrawOffscreen(). The context that is current stays current.
    PixelBuffer(const QSize& size, const FormatRequest& request);
    ~PixelBuffer();
    PixelBuffer(const PixelBuffer&) = delete;
    PixelBuffer& operator=(const PixelBuffer&) = delete;

    /// Whether the buffer exists, can be made current, has its size and at least the samples that were asked for.
    /// Qt 5 calls a buffer valid without any of these: it draws into a framebuffer object, with fewer samples
    /// where the driver has fewer. That object has at most 24 bits of depth and no accumulation, whatever is asked for;
    /// a buffer is not given up for that.
    bool isUsable() const;

    /// In pixels, of the buffer that was really made.
    QSize size() const;

    /// Makes the buffer's context current with the buffer to draw into, whatever framebuffer object was bound
    /// to it before; whether that is so now. After a no, nothing may be drawn: whatever was current before may
    /// still be.
    bool makeCurrent();
    /// Leaves no context current, whosever it was.
    void doneCurrent();

    /// What has been drawn, the top row first. Makes the buffer's context current. A null image
    /// when it cannot be read, for whatever reason. How the drawing left pixels to be stored or changed on their way,
    /// and a buffer object that it left bound for them, do not matter and are as they were afterwards.
    QImage readBack();

    /// Whether the toolkit survives it when the buffer is destroyed now. The context that is current
    /// stays current.
    bool canBeDestroyed();

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

/// A buffer that is usable, or null. A size that canDrawOffscreen(). The context that is current stays
/// current.
std::unique_ptr<PixelBuffer> newUsablePixelBuffer(const QSize& size, const FormatRequest& request);

} // namespace velmora::sdk::integration::toolkit
