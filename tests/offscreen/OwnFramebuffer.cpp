#define GL_GLEXT_PROTOTYPES // the toolkit's headers would declare these calls differently

#include "tests/offscreen/OwnFramebuffer.h"

#include <GL/gl.h>
#include <GL/glext.h>

namespace velmora::test {

void bindNewFramebuffer(int width, int height)
{
    GLuint colours = 0;
    glGenRenderbuffers(1, &colours);
    glBindRenderbuffer(GL_RENDERBUFFER, colours);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, width, height);
    GLuint framebuffer = 0;
    glGenFramebuffers(1, &framebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, colours);
}

} // namespace velmora::test
