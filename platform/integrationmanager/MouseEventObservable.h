#pragma once

#include "engine/VelExport.h"

#include <memory>

namespace velmora {
namespace sdk {
namespace integration {

class MouseEventInterface;
class MouseEventListenerInterface;
class MouseEventObservableInterface;

namespace intern {

/// Keeps the mouse listeners of one producer and notifies them in the order they were added.
class VELMORA_PLATFORM_EXPORT MouseEventObservable {
public:
    MouseEventObservable();
    ~MouseEventObservable();
    MouseEventObservable(const MouseEventObservable&) = delete;
    MouseEventObservable& operator=(const MouseEventObservable&) = delete;

    /// Adding a listener twice has no further effect; null is ignored. Listeners are borrowed.
    void addListener(MouseEventListenerInterface* listener);
    /// A listener that was not added is ignored.
    void removeListener(MouseEventListenerInterface* listener);

    /// @{
    /// Tells the listeners, for the producer `source`. What one throws ends the round and passes through.
    void notifyOfMouseMoved(MouseEventInterface& event, MouseEventObservableInterface& source);
    void notifyOfButtonPressed(MouseEventInterface& event, MouseEventObservableInterface& source);
    void notifyOfButtonReleased(MouseEventInterface& event, MouseEventObservableInterface& source);
    void notifyOfButtonDoublePressed(MouseEventInterface& event, MouseEventObservableInterface& source);
    /// @}

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace intern
} // namespace integration
} // namespace sdk
} // namespace velmora
