#pragma once

#include <GL/gl.h>

namespace velmora::sdk::integration::toolkit {

/// Forgets the errors that the current context has noted. Bounded, because a lost context reports an error
/// for ever.
void forgetPendingGLErrors();

/// While it lives, no buffer object of the current context is bound for reading: it would take the
/// pixels instead of the image's memory.
class NoPackBuffer {
public:
    NoPackBuffer();
    ~NoPackBuffer();
    NoPackBuffer(const NoPackBuffer&) = delete;
    NoPackBuffer& operator=(const NoPackBuffer&) = delete;

private:
    using BindBuffer = void (*)(GLenum, GLuint);

    void bind(GLuint buffer) const;

    BindBuffer m_bind = nullptr;
    GLint m_bound = 0;
};

/// While it lives, the current context reads pixels back as if nobody had ever changed how they are
/// stored or what becomes of their colours on the way. Afterwards everything is as it was.
class PlainPixels {
public:
    PlainPixels();
    ~PlainPixels();
    PlainPixels(const PlainPixels&) = delete;
    PlainPixels& operator=(const PlainPixels&) = delete;

private:
    NoPackBuffer m_noPackBuffer;
};

} // namespace velmora::sdk::integration::toolkit
