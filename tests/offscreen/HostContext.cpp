#include "tests/offscreen/HostContext.h"

#include <stdexcept>

#include <GL/glx.h>

namespace velmora::test {

namespace {

/// One connection for the whole program: closing it unloads the driver.
Display* connection()
{
    static Display* const display = XOpenDisplay(nullptr);
    return display;
}

} // namespace

HostContext::HostContext() : m_display(connection())
{
    Display* const display = connection();
    int attributes[] = {GLX_RGBA, GLX_RED_SIZE, 8, GLX_GREEN_SIZE, 8, GLX_BLUE_SIZE, 8, 0};
    XVisualInfo* const visual = display ? glXChooseVisual(display, DefaultScreen(display), attributes) : nullptr;
    if (!visual)
        throw std::runtime_error("There is no GLX.");
    XSetWindowAttributes wanted = {};
    wanted.colormap = XCreateColormap(display, DefaultRootWindow(display), visual->visual, AllocNone);
    m_window = XCreateWindow(display, DefaultRootWindow(display), 0, 0, 32, 32, 0, visual->depth, InputOutput,
                             visual->visual, CWColormap | CWBorderPixel, &wanted);
    m_context = glXCreateContext(display, visual, nullptr, True);
    XFree(visual);
}

HostContext::~HostContext()
{
    if (isCurrent())
        release();
    glXDestroyContext(connection(), static_cast<GLXContext>(m_context));
    XDestroyWindow(connection(), m_window);
}

bool HostContext::makeCurrent() const
{
    return glXMakeCurrent(connection(), m_window, static_cast<GLXContext>(m_context)) != 0;
}

bool HostContext::isCurrent() const
{
    return glXGetCurrentContext() == m_context;
}

void HostContext::release() const
{
    glXMakeCurrent(connection(), 0, nullptr);
}

bool HostContext::draws(int red) const
{
    glClearColor(static_cast<float>(red) / 255.0f, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    unsigned char pixel[4] = {1, 1, 1, 1};
    glReadPixels(0, 0, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
    return pixel[0] == red && pixel[1] == 0 && glGetError() == GL_NO_ERROR;
}

} // namespace velmora::test
