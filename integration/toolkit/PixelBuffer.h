#pragma once

#include <QGLPixelBuffer>
#include <QImage>
#include <memory>

namespace velmora::sdk::integration::toolkit {

/// Whether the toolkit can give pixel buffers in this process. Asks nothing of a window system that
/// is not there.
bool hasPixelBuffers();

/// Makes the buffer's context current; whether it is now. The buffer's own makeCurrent() answers yes
/// for every valid buffer, even when the window system refused. The answers differ only where that
/// yes is untrue. After a no, nothing may be drawn: whatever was current before may still be.
bool reallyMakeCurrent(QGLPixelBuffer& buffer);

/// The toolkit's pixel buffer, with an honest answer to whether it can be drawn into and with a
/// read-back that is right for every format. GUI thread only.
class PixelBuffer : public QGLPixelBuffer {
public:
    /// A size that canDrawOffscreen(). The context that is current stays current.
    PixelBuffer(const QSize& size, const QGLFormat& format);

    /// Whether the buffer exists, can be made current, has this size and at least the samples that its format asked
    /// for. Qt 5 calls a buffer valid without any of these: it draws into a framebuffer object, with fewer samples
    /// where the driver has fewer. That object has at most 24 bits of depth and no accumulation, whatever is asked for;
    /// a buffer is not given up for that.
    bool isUsable() const { return m_usable; }

    /// What has been drawn, the top row first. Makes the buffer's context current. A null image
    /// when it cannot be read. How the drawing left pixels to be stored or changed on their way, and
    /// a buffer object that it left bound for them, do not matter and are as they were afterwards.
    QImage readBack();

    /// Whether the toolkit survives it when the buffer is destroyed now. The context that is current
    /// stays current.
    bool canBeDestroyed();

private:
    bool m_usable = false;
#if QT_VERSION >= 0x050000
    /// The framebuffer object behind the buffer, and whether it must be resolved before it can be read.
    unsigned m_framebuffer = 0;
    bool m_multisampled = false;
#endif
};

/// A buffer that is usable, or null. A size that canDrawOffscreen(). The context that is current stays
/// current.
std::unique_ptr<PixelBuffer> newUsablePixelBuffer(const QSize& size, const QGLFormat& format);

} // namespace velmora::sdk::integration::toolkit
