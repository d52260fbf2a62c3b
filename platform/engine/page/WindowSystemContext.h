#pragma once

namespace velmora::engine {

/// The context of the window system that was current when this was made. An off-screen image whose
/// toolkit has made its context current for the time of a call cannot make it current again itself;
/// this can.
class WindowSystemContext {
public:
    WindowSystemContext();
    /// False when there was one and it cannot be made current again.
    bool makeCurrentAgain() const;

private:
    void* m_display;
    void* m_context;
    unsigned long m_draw;
    unsigned long m_read;
};

} // namespace velmora::engine
