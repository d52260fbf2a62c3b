#pragma once

#include "integration/opengl/EglDevices.h"

#include <memory>

namespace velmora::sdk::integration::intern {

struct ReadingGL;

/// An OpenGL context without a surface, a display or a toolkit. It draws into framebuffer objects only.
class SurfacelessContext {
public:
    /// Null where there is no EGL, or none that draws OpenGL (not only OpenGL ES) without a surface. No other
    /// context may be current (releaseEveryContext()), and none is afterwards.
    static std::unique_ptr<SurfacelessContext> create(EglRenderer renderer);
    ~SurfacelessContext();
    SurfacelessContext(const SurfacelessContext&) = delete;
    SurfacelessContext& operator=(const SurfacelessContext&) = delete;

    /// No other context may be current (releaseEveryContext()). False when it is lost.
    bool makeCurrent() const;
    /// When it is current, none is afterwards.
    void release() const;
    /// Releases whichever of these contexts is current on this thread, if one is.
    static void releaseCurrent();

    /// What the context draws and is read with.
    static const ReadingGL& gl();

private:
    SurfacelessContext(const EglLibrary& library, EGLDisplay display, EGLContext context);

    static std::unique_ptr<SurfacelessContext> createOn(const EglLibrary& library, const EglDevice& device,
                                                        EglRenderer renderer);
    bool isCurrent() const;
    bool draws(EglRenderer renderer, bool isKnownSoftware) const;

    const EglLibrary& m_egl;
    EGLDisplay m_display; ///< for the life of the process: others may use the same
    EGLContext m_context;
};

} // namespace velmora::sdk::integration::intern
