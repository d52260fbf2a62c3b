#include "integration/opengl/SurfacelessContext.h"

#include "integration/opengl/ReadingGL.h"

#include <cstring>

namespace velmora::sdk::integration::intern {

namespace {

/// Any of EGL's configurations that OpenGL draws with; it has no part in a context without a surface,
/// except that some libraries insist on one.
EGLConfig anyConfig(const EglLibrary& library, EGLDisplay display)
{
    const char* const extensions = library.QueryString(display, EGL_EXTENSIONS);
    if (extensions && std::strstr(extensions, "EGL_KHR_no_config_context"))
        return nullptr;
    const EGLint wanted[] = {EGL_SURFACE_TYPE, 0, EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT, EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    library.ChooseConfig(display, wanted, &config, 1, &count);
    return config;
}

bool isNameOfSoftware(const char* renderer)
{
    for (const char* const name : {"llvmpipe", "softpipe", "swrast", "SWR", "Software Rasterizer"})
        if (renderer && std::strstr(renderer, name))
            return true;
    return false;
}

ReadingGL::EntryPoint entryPoint(const char* name)
{
    return egl()->GetProcAddress(name);
}

/// The one that was made current last and not released since. The GUI thread's.
const SurfacelessContext* lastCurrent = nullptr;

} // namespace

const ReadingGL& SurfacelessContext::gl()
{
    static const ReadingGL functions(entryPoint);
    return functions;
}

SurfacelessContext::SurfacelessContext(const EglLibrary& library, EGLDisplay display, EGLContext context)
    : m_egl(library), m_display(display), m_context(context)
{}

std::unique_ptr<SurfacelessContext> SurfacelessContext::create(EglRenderer renderer)
{
    const EglLibrary* const library = egl();
    if (!library)
        return nullptr;
    for (const EglDevice& device : eglDevices(*library, renderer))
        if (std::unique_ptr<SurfacelessContext> context = createOn(*library, device, renderer))
            return context;
    return nullptr;
}

// Initialising a display once more does nothing, unless somebody has ended it meanwhile.
std::unique_ptr<SurfacelessContext> SurfacelessContext::createOn(const EglLibrary& library, const EglDevice& device,
                                                                 EglRenderer renderer)
{
    const EglForOpenGL forOpenGL(library);
    if (!library.Initialize(device.display, nullptr, nullptr))
        return nullptr;
    EGLContext const handle =
        library.CreateContext(device.display, anyConfig(library, device.display), EGL_NO_CONTEXT, nullptr);
    if (handle == EGL_NO_CONTEXT)
        return nullptr;
    std::unique_ptr<SurfacelessContext> context(new SurfacelessContext(library, device.display, handle));
    return context->draws(renderer, device.isKnownSoftware) ? std::move(context) : nullptr;
}

bool SurfacelessContext::draws(EglRenderer renderer, bool isKnownSoftware) const
{
    if (!makeCurrent())
        return false;
    const auto* const name = gl().GetString ? reinterpret_cast<const char*>(gl().GetString(GL_RENDERER)) : nullptr;
    const bool suits = renderer == EglRenderer::Any || isKnownSoftware || isNameOfSoftware(name);
    const bool drawing = name && suits && gl().hasFramebufferObjects();
    release();
    return drawing;
}

SurfacelessContext::~SurfacelessContext()
{
    release();
    m_egl.DestroyContext(m_display, m_context);
}

bool SurfacelessContext::makeCurrent() const
{
    const EglForOpenGL forOpenGL(m_egl);
    if (m_egl.MakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, m_context) != EGL_TRUE)
        return false;
    lastCurrent = this;
    return true;
}

void SurfacelessContext::release() const
{
    const EglForOpenGL forOpenGL(m_egl);
    if (isCurrent())
        m_egl.MakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    if (lastCurrent == this)
        lastCurrent = nullptr;
}

void SurfacelessContext::releaseCurrent()
{
    if (lastCurrent)
        lastCurrent->release();
}

bool SurfacelessContext::isCurrent() const
{
    return m_egl.GetCurrentContext() == m_context;
}

} // namespace velmora::sdk::integration::intern
