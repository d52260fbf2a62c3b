#pragma once

#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {

/// Root of all input events: which modifier keys were held.
class VELMORA_INTERFACE EventInterface {
public:
    /// The generic modifier mask, independent of the windowing toolkit.
    enum ModifierMask_e { Modifier_None = 0, Modifier_Shift = 1, Modifier_Control = 2, Modifier_Alt = 4 };

    /// A combination of ModifierMask_e bits; all other bits are zero.
    virtual int keyboardModifiers() const = 0;
    /// @{
    /// Whether the modifier key of that name was held.
    virtual bool isControlDown() const = 0;
    virtual bool isShiftDown() const = 0;
    virtual bool isAltDown() const = 0;
    /// @}
    virtual ~EventInterface() = default;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
