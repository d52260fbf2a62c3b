#include "engine/gl/GLStateGuard.h"

namespace velmora::engine {

namespace {

struct MatrixStack {
    GLenum mode;
    GLenum query;
};

const MatrixStack matrixStacks[] = {
    {GL_PROJECTION, GL_PROJECTION_MATRIX},
    {GL_MODELVIEW, GL_MODELVIEW_MATRIX},
    {GL_TEXTURE, GL_TEXTURE_MATRIX},
};

const GLenum switchedOff[] = {
    GL_ALPHA_TEST,    GL_BLEND,         GL_COLOR_LOGIC_OP,  GL_COLOR_MATERIAL,      GL_CULL_FACE,
    GL_DEPTH_TEST,    GL_FOG,           GL_LIGHTING,        GL_LINE_STIPPLE,        GL_LINE_SMOOTH,
    GL_NORMALIZE,     GL_POINT_SMOOTH,  GL_POLYGON_STIPPLE, GL_POLYGON_OFFSET_FILL, GL_POLYGON_SMOOTH,
    GL_STENCIL_TEST,  GL_TEXTURE_1D,    GL_TEXTURE_2D,      GL_TEXTURE_3D,          GL_TEXTURE_CUBE_MAP,
    GL_TEXTURE_GEN_S, GL_TEXTURE_GEN_T,
};

const GLenum arrays[] = {
    GL_VERTEX_ARRAY, GL_NORMAL_ARRAY, GL_COLOR_ARRAY, GL_TEXTURE_COORD_ARRAY, GL_INDEX_ARRAY, GL_EDGE_FLAG_ARRAY,
};

} // namespace

GLStateGuard::GLStateGuard(const GLFunctions& gl) : m_gl(gl)
{
    gl.PushAttrib(GL_ALL_ATTRIB_BITS);
    gl.PushClientAttrib(GL_CLIENT_ALL_ATTRIB_BITS);
    gl.ActiveTexture(GL_TEXTURE0);
    gl.ClientActiveTexture(GL_TEXTURE0);
    keepMatrices();
    keepBindings();
    makePlain();
}

GLStateGuard::~GLStateGuard()
{
    restoreBindings();
    restoreMatrices();
    m_gl.PopClientAttrib();
    m_gl.PopAttrib();
}

// Matrices are read and loaded rather than pushed: a projection stack may be no deeper than two,
// and a picture may be drawn in the middle of another one.
void GLStateGuard::keepMatrices()
{
    for (std::size_t i = 0; i < m_matrices.size(); ++i) {
        m_gl.GetDoublev(matrixStacks[i].query, m_matrices[i].data());
        m_gl.MatrixMode(matrixStacks[i].mode);
        m_gl.LoadIdentity();
    }
}

void GLStateGuard::restoreMatrices() const
{
    m_gl.ActiveTexture(GL_TEXTURE0);
    for (std::size_t i = 0; i < m_matrices.size(); ++i) {
        m_gl.MatrixMode(matrixStacks[i].mode);
        m_gl.LoadMatrixd(m_matrices[i].data());
    }
}

void GLStateGuard::keepBindings()
{
    if (m_gl.UseProgram)
        m_gl.GetIntegerv(GL_CURRENT_PROGRAM, &m_program);
    if (m_gl.BindVertexArray) {
        m_gl.GetIntegerv(GL_VERTEX_ARRAY_BINDING, &m_vertexArray);
        if (m_vertexArray)
            m_gl.BindVertexArray(0);
    }
    if (!m_gl.BindBuffer)
        return;
    m_gl.GetIntegerv(GL_ARRAY_BUFFER_BINDING, &m_arrayBuffer);
    m_gl.GetIntegerv(GL_ELEMENT_ARRAY_BUFFER_BINDING, &m_elementBuffer);
    m_gl.GetIntegerv(GL_PIXEL_UNPACK_BUFFER_BINDING, &m_unpackBuffer);
}

void GLStateGuard::restoreBindings() const
{
    if (m_gl.BindBuffer) {
        m_gl.BindBuffer(GL_ARRAY_BUFFER, static_cast<GLuint>(m_arrayBuffer));
        m_gl.BindBuffer(GL_ELEMENT_ARRAY_BUFFER, static_cast<GLuint>(m_elementBuffer));
        m_gl.BindBuffer(GL_PIXEL_UNPACK_BUFFER, static_cast<GLuint>(m_unpackBuffer));
    }
    if (m_vertexArray)
        m_gl.BindVertexArray(static_cast<GLuint>(m_vertexArray));
    if (m_program)
        m_gl.UseProgram(static_cast<GLuint>(m_program));
}

void GLStateGuard::makePlain() const
{
    for (GLenum capability : switchedOff)
        m_gl.Disable(capability);
    for (GLenum array : arrays)
        m_gl.DisableClientState(array);
    if (m_program)
        m_gl.UseProgram(0);
    if (m_gl.BindBuffer) {
        m_gl.BindBuffer(GL_ARRAY_BUFFER, 0);
        m_gl.BindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
        m_gl.BindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    }
    m_gl.PixelStorei(GL_UNPACK_ALIGNMENT, 1);
    m_gl.PixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    m_gl.PixelStorei(GL_UNPACK_SKIP_ROWS, 0);
    m_gl.PixelStorei(GL_UNPACK_SKIP_PIXELS, 0);
    m_gl.ColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    m_gl.DepthMask(GL_TRUE);
    m_gl.DepthRange(0, 1);
    m_gl.PolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    m_gl.ShadeModel(GL_SMOOTH);
}

} // namespace velmora::engine
