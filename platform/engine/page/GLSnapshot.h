#pragma once

namespace velmora::engine {

struct GLFunctions;

/// The state of the current context when this was made, to be brought back later: framebuffer
/// binding, program, matrices and every attribute of server and client. The context holds part of it
/// on its attribute stacks until `restore`, which also undoes what others left on them.
class GLSnapshot {
public:
    explicit GLSnapshot(const GLFunctions& gl);
    /// The same context is current again.
    void restore(const GLFunctions& gl) const;

private:
    struct Matrix {
        int depth = 0;
        double values[16] = {};
    };
    int m_attributeDepth = 0;
    int m_clientAttributeDepth = 0;
    int m_drawFramebuffer = 0;
    int m_readFramebuffer = 0;
    int m_program = 0;
    Matrix m_matrices[3];
};

/// Brings the state back at the end of a scope.
class GLStateScope {
public:
    explicit GLStateScope(const GLFunctions& gl) : m_gl(gl), m_before(gl) {}
    ~GLStateScope() { m_before.restore(m_gl); }
    GLStateScope(const GLStateScope&) = delete;
    GLStateScope& operator=(const GLStateScope&) = delete;

private:
    const GLFunctions& m_gl;
    GLSnapshot m_before;
};

/// The toolkit may have left errors pending; code that checks for errors clears those first.
void clearPendingErrors(const GLFunctions& gl);
/// Makes every entry point do nothing: for work that must unwind after its context has gone away,
/// so that it cannot reach another one.
void disarm(GLFunctions& gl);

} // namespace velmora::engine
