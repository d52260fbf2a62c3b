#include "Target.h"

#include <algorithm>
#include <cstdlib>

namespace conformance {
namespace {

constexpr std::size_t BytesOfPixel = 4;
// Rounding in another context, and text that lies half a pixel beside; not what a person would see.
constexpr int Little = 48;

} // namespace

void Pixels::put(const Pixels& part, int x, int y)
{
    for (int row = 0; row < part.height; ++row)
        for (int column = 0; column < part.width; ++column) {
            if (x + column >= width || y + row >= height)
                continue;
            const std::size_t from = (static_cast<std::size_t>(row) * part.width + column) * BytesOfPixel;
            const std::size_t to = (static_cast<std::size_t>(y + row) * width + x + column) * BytesOfPixel;
            std::copy_n(part.bytes.begin() + static_cast<std::ptrdiff_t>(from), BytesOfPixel,
                        bytes.begin() + static_cast<std::ptrdiff_t>(to));
        }
}

double differing(const Pixels& a, const Pixels& b)
{
    if (a.width != b.width || a.height != b.height || a.bytes.empty())
        return 1;
    std::size_t count = 0;
    for (std::size_t i = 0; i < a.bytes.size(); i += BytesOfPixel) {
        bool differs = false;
        for (std::size_t part = 0; part < 3; ++part)
            differs = differs || std::abs(a.bytes[i + part] - b.bytes[i + part]) > Little;
        count += differs ? 1 : 0;
    }
    return static_cast<double>(count) / (static_cast<double>(a.bytes.size()) / BytesOfPixel);
}

bool isOneColour(const Pixels& pixels)
{
    for (std::size_t i = BytesOfPixel; i < pixels.bytes.size(); ++i)
        if (pixels.bytes[i] != pixels.bytes[i - BytesOfPixel])
            return false;
    return true;
}

Target::Target(const OpenGL& gl, int width, int height)
    : m_gl(gl), m_width(width), m_height(height), m_boundToDraw(gl.integer(GL_DRAW_FRAMEBUFFER_BINDING)),
      m_boundToRead(gl.integer(GL_READ_FRAMEBUFFER_BINDING)), m_boundRenderbuffer(gl.integer(GL_RENDERBUFFER_BINDING))
{
    gl.PushAttrib(GL_ALL_ATTRIB_BITS);
    gl.GenFramebuffers(1, &m_framebuffer);
    gl.GenRenderbuffers(2, m_buffers);
    gl.BindFramebuffer(GL_FRAMEBUFFER, m_framebuffer);
    const GLenum formats[] = {GL_RGBA8, GL_DEPTH24_STENCIL8};
    const GLenum places[] = {GL_COLOR_ATTACHMENT0, GL_DEPTH_STENCIL_ATTACHMENT};
    for (int i = 0; i < 2; ++i) {
        gl.BindRenderbuffer(GL_RENDERBUFFER, m_buffers[i]);
        gl.RenderbufferStorage(GL_RENDERBUFFER, formats[i], width, height);
        gl.FramebufferRenderbuffer(GL_FRAMEBUFFER, places[i], GL_RENDERBUFFER, m_buffers[i]);
    }
    gl.BindRenderbuffer(GL_RENDERBUFFER, static_cast<GLuint>(m_boundRenderbuffer));
    m_isComplete = gl.CheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    gl.Viewport(0, 0, width, height);
    clear();
}

Target::~Target()
{
    m_gl.BindFramebuffer(GL_DRAW_FRAMEBUFFER, static_cast<GLuint>(m_boundToDraw));
    m_gl.BindFramebuffer(GL_READ_FRAMEBUFFER, static_cast<GLuint>(m_boundToRead));
    m_gl.DeleteFramebuffers(1, &m_framebuffer);
    m_gl.DeleteRenderbuffers(2, m_buffers);
    m_gl.PopAttrib();
}

void Target::clear() const
{
    m_gl.PushAttrib(GL_ALL_ATTRIB_BITS);
    m_gl.Disable(GL_SCISSOR_TEST);
    m_gl.ColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    m_gl.DepthMask(GL_TRUE);
    m_gl.ClearColor(1, 1, 1, 1);
    m_gl.ClearDepth(1);
    m_gl.Clear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    m_gl.PopAttrib();
}

Pixels Target::read() const
{
    Pixels pixels{m_width, m_height, {}};
    pixels.bytes.resize(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height) * BytesOfPixel);
    m_gl.PushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    m_gl.PixelStorei(GL_PACK_ALIGNMENT, 1);
    m_gl.PixelStorei(GL_PACK_ROW_LENGTH, 0);
    m_gl.ReadPixels(0, 0, m_width, m_height, GL_RGBA, GL_UNSIGNED_BYTE, pixels.bytes.data());
    m_gl.PopClientAttrib();
    return pixels;
}

} // namespace conformance
