#pragma once

#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {

class GLDrawAreaInterface;

/// Hears of the state of one drawing area. Called on the GUI thread, `drawAreaDestroyed` from inside a
/// destructor: it must not throw.
class VELMORA_INTERFACE GLDrawAreaListenerInterface {
public:
    /// The area must show its picture; `sizeChanged` is true the first time and after each resize.
    virtual void drawAreaExposed(GLDrawAreaInterface& area, bool sizeChanged) = 0;
    /// The area is going away. Its context still works during the call, not after it.
    virtual void drawAreaDestroyed(GLDrawAreaInterface& area) = 0;
    /// The area has got the keyboard focus.
    virtual void drawAreaFocusGained(GLDrawAreaInterface& area) = 0;
    virtual ~GLDrawAreaListenerInterface() = default;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
