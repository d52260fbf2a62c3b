#pragma once

#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {

class KeyEventListenerInterface;

/// A source of key events. Listeners are borrowed: remove one before it is destroyed. GUI
/// thread only.
class VELMORA_INTERFACE KeyEventObservableInterface {
public:
    /// Adding a listener twice has no further effect; null is ignored.
    virtual void addKeyboardListener(KeyEventListenerInterface* listener) = 0;
    /// A listener that was not added is ignored.
    virtual void removeKeyboardListener(KeyEventListenerInterface* listener) = 0;
    virtual ~KeyEventObservableInterface() = default;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
