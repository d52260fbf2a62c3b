#include "integration/opengl/PlainReading.h"

#include <initializer_list>

namespace velmora::sdk::integration::intern {

namespace {

bool hasBufferObjects(const ReadingGL& gl)
{
    return gl.BindBuffer && gl.hasExtension("GL_ARB_pixel_buffer_object");
}

void storePlainly(const ReadingGL& gl)
{
    gl.PixelStorei(GL_PACK_ALIGNMENT, 4);
    for (const GLenum mode :
         {GL_PACK_SWAP_BYTES, GL_PACK_LSB_FIRST, GL_PACK_ROW_LENGTH, GL_PACK_SKIP_ROWS, GL_PACK_SKIP_PIXELS})
        gl.PixelStorei(mode, 0);
}

void transferPlainly(const ReadingGL& gl)
{
    gl.PixelTransferi(GL_MAP_COLOR, GL_FALSE);
    for (const GLenum mode : {GL_RED_SCALE, GL_GREEN_SCALE, GL_BLUE_SCALE, GL_ALPHA_SCALE})
        gl.PixelTransferf(mode, 1);
    for (const GLenum mode : {GL_RED_BIAS, GL_GREEN_BIAS, GL_BLUE_BIAS, GL_ALPHA_BIAS})
        gl.PixelTransferf(mode, 0);
}

} // namespace

PlainReading::PlainReading(const ReadingGL& gl) : m_gl(gl)
{
    if (hasBufferObjects(gl))
        m_packBuffer = gl.integer(GL_PIXEL_PACK_BUFFER_BINDING);
    gl.PushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    gl.PushAttrib(GL_PIXEL_MODE_BIT);
    setFor(gl);
}

void PlainReading::setFor(const ReadingGL& gl)
{
    if (hasBufferObjects(gl))
        gl.BindBuffer(GL_PIXEL_PACK_BUFFER, 0);
    storePlainly(gl);
    transferPlainly(gl);
}

PlainReading::~PlainReading()
{
    m_gl.PopAttrib();
    m_gl.PopClientAttrib();
    if (m_packBuffer != 0)
        m_gl.BindBuffer(GL_PIXEL_PACK_BUFFER, static_cast<GLuint>(m_packBuffer));
}

} // namespace velmora::sdk::integration::intern
