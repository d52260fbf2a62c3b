#pragma once

#include "integration/opengl/ReadingGL.h"

namespace velmora::sdk::integration::intern {

/// While it lives, the current context reads pixels back as if nobody had ever changed how they are
/// stored or what becomes of their colours on the way, into memory and not into a buffer object.
/// Afterwards everything is as it was.
class PlainReading {
public:
    explicit PlainReading(const ReadingGL& gl);
    ~PlainReading();
    PlainReading(const PlainReading&) = delete;
    PlainReading& operator=(const PlainReading&) = delete;

    /// The same for good.
    static void setFor(const ReadingGL& gl);

private:
    const ReadingGL& m_gl;
    GLint m_packBuffer = 0;
};

} // namespace velmora::sdk::integration::intern
