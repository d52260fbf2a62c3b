#include "integration/toolkit/qt5/FramebufferReading.h"

#include "integration/opengl/FramebufferReader.h"

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
QImage readFramebuffer(unsigned framebuffer, const QSize& size, bool isMultisampled, LargeImage& into)
{
    const intern::ImageFramebuffer source{framebuffer, size.width(), size.height(), isMultisampled};
    std::uint32_t* const pixels = into.pixelsFor(size.width(), size.height());
    const bool read = pixels && intern::readFramebuffer(intern::ReadingGL(entryPoint), source, pixels);
    return read ? into.image() : QImage();
}

int currentInteger(unsigned name)
{
    GLint value = 0;
    QOpenGLContext::currentContext()->functions()->glGetIntegerv(name, &value);
    return value;
}

} // namespace velmora::sdk::integration::toolkit
