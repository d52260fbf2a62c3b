#pragma once

#include "integration/opengl/EglLibrary.h"

#include <vector>

namespace velmora::sdk::integration::intern {

/// What draws behind an EGL context.
enum class EglRenderer {
    Any,     ///< a graphics processor where there is one, else the processor
    Software ///< the processor, also where there is a graphics processor
};

/// An OpenGL that needs no display, as EGL hands it out.
struct EglDevice {
    EGLDisplay display;
    bool isKnownSoftware; ///< else it may be either
};

/// Those to be tried for the renderer, the preferred one first; not initialised. Empty where the library
/// offers none without a display.
std::vector<EglDevice> eglDevices(const EglLibrary& library, EglRenderer renderer);

} // namespace velmora::sdk::integration::intern
