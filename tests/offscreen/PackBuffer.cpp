#define GL_GLEXT_PROTOTYPES // the toolkit's headers would declare these calls differently

#include "tests/offscreen/PackBuffer.h"

#include <GL/gl.h>
#include <GL/glext.h>

namespace velmora::test {

unsigned bindNewPackBuffer()
{
    GLuint buffer = 0;
    glGenBuffers(1, &buffer);
    glBindBuffer(GL_PIXEL_PACK_BUFFER, buffer);
    return buffer;
}

unsigned boundPackBuffer()
{
    GLint buffer = -1;
    glGetIntegerv(GL_PIXEL_PACK_BUFFER_BINDING, &buffer);
    return static_cast<unsigned>(buffer);
}

} // namespace velmora::test
