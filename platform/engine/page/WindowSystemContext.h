#pragma once

namespace velmora::engine {

/// The context of the window system that was current when this was made, by GLX or by EGL. An off-screen
/// image whose toolkit has made its context current for the time of a call cannot make it current again
/// itself; this can.
class WindowSystemContext {
public:
    WindowSystemContext();
    /// False when there was one and it cannot be made current again.
    bool makeCurrentAgain() const;

private:
    bool makeGlxCurrentAgain() const;
    bool makeEglCurrentAgain() const;

    bool m_isEgl = false;
    void* m_display = nullptr;
    void* m_context = nullptr;
    void* m_eglDraw = nullptr;
    void* m_eglRead = nullptr;
    unsigned long m_glxDraw = 0;
    unsigned long m_glxRead = 0;
};

/// As long as it lives no context of the window system is current on this thread, so that OpenGL calls reach none. Then
/// the one that was current is so again.
class NoWindowSystemContext {
public:
    NoWindowSystemContext();
    ~NoWindowSystemContext() { m_before.makeCurrentAgain(); }
    NoWindowSystemContext(const NoWindowSystemContext&) = delete;
    NoWindowSystemContext& operator=(const NoWindowSystemContext&) = delete;

private:
    WindowSystemContext m_before;
};

} // namespace velmora::engine
