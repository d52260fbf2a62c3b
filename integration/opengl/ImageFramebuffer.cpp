#include "integration/opengl/ImageFramebuffer.h"

#include <algorithm>

namespace velmora::sdk::integration::intern {

namespace {

class Renderbuffers {
public:
    explicit Renderbuffers(const ReadingGL& gl) : m_gl(gl) { gl.GenRenderbuffers(2, m_names); }

    void attach(int which, GLenum point, GLenum storage, const ImageFramebuffer& to, int samples) const
    {
        m_gl.BindRenderbuffer(GL_RENDERBUFFER, m_names[which]);
        if (samples > 0)
            m_gl.RenderbufferStorageMultisample(GL_RENDERBUFFER, samples, storage, to.width, to.height);
        else
            m_gl.RenderbufferStorage(GL_RENDERBUFFER, storage, to.width, to.height);
        m_gl.FramebufferRenderbuffer(GL_FRAMEBUFFER, point, GL_RENDERBUFFER, m_names[which]);
    }
    void remove() const { m_gl.DeleteRenderbuffers(2, m_names); }

private:
    const ReadingGL& m_gl;
    GLuint m_names[2] = {};
};

} // namespace

GLuint boundFramebuffer(const ReadingGL& gl)
{
    return gl.BindFramebuffer ? static_cast<GLuint>(gl.integer(GL_FRAMEBUFFER_BINDING)) : 0;
}

void bindFramebuffer(const ReadingGL& gl, GLuint name)
{
    if (gl.BindFramebuffer)
        gl.BindFramebuffer(GL_FRAMEBUFFER, name);
}

FramebufferSize largestFramebuffer(const ReadingGL& gl)
{
    GLint viewport[2] = {0, 0};
    gl.GetIntegerv(GL_MAX_VIEWPORT_DIMS, viewport);
    const GLint side = gl.integer(GL_MAX_RENDERBUFFER_SIZE);
    return {std::min(side, viewport[0]), std::min(side, viewport[1])};
}

ImageFramebuffer newFramebuffer(const ReadingGL& gl, int width, int height, const FramebufferFormat& format)
{
    gl.forgetErrors();
    ImageFramebuffer made{0, width, height, format.samples > 0};
    gl.GenFramebuffers(1, &made.name);
    gl.BindFramebuffer(GL_FRAMEBUFFER, made.name);
    const Renderbuffers buffers(gl);
    buffers.attach(0, GL_COLOR_ATTACHMENT0, GL_RGBA8, made, format.samples);
    if (format.depthBits <= 24)
        buffers.attach(1, GL_DEPTH_STENCIL_ATTACHMENT, GL_DEPTH24_STENCIL8, made, format.samples);
    else
        buffers.attach(1, GL_DEPTH_ATTACHMENT, GL_DEPTH_COMPONENT32, made, format.samples);
    if (gl.CheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE && gl.succeeded() &&
        gl.integer(GL_SAMPLES) >= format.samples) {
        gl.Viewport(0, 0, width, height);
        return made;
    }
    gl.DeleteFramebuffers(1, &made.name);
    buffers.remove();
    return {};
}

} // namespace velmora::sdk::integration::intern
