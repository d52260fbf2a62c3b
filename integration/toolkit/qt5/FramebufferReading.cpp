#include "integration/toolkit/qt5/FramebufferReading.h"

#include "integration/opengl/FramebufferReader.h"
#include "integration/toolkit/LargeImage.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

namespace velmora::sdk::integration::toolkit {

namespace {

intern::ReadingGL::EntryPoint entryPoint(const char* name)
{
    return QOpenGLContext::currentContext()->getProcAddress(name);
}

} // namespace

// The toolkit's own way fills two images with the pixels, one after the other, and asks for no errors.
QImage readFramebuffer(unsigned framebuffer, const QSize& size, bool isMultisampled)
{
    QImage image = newLargeImage(size.width(), size.height(), QImage::Format_RGB32);
    if (image.isNull())
        return image;
    const intern::ImageFramebuffer source{framebuffer, size.width(), size.height(), isMultisampled};
    auto* const pixels = reinterpret_cast<std::uint32_t*>(image.bits());
    return intern::readFramebuffer(intern::ReadingGL(entryPoint), source, pixels) ? image : QImage();
}

int currentInteger(unsigned name)
{
    GLint value = 0;
    QOpenGLContext::currentContext()->functions()->glGetIntegerv(name, &value);
    return value;
}

} // namespace velmora::sdk::integration::toolkit
