#pragma once

#include <QGLPixelBuffer>
#include <QImage>

namespace velmora::sdk::integration::toolkit {

/// Whether the toolkit can give pixel buffers in this process. Asks nothing of a window system that
/// is not there.
bool hasPixelBuffers();

/// The toolkit's pixel buffer, with an honest answer to whether it can be drawn into and with a
/// read-back that is right for every format. GUI thread only.
class PixelBuffer : public QGLPixelBuffer {
public:
    /// A size that canDrawOffscreen(). The context that is current stays current.
    PixelBuffer(const QSize& size, const QGLFormat& format);

    /// Whether the buffer exists, has this size and at least the samples that its format asked for.
    /// Qt 5 calls a buffer valid without any of these: it draws into a framebuffer object, with
    /// fewer samples where the driver has fewer. That object has at most 24 bits of depth and no
    /// accumulation, whatever is asked for; a buffer is not given up for that.
    bool isUsable() const { return m_usable; }

    /// What has been drawn, the top row first. Makes the buffer's context current. A null image
    /// when it cannot be read. Pixel storage modes that the drawing left behind do not matter.
    QImage readBack();

private:
    bool m_usable = false;
    /// The framebuffer object behind the buffer, where there is one, and whether it must be resolved
    /// before it can be read.
    unsigned m_framebuffer = 0;
    bool m_multisampled = false;
};

} // namespace velmora::sdk::integration::toolkit
