#pragma once

#include "integration/opengl/ReadingGL.h"

namespace velmora::sdk::integration::intern {

/// The framebuffer object that an image is drawn into.
struct ImageFramebuffer {
    GLuint name = 0;
    int width = 0;
    int height = 0;
    bool multisampled = false;
};

/// The framebuffer object that the current context draws into; 0 where there are none.
GLuint boundFramebuffer(const ReadingGL& gl);
void bindFramebuffer(const ReadingGL& gl, GLuint name);

/// What a framebuffer is to have beside its colours, 8 bits each with alpha.
struct FramebufferFormat {
    int depthBits = 24; ///< at least; up to 24 there are 8 bits of stencil as well
    int samples = 0;
};

/// The largest framebuffer of the current context.
struct FramebufferSize {
    int width;
    int height;
};
FramebufferSize largestFramebuffer(const ReadingGL& gl);

/// A new framebuffer of the current context, which it lives as long as: bound, with the viewport on all of
/// it. Its name is 0 when the context cannot give it.
ImageFramebuffer newFramebuffer(const ReadingGL& gl, int width, int height, const FramebufferFormat& format);

} // namespace velmora::sdk::integration::intern
