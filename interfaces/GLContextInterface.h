#pragma once

#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {

/// The OpenGL context of a drawing area or of an off-screen image, as the engine uses it. GUI
/// thread only.
class VELMORA_INTERFACE GLContextInterface {
public:
    /// Shows what was drawn; does nothing where there is nothing to swap.
    virtual void swapBuffers() = 0;
    /// Makes the context current on the calling thread; false when that failed.
    virtual bool setCurrentGL() = 0;
    /// Tells that the engine is done drawing. The context may stay current.
    virtual bool clearCurrentGL() = 0;
    virtual ~GLContextInterface() = default;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
