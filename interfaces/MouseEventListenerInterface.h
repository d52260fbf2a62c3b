#pragma once

#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {

class MouseEventInterface;
class MouseEventObservableInterface;

/// Hears of mouse events of one observable. Called on the GUI thread; the event is valid only
/// during the call. A listener may remove itself or others, but must not destroy the observable.
class VELMORA_INTERFACE MouseEventListenerInterface {
public:
    /// @{
    /// What the name says happened at `source`. The second press of a double click is announced as
    /// `buttonDoublePressed` alone.
    virtual void mouseMoved(MouseEventInterface& event, MouseEventObservableInterface& source) = 0;
    virtual void buttonPressed(MouseEventInterface& event, MouseEventObservableInterface& source) = 0;
    virtual void buttonReleased(MouseEventInterface& event, MouseEventObservableInterface& source) = 0;
    virtual void buttonDoublePressed(MouseEventInterface& event, MouseEventObservableInterface& source) = 0;
    /// @}
    virtual ~MouseEventListenerInterface() = default;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
