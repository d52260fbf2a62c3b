#include "integration/toolkit/FramebufferLimit.h"

#include "integration/toolkit/CurrentContext.h"

#include <QSize>
#include <algorithm>

#if QT_VERSION >= 0x050000
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#endif

namespace velmora::sdk::integration::toolkit {

namespace {

#if QT_VERSION >= 0x050000

QSize limitOf(QOpenGLFunctions& gl)
{
    GLint texture = 0;
    GLint renderbuffer = 0;
    GLint viewport[2] = {0, 0};
    gl.glGetIntegerv(GL_MAX_TEXTURE_SIZE, &texture);
    gl.glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &renderbuffer);
    gl.glGetIntegerv(GL_MAX_VIEWPORT_DIMS, viewport);
    const int side = std::min(texture, renderbuffer);
    return QSize(std::min(side, viewport[0]), std::min(side, viewport[1]));
}

/// Empty where there is no OpenGL.
QSize queryLimit()
{
    const CurrentContextKeeper keeper;
    QOpenGLContext context;
    if (!context.create())
        return QSize();
    QOffscreenSurface surface;
    surface.setFormat(context.format());
    surface.create();
    return context.makeCurrent(&surface) ? limitOf(*context.functions()) : QSize();
}

#else

/// The largest drawable of the X protocol: Qt 4 draws into pixel buffers and pixmaps of the server,
/// which itself refuses what it cannot hold.
QSize queryLimit()
{
    return QSize(32767, 32767);
}

#endif

} // namespace

bool canDrawOffscreen(const QSize& size)
{
    if (size.isEmpty())
        return false;
    static const QSize limit = queryLimit();
    return size.width() <= limit.width() && size.height() <= limit.height();
}

} // namespace velmora::sdk::integration::toolkit
