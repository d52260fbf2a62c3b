#include "integration/opengl/FramebufferReader.h"

#include "integration/opengl/PlainReading.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace velmora::sdk::integration::intern {

namespace {

/// A framebuffer object without samples, for as long as it lives.
class PlainCopy {
public:
    PlainCopy(const ReadingGL& gl, const ImageFramebuffer& source)
        : m_gl(gl), m_framebuffer{0, source.width, source.height, false}
    {
        gl.GenFramebuffers(1, &m_framebuffer.name);
        gl.GenRenderbuffers(1, &m_colours);
        const GLint bound = gl.integer(GL_RENDERBUFFER_BINDING);
        gl.BindRenderbuffer(GL_RENDERBUFFER, m_colours);
        gl.RenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, source.width, source.height);
        gl.BindRenderbuffer(GL_RENDERBUFFER, static_cast<GLuint>(bound));
        gl.BindFramebuffer(GL_FRAMEBUFFER, m_framebuffer.name);
        gl.FramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, m_colours);
        resolve(source);
    }
    ~PlainCopy()
    {
        m_gl.DeleteFramebuffers(1, &m_framebuffer.name);
        m_gl.DeleteRenderbuffers(1, &m_colours);
    }
    PlainCopy(const PlainCopy&) = delete;
    PlainCopy& operator=(const PlainCopy&) = delete;

    const ImageFramebuffer& framebuffer() const { return m_framebuffer; }

private:
    /// Whatever the scissor is.
    void resolve(const ImageFramebuffer& source) const
    {
        const bool scissored = m_gl.IsEnabled(GL_SCISSOR_TEST);
        m_gl.Disable(GL_SCISSOR_TEST);
        m_gl.BindFramebuffer(GL_READ_FRAMEBUFFER, source.name);
        m_gl.BlitFramebuffer(0, 0, source.width, source.height, 0, 0, source.width, source.height, GL_COLOR_BUFFER_BIT,
                             GL_NEAREST);
        if (scissored)
            m_gl.Enable(GL_SCISSOR_TEST);
    }

    const ReadingGL& m_gl;
    ImageFramebuffer m_framebuffer;
    GLuint m_colours = 0;
};

void readRows(const ReadingGL& gl, int first, int width, int count, void* pixels)
{
    gl.ReadPixels(0, first, width, count, GL_BGRA, GL_UNSIGNED_INT_8_8_8_8_REV, pixels);
}

/// OpenGL's first row is the lowest. Where it cannot turn the rows itself they are turned in portions that
/// stay in the processor's cache.
void readTurned(const ReadingGL& gl, const ImageFramebuffer& framebuffer, std::uint32_t* pixels)
{
    constexpr int Portion = 16;
    const auto width = static_cast<std::size_t>(framebuffer.width);
    std::vector<std::uint32_t> rows(width * Portion);
    for (int y = 0; y < framebuffer.height; y += Portion) {
        const int count = std::min(Portion, framebuffer.height - y);
        readRows(gl, y, framebuffer.width, count, rows.data());
        for (int i = 0; i < count; ++i)
            std::copy_n(rows.data() + width * static_cast<std::size_t>(i), width,
                        pixels + width * static_cast<std::size_t>(framebuffer.height - 1 - y - i));
    }
}

bool readPlain(const ReadingGL& gl, const ImageFramebuffer& framebuffer, std::uint32_t* pixels)
{
    bindFramebuffer(gl, framebuffer.name);
    if (gl.hasExtension("GL_MESA_pack_invert")) {
        gl.PixelStorei(GL_PACK_INVERT_MESA, GL_TRUE);
        readRows(gl, 0, framebuffer.width, framebuffer.height, pixels);
    } else {
        readTurned(gl, framebuffer, pixels);
    }
    return gl.succeeded();
}

/// Of a framebuffer without a buffer to read, resolving would copy nothing and report nothing.
bool bindToRead(const ReadingGL& gl, GLuint framebuffer)
{
    gl.forgetErrors();
    if (!gl.answers())
        return false;
    bindFramebuffer(gl, framebuffer);
    return gl.integer(GL_READ_BUFFER) != GL_NONE && gl.succeeded();
}

} // namespace

bool readFramebuffer(const ReadingGL& gl, const ImageFramebuffer& framebuffer, std::uint32_t* pixels)
{
    if (!bindToRead(gl, framebuffer.name))
        return false;
    const PlainReading plain(gl);
    const bool read = framebuffer.multisampled ? readPlain(gl, PlainCopy(gl, framebuffer).framebuffer(), pixels)
                                               : readPlain(gl, framebuffer, pixels);
    bindFramebuffer(gl, framebuffer.name);
    return read;
}

bool prepareToBeRead(const ReadingGL& gl, GLuint framebuffer)
{
    if (!bindToRead(gl, framebuffer))
        return false;
    PlainReading::setFor(gl);
    std::uint32_t pixel = 0;
    readRows(gl, 0, 1, 1, &pixel);
    return gl.succeeded();
}

} // namespace velmora::sdk::integration::intern
