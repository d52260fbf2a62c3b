#pragma once

namespace velmora::test {

/// While it lives, no OpenGL context can be made current: GLX refuses, as it does for a buffer that
/// the server has lost. Releasing the current one still works.
class RefusedContexts {
public:
    RefusedContexts();
    ~RefusedContexts();
    RefusedContexts(const RefusedContexts&) = delete;
    RefusedContexts& operator=(const RefusedContexts&) = delete;

    /// How often something was refused so far.
    static int count();
};

} // namespace velmora::test
