#include "tests/support/SoftwareContext.h"

#include "integration/opengl/EglDevices.h"
#include "integration/opengl/OSMesaLibrary.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <stdexcept>

namespace velmora::test {

namespace {

using namespace sdk::integration::intern;

constexpr int DepthBits = 24;
constexpr int StencilBits = 8;

std::size_t bytesOf(int width, int height)
{
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
}

class OSMesaContextOfTests : public SoftwareContext {
public:
    OSMesaContextOfTests() : m_context(osMesa()->createContextExt(GL_RGBA, DepthBits, StencilBits, 0, nullptr))
    {
        if (!m_context)
            throw std::runtime_error("OSMesa gave no context.");
    }
    ~OSMesaContextOfTests() override { osMesa()->destroyContext(m_context); }

    bool makeCurrent(int width, int height) override
    {
        m_memory.resize(bytesOf(width, height));
        return osMesa()->makeCurrent(m_context, m_memory.data(), GL_UNSIGNED_BYTE, width, height) != 0;
    }
    void release() override { osMesa()->makeCurrent(nullptr, nullptr, GL_UNSIGNED_BYTE, 0, 0); }
    EntryPoint entryPoint(const char* name) const override { return osMesa()->getProcAddress(name); }

private:
    OSMesaLibrary::Context m_context;
    std::vector<unsigned char> m_memory;
};

template <typename Function>
Function* eglFunction(Function*, const char* name)
{
    return reinterpret_cast<Function*>(egl()->GetProcAddress(name));
}

#define EGL_FUNCTION(name) eglFunction(decltype (&::name)(), #name)

class EglContextOfTests : public SoftwareContext {
public:
    EglContextOfTests() : m_display(eglDevices(*egl(), EglRenderer::Software).at(0).display)
    {
        egl()->Initialize(m_display, nullptr, nullptr);
        const EglForOpenGL forOpenGL(*egl());
        const EGLint wanted[] = {
            EGL_SURFACE_TYPE, EGL_PBUFFER_BIT, EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT, EGL_RED_SIZE, 8, EGL_ALPHA_SIZE, 8,
            EGL_DEPTH_SIZE,   DepthBits,       EGL_STENCIL_SIZE,    StencilBits,    EGL_NONE};
        EGLint count = 0;
        egl()->ChooseConfig(m_display, wanted, &m_config, 1, &count);
        m_context = count > 0 ? egl()->CreateContext(m_display, m_config, EGL_NO_CONTEXT, nullptr) : EGL_NO_CONTEXT;
        if (m_context == EGL_NO_CONTEXT)
            throw std::runtime_error("EGL gave no context.");
    }
    ~EglContextOfTests() override
    {
        if (egl()->GetCurrentContext() == m_context)
            release();
        egl()->DestroyContext(m_display, m_context);
        removeSurface();
    }

    bool makeCurrent(int width, int height) override
    {
        const EglForOpenGL forOpenGL(*egl());
        if (width != m_width || height != m_height)
            replaceSurface(width, height);
        return egl()->MakeCurrent(m_display, m_surface, m_surface, m_context) == EGL_TRUE;
    }
    void release() override
    {
        const EglForOpenGL forOpenGL(*egl());
        egl()->MakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    }
    EntryPoint entryPoint(const char* name) const override { return egl()->GetProcAddress(name); }

private:
    void replaceSurface(int width, int height)
    {
        release();
        removeSurface();
        const EGLint size[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
        m_surface = EGL_FUNCTION(eglCreatePbufferSurface)(m_display, m_config, size);
        m_width = width;
        m_height = height;
    }
    void removeSurface() const
    {
        if (m_surface != EGL_NO_SURFACE)
            EGL_FUNCTION(eglDestroySurface)(m_display, m_surface);
    }

    EGLDisplay m_display;
    EGLConfig m_config = nullptr;
    EGLContext m_context = EGL_NO_CONTEXT;
    EGLSurface m_surface = EGL_NO_SURFACE;
    int m_width = 0;
    int m_height = 0;
};

/// Framebuffer 0, for as long as it lives.
class BoundZero {
public:
    explicit BoundZero(const SoftwareContext& context)
        : m_bind(context.function<void(GLenum, GLuint)>("glBindFramebuffer"))
    {
        const auto get = context.function<decltype(::glGetIntegerv)>("glGetIntegerv");
        get(GL_DRAW_FRAMEBUFFER_BINDING, &m_draw);
        get(GL_READ_FRAMEBUFFER_BINDING, &m_read);
        m_bind(GL_FRAMEBUFFER, 0);
    }
    ~BoundZero()
    {
        m_bind(GL_DRAW_FRAMEBUFFER, static_cast<GLuint>(m_draw));
        m_bind(GL_READ_FRAMEBUFFER, static_cast<GLuint>(m_read));
    }
    BoundZero(const BoundZero&) = delete;
    BoundZero& operator=(const BoundZero&) = delete;

private:
    void (*m_bind)(GLenum, GLuint);
    GLint m_draw = 0;
    GLint m_read = 0;
};

} // namespace

std::unique_ptr<SoftwareContext> SoftwareContext::create()
{
    if (osMesa())
        return std::make_unique<OSMesaContextOfTests>();
    if (!egl())
        throw std::runtime_error("There is neither OSMesa nor EGL.");
    return std::make_unique<EglContextOfTests>();
}

void SoftwareContext::read(int width, int height, std::vector<unsigned char>& rgba) const
{
    const BoundZero zero(*this);
    rgba.resize(bytesOf(width, height));
    function<decltype(::glReadPixels)>("glReadPixels")(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
}

void SoftwareContext::fill(unsigned char grey) const
{
    const BoundZero zero(*this);
    const float value = static_cast<float>(grey) / 255.0F;
    function<decltype(::glPushAttrib)>("glPushAttrib")(GL_ALL_ATTRIB_BITS);
    function<decltype(::glDisable)>("glDisable")(GL_SCISSOR_TEST);
    function<decltype(::glColorMask)>("glColorMask")(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    function<decltype(::glClearColor)>("glClearColor")(value, value, value, value);
    function<decltype(::glClear)>("glClear")(GL_COLOR_BUFFER_BIT);
    function<decltype(::glPopAttrib)>("glPopAttrib")();
}

} // namespace velmora::test
