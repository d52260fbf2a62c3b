#pragma once

#include "OpenGL.h"

#include <string>
#include <vector>

namespace conformance {

/// Pixels of red, green, blue and alpha, rows from the bottom.
struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<unsigned char> bytes;

    /// Puts another picture at a place in this one, as far as it lies there.
    void put(const Pixels& part, int x, int y);
};

/// The fraction of pixels that differ by more than a little in any colour; 1 for other sizes.
double differing(const Pixels& a, const Pixels& b);
/// Whether all pixels are the same.
bool isOneColour(const Pixels& pixels);

/// A framebuffer of its own in the current context, bound and cleared to white as long as it lives.
class Target {
public:
    Target(const OpenGL& gl, int width, int height);
    ~Target();
    Target(const Target&) = delete;
    Target& operator=(const Target&) = delete;

    bool isComplete() const { return m_isComplete; }
    void clear() const;
    Pixels read() const;

private:
    const OpenGL& m_gl;
    int m_width;
    int m_height;
    GLint m_boundToDraw;
    GLint m_boundToRead;
    GLint m_boundRenderbuffer;
    GLuint m_framebuffer = 0;
    GLuint m_buffers[2] = {0, 0}; ///< colour, depth
    bool m_isComplete = false;
};

} // namespace conformance
