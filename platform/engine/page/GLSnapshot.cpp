#include "engine/page/GLSnapshot.h"

#include "engine/gl/GLFunctions.h"

namespace velmora::engine {
namespace {

struct MatrixNames {
    GLenum mode;
    GLenum depth;
    GLenum values;
};

constexpr MatrixNames Matrices[] = {
    {GL_PROJECTION, GL_PROJECTION_STACK_DEPTH, GL_PROJECTION_MATRIX},
    {GL_TEXTURE, GL_TEXTURE_STACK_DEPTH, GL_TEXTURE_MATRIX},
    {GL_MODELVIEW, GL_MODELVIEW_STACK_DEPTH, GL_MODELVIEW_MATRIX},
};

int integer(const GLFunctions& gl, GLenum name)
{
    GLint value = 0;
    gl.GetIntegerv(name, &value);
    return value;
}

template <typename Result, typename... Arguments>
void disarmEntry(Result(APIENTRYP& entry)(Arguments...))
{
    entry = [](Arguments...) -> Result { return Result(); };
}

} // namespace

GLSnapshot::GLSnapshot(const GLFunctions& gl)
    : m_attributeDepth(integer(gl, GL_ATTRIB_STACK_DEPTH)),
      m_clientAttributeDepth(integer(gl, GL_CLIENT_ATTRIB_STACK_DEPTH))
{
    if (gl.hasFramebufferObjects()) {
        m_drawFramebuffer = integer(gl, GL_DRAW_FRAMEBUFFER_BINDING);
        m_readFramebuffer = integer(gl, GL_READ_FRAMEBUFFER_BINDING);
    }
    if (gl.UseProgram)
        m_program = integer(gl, GL_CURRENT_PROGRAM);
    for (int i = 0; i < 3; ++i) {
        m_matrices[i].depth = integer(gl, Matrices[i].depth);
        gl.GetDoublev(Matrices[i].values, m_matrices[i].values);
    }
    gl.PushAttrib(GL_ALL_ATTRIB_BITS);
    gl.PushClientAttrib(GL_CLIENT_ALL_ATTRIB_BITS);
}

// The attributes come last: they hold the matrix mode and what draws into the framebuffer.
void GLSnapshot::restore(const GLFunctions& gl) const
{
    if (gl.hasFramebufferObjects()) {
        gl.BindFramebuffer(GL_DRAW_FRAMEBUFFER, static_cast<GLuint>(m_drawFramebuffer));
        gl.BindFramebuffer(GL_READ_FRAMEBUFFER, static_cast<GLuint>(m_readFramebuffer));
    }
    if (gl.UseProgram)
        gl.UseProgram(static_cast<GLuint>(m_program));
    for (int i = 0; i < 3; ++i) {
        gl.MatrixMode(Matrices[i].mode);
        for (int depth = integer(gl, Matrices[i].depth); depth > m_matrices[i].depth; --depth)
            gl.PopMatrix();
        gl.LoadMatrixd(m_matrices[i].values);
    }
    for (int depth = integer(gl, GL_CLIENT_ATTRIB_STACK_DEPTH); depth > m_clientAttributeDepth; --depth)
        gl.PopClientAttrib();
    for (int depth = integer(gl, GL_ATTRIB_STACK_DEPTH); depth > m_attributeDepth; --depth)
        gl.PopAttrib();
}

// Bounded: without a current context some implementations report an error forever.
void clearPendingErrors(const GLFunctions& gl)
{
    constexpr int MostErrors = 16;
    for (int i = 0; i < MostErrors && gl.GetError() != GL_NO_ERROR; ++i) {
    }
}

void disarm(GLFunctions& gl)
{
#define VELMORA_GL_DISARM(name) disarmEntry(gl.name);
    VELMORA_GL_REQUIRED_FUNCTIONS(VELMORA_GL_DISARM)
#undef VELMORA_GL_DISARM
#define VELMORA_GL_DISARM(name, type) disarmEntry(gl.name);
    VELMORA_GL_OPTIONAL_FUNCTIONS(VELMORA_GL_DISARM)
#undef VELMORA_GL_DISARM
}

} // namespace velmora::engine
