#pragma once

#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {

class KeyEventInterface;
class KeyEventObservableInterface;

/// Hears of key events of one observable. Called on the GUI thread; the event is valid only during
/// the call. A listener may remove itself or others, but must not destroy the observable.
class VELMORA_INTERFACE KeyEventListenerInterface {
public:
    /// @{
    /// What the name says happened at `source`.
    virtual void keyPressed(KeyEventInterface& event, KeyEventObservableInterface& source) = 0;
    virtual void keyReleased(KeyEventInterface& event, KeyEventObservableInterface& source) = 0;
    /// @}
    virtual ~KeyEventListenerInterface() = default;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
