#pragma once

namespace velmora::test {

/// An OpenGL context that a host has made by itself with GLX, on a connection of its own; the toolkit does
/// not know of it.
class HostContext {
public:
    HostContext();
    ~HostContext();
    HostContext(const HostContext&) = delete;
    HostContext& operator=(const HostContext&) = delete;

    bool makeCurrent() const;
    bool isCurrent() const;
    void release() const;
    /// While it is current: whether what is drawn with it arrives where it is drawn to. `red` of 255.
    bool draws(int red) const;

private:
    void* m_display;
    unsigned long m_window = 0;
    void* m_context = nullptr;
};

} // namespace velmora::test
