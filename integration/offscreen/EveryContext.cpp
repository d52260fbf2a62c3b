#include "integration/offscreen/EveryContext.h"

#include "integration/opengl/EglLibrary.h"

#include <GL/glx.h>

namespace velmora::sdk::integration::intern {

namespace {

/// What is current by GLX.
struct GlxState {
    Display* display = glXGetCurrentDisplay();
    GLXContext context = glXGetCurrentContext();
    GLXDrawable draw = glXGetCurrentDrawable();
    GLXDrawable read = glXGetCurrentReadDrawable();

    void restore() const
    {
        if (context && glXGetCurrentContext() != context)
            glXMakeContextCurrent(display, draw, read, context);
    }
    static void release()
    {
        if (glXGetCurrentContext())
            glXMakeContextCurrent(glXGetCurrentDisplay(), 0, 0, nullptr);
    }
};

/// What is current by EGL, of whichever of its APIs.
struct EglState {
    EglState()
    {
        const EglLibrary* const library = loadedEgl();
        if (!library || !library->GetCurrentContext())
            return;
        display = library->GetCurrentDisplay();
        context = library->GetCurrentContext();
        draw = library->GetCurrentSurface(EGL_DRAW);
        read = library->GetCurrentSurface(EGL_READ);
    }
    void restore() const
    {
        if (context != EGL_NO_CONTEXT && loadedEgl()->GetCurrentContext() != context)
            loadedEgl()->MakeCurrent(display, draw, read, context);
    }
    static void release()
    {
        const EglLibrary* const library = loadedEgl();
        if (library && library->GetCurrentContext())
            library->MakeCurrent(library->GetCurrentDisplay(), EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    }

    EGLDisplay display = EGL_NO_DISPLAY;
    EGLContext context = EGL_NO_CONTEXT;
    EGLSurface draw = EGL_NO_SURFACE;
    EGLSurface read = EGL_NO_SURFACE;
};

} // namespace

void releaseEveryContext()
{
    toolkit::releaseCurrentContext();
    GlxState::release();
    EglState::release();
}

struct EveryContextKeeper::Kept {
    GlxState glx;
    EglState egl;
};

EveryContextKeeper::EveryContextKeeper()
    : m_kept(std::make_unique<Kept>()), m_toolkits(std::make_unique<toolkit::CurrentContextKeeper>())
{}

// The toolkit first, so that it knows of its context; what is really current then is what it was.
EveryContextKeeper::~EveryContextKeeper()
{
    releaseEveryContext();
    m_toolkits.reset();
    if (m_kept->glx.context)
        EglState::release();
    m_kept->glx.restore();
    if (m_kept->egl.context != EGL_NO_CONTEXT)
        GlxState::release();
    m_kept->egl.restore();
}

} // namespace velmora::sdk::integration::intern
