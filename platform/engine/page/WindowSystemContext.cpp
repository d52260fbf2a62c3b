#include "engine/page/WindowSystemContext.h"

#include "engine/gl/OpenGLLibraries.h"

#define EGL_NO_X11
#define MESA_EGL_NO_X11_HEADERS
#include <EGL/egl.h>
#include <GL/glx.h>

namespace velmora::engine {

namespace {

template <typename Function>
Function egl(const char* name)
{
    return reinterpret_cast<Function>(eglFunction(name));
}

EGLContext currentEglContext()
{
    const auto current = egl<decltype(&::eglGetCurrentContext)>("eglGetCurrentContext");
    return current ? current() : EGL_NO_CONTEXT;
}

} // namespace

WindowSystemContext::WindowSystemContext()
{
    if (GLXContext const context = glXGetCurrentContext()) {
        m_context = context;
        m_display = glXGetCurrentDisplay();
        m_glxDraw = glXGetCurrentDrawable();
        m_glxRead = glXGetCurrentReadDrawable();
    } else if (EGLContext const other = currentEglContext()) {
        m_isEgl = true;
        m_context = other;
        m_display = egl<decltype(&::eglGetCurrentDisplay)>("eglGetCurrentDisplay")();
        m_eglDraw = egl<decltype(&::eglGetCurrentSurface)>("eglGetCurrentSurface")(EGL_DRAW);
        m_eglRead = egl<decltype(&::eglGetCurrentSurface)>("eglGetCurrentSurface")(EGL_READ);
    }
}

bool WindowSystemContext::makeCurrentAgain() const
{
    if (!m_context)
        return true;
    return m_isEgl ? makeEglCurrentAgain() : makeGlxCurrentAgain();
}

bool WindowSystemContext::makeGlxCurrentAgain() const
{
    const auto context = static_cast<GLXContext>(m_context);
    return glXGetCurrentContext() == context ||
           glXMakeContextCurrent(static_cast<Display*>(m_display), m_glxDraw, m_glxRead, context) != 0;
}

bool WindowSystemContext::makeEglCurrentAgain() const
{
    return currentEglContext() == m_context ||
           egl<decltype(&::eglMakeCurrent)>("eglMakeCurrent")(m_display, m_eglDraw, m_eglRead, m_context) == EGL_TRUE;
}

NoWindowSystemContext::NoWindowSystemContext()
{
    if (glXGetCurrentContext())
        glXMakeContextCurrent(glXGetCurrentDisplay(), 0, 0, nullptr);
    else if (currentEglContext())
        egl<decltype(&::eglMakeCurrent)>("eglMakeCurrent")(
            egl<decltype(&::eglGetCurrentDisplay)>("eglGetCurrentDisplay")(), EGL_NO_SURFACE, EGL_NO_SURFACE,
            EGL_NO_CONTEXT);
}

} // namespace velmora::engine
