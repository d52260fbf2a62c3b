#include "engine/page/PageCanvas.h"

#include "engine/gl/GLFunctions.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace velmora::engine {
namespace {

constexpr int WantedSamples = 4;

int samplesOf(const GLFunctions& gl)
{
    GLint most = 0;
    gl.GetIntegerv(GL_MAX_SAMPLES, &most);
    return std::min(most, WantedSamples);
}

const char* text(const GLFunctions& gl, GLenum name)
{
    const auto* found = reinterpret_cast<const char*>(gl.GetString(name));
    return found ? found : "";
}

// A library may offer the entry points while the context behind it, perhaps on a distant server,
// does not know them.
bool isSupported(const GLFunctions& gl)
{
    constexpr int FirstVersionWithThem = 3;
    if (!gl.hasFramebufferObjects())
        return false;
    return std::atoi(text(gl, GL_VERSION)) >= FirstVersionWithThem ||
           std::strstr(text(gl, GL_EXTENSIONS), "GL_ARB_framebuffer_object");
}

GLuint attach(const GLFunctions& gl, GLenum point, GLenum format, int width, int height, int samples)
{
    GLuint buffer = 0;
    gl.GenRenderbuffers(1, &buffer);
    gl.BindRenderbuffer(GL_RENDERBUFFER, buffer);
    if (samples > 1)
        gl.RenderbufferStorageMultisample(GL_RENDERBUFFER, samples, format, width, height);
    else
        gl.RenderbufferStorage(GL_RENDERBUFFER, format, width, height);
    gl.FramebufferRenderbuffer(GL_FRAMEBUFFER, point, GL_RENDERBUFFER, buffer);
    gl.BindRenderbuffer(GL_RENDERBUFFER, 0);
    return buffer;
}

void blit(const GLFunctions& gl, GLuint from, int fromWidth, int fromHeight, GLuint to, int toWidth, int toHeight)
{
    const bool sameSize = fromWidth == toWidth && fromHeight == toHeight;
    gl.Disable(GL_SCISSOR_TEST);
    gl.ColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    gl.BindFramebuffer(GL_READ_FRAMEBUFFER, from);
    gl.BindFramebuffer(GL_DRAW_FRAMEBUFFER, to);
    gl.BlitFramebuffer(0, 0, fromWidth, fromHeight, 0, 0, toWidth, toHeight, GL_COLOR_BUFFER_BIT,
                       sameSize ? GL_NEAREST : GL_LINEAR);
}

} // namespace

bool PageCanvas::prepare(const GLFunctions& gl, int width, int height)
{
    const bool sameSize = width == m_width && height == m_height;
    if (sameSize && (m_isDirect || isAlive(gl)))
        return true;
    if (!isAlive(gl))
        forget();
    Target before = m_shown;
    m_shown = {};
    const int widthBefore = m_width;
    const int heightBefore = m_height;
    destroy(gl, m_full);
    m_isDirect = !isSupported(gl) || !createAll(gl, width, height);
    m_width = width;
    m_height = height;
    if (!m_isDirect)
        takeOver(gl, before, widthBefore, heightBefore);
    destroy(gl, before);
    return false;
}

bool PageCanvas::isAlive(const GLFunctions& gl) const
{
    return m_shown.framebuffer != 0 && gl.IsFramebuffer(m_shown.framebuffer);
}

bool PageCanvas::createAll(const GLFunctions& gl, int width, int height)
{
    const int samples = samplesOf(gl);
    bool hasFull = samples > 1 && create(gl, m_full, width, height, samples);
    if (!hasFull) {
        destroy(gl, m_full);
        hasFull = create(gl, m_full, width, height, 1);
    }
    if (hasFull && create(gl, m_shown, width, height, 1))
        return true;
    destroy(gl, m_full);
    destroy(gl, m_shown);
    return false;
}

bool PageCanvas::create(const GLFunctions& gl, Target& target, int width, int height, int samples)
{
    gl.GenFramebuffers(1, &target.framebuffer);
    gl.BindFramebuffer(GL_FRAMEBUFFER, target.framebuffer);
    target.colour = attach(gl, GL_COLOR_ATTACHMENT0, GL_RGBA8, width, height, samples);
    target.depth = attach(gl, GL_DEPTH_ATTACHMENT, GL_DEPTH_COMPONENT24, width, height, samples);
    const bool complete = gl.CheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    gl.BindFramebuffer(GL_FRAMEBUFFER, 0);
    return complete && target.framebuffer != 0;
}

void PageCanvas::destroy(const GLFunctions& gl, Target& target)
{
    if (!target.framebuffer)
        return;
    gl.DeleteFramebuffers(1, &target.framebuffer);
    gl.DeleteRenderbuffers(1, &target.colour);
    gl.DeleteRenderbuffers(1, &target.depth);
    target = {};
}

// While a window is resized, the old picture in the new size looks better than an empty window.
void PageCanvas::takeOver(const GLFunctions& gl, const Target& from, int width, int height)
{
    if (from.framebuffer) {
        blit(gl, from.framebuffer, width, height, m_shown.framebuffer, m_width, m_height);
        return;
    }
    gl.BindFramebuffer(GL_FRAMEBUFFER, m_shown.framebuffer);
    gl.Disable(GL_SCISSOR_TEST);
    gl.ColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    gl.ClearColor(1, 1, 1, 1);
    gl.Clear(GL_COLOR_BUFFER_BIT);
}

void PageCanvas::beginCoarse(const GLFunctions& gl)
{
    gl.BindFramebuffer(GL_FRAMEBUFFER, m_shown.framebuffer);
}

void PageCanvas::beginFull(const GLFunctions& gl)
{
    gl.BindFramebuffer(GL_FRAMEBUFFER, m_full.framebuffer);
}

void PageCanvas::completeFull(const GLFunctions& gl)
{
    blit(gl, m_full.framebuffer, m_width, m_height, m_shown.framebuffer, m_width, m_height);
}

void PageCanvas::show(const GLFunctions& gl)
{
    blit(gl, m_shown.framebuffer, m_width, m_height, 0, m_width, m_height);
    gl.BindFramebuffer(GL_FRAMEBUFFER, 0);
}

void PageCanvas::release(const GLFunctions& gl)
{
    if (isAlive(gl)) {
        destroy(gl, m_full);
        destroy(gl, m_shown);
    }
    forget();
}

void PageCanvas::forget()
{
    *this = PageCanvas();
}

} // namespace velmora::engine
