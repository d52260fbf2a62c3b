#include "integration/toolkit/PlainPixels.h"

#include "integration/toolkit/CurrentContext.h"

#include <GL/glext.h>
#include <cstring>
#include <initializer_list>

namespace velmora::sdk::integration::toolkit {

void forgetPendingGLErrors()
{
    for (int i = 0; i < 16 && glGetError() != GL_NO_ERROR; ++i)
        continue;
}

NoPackBuffer::NoPackBuffer()
{
    const auto* const extensions = reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS));
    if (!extensions || !std::strstr(extensions, "GL_ARB_pixel_buffer_object"))
        return;
    m_bind = reinterpret_cast<BindBuffer>(currentFunction("glBindBuffer"));
    glGetIntegerv(GL_PIXEL_PACK_BUFFER_BINDING, &m_bound);
    bind(0);
}

NoPackBuffer::~NoPackBuffer()
{
    bind(static_cast<GLuint>(m_bound));
}

void NoPackBuffer::bind(GLuint buffer) const
{
    if (m_bind && m_bound != 0)
        m_bind(GL_PIXEL_PACK_BUFFER, buffer);
}

PlainPixels::PlainPixels()
{
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    for (const GLenum mode :
         {GL_PACK_SWAP_BYTES, GL_PACK_LSB_FIRST, GL_PACK_ROW_LENGTH, GL_PACK_SKIP_ROWS, GL_PACK_SKIP_PIXELS})
        glPixelStorei(mode, 0);
    glPushAttrib(GL_PIXEL_MODE_BIT);
    glPixelTransferi(GL_MAP_COLOR, GL_FALSE);
    for (const GLenum mode : {GL_RED_SCALE, GL_GREEN_SCALE, GL_BLUE_SCALE, GL_ALPHA_SCALE})
        glPixelTransferf(mode, 1);
    for (const GLenum mode : {GL_RED_BIAS, GL_GREEN_BIAS, GL_BLUE_BIAS, GL_ALPHA_BIAS})
        glPixelTransferf(mode, 0);
}

PlainPixels::~PlainPixels()
{
    glPopAttrib();
    glPopClientAttrib();
}

} // namespace velmora::sdk::integration::toolkit
