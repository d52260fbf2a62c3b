#pragma once

#include "engine/gl/GLFunctions.h"

#include <array>

namespace velmora::engine {

/// Keeps the state of the current context for as long as it lives and puts it back, so that a
/// drawing leaves nothing behind, also when it ends early. From construction on the state is plain:
/// no textures, lighting, culling or tests, vertex arrays off, no buffer or program bound. The
/// viewport, the framebuffer and the scissor stay.
class GLStateGuard {
public:
    explicit GLStateGuard(const GLFunctions& gl);
    ~GLStateGuard();
    GLStateGuard(const GLStateGuard&) = delete;
    GLStateGuard& operator=(const GLStateGuard&) = delete;

private:
    using Matrix = std::array<GLdouble, 16>;

    void keepMatrices();
    void restoreMatrices() const;
    void keepBindings();
    void restoreBindings() const;
    void makePlain() const;

    const GLFunctions& m_gl;
    std::array<Matrix, 3> m_matrices{};
    GLint m_program = 0;
    GLint m_vertexArray = 0;
    GLint m_arrayBuffer = 0;
    GLint m_elementBuffer = 0;
    GLint m_unpackBuffer = 0;
};

} // namespace velmora::engine
