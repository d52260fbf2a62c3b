#include "integration/toolkit/FramebufferLimit.h"

#include "integration/toolkit/CurrentContext.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QSize>
#include <algorithm>

namespace velmora::sdk::integration::toolkit {

namespace {

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

} // namespace

QSize largestOffscreenSize()
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

} // namespace velmora::sdk::integration::toolkit
