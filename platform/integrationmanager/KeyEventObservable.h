#pragma once

#include "engine/VelExport.h"

#include <memory>

namespace velmora {
namespace sdk {
namespace integration {

class KeyEventInterface;
class KeyEventListenerInterface;
class KeyEventObservableInterface;

namespace intern {

/// Keeps the keyboard listeners of one producer and notifies them in the order they were added.
class VELMORA_PLATFORM_EXPORT KeyEventObservable {
public:
    KeyEventObservable();
    ~KeyEventObservable();
    KeyEventObservable(const KeyEventObservable&) = delete;
    KeyEventObservable& operator=(const KeyEventObservable&) = delete;

    /// Adding a listener twice has no further effect; null is ignored. Listeners are borrowed.
    void addListener(KeyEventListenerInterface* listener);
    /// A listener that was not added is ignored.
    void removeListener(KeyEventListenerInterface* listener);

    /// @{
    /// Tells the listeners, for the producer `source`. What one throws ends the round and passes through.
    void notifyOfKeyPressed(KeyEventInterface& event, KeyEventObservableInterface& source);
    void notifyOfKeyReleased(KeyEventInterface& event, KeyEventObservableInterface& source);
    /// @}

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace intern
} // namespace integration
} // namespace sdk
} // namespace velmora
