#pragma once

#include <atomic>
#include <boost/signals2.hpp>
#include <utility>

namespace velmora {
namespace sdk {
namespace integration {

/// What a connection to a Signal gives back: `disconnect()` ends it, a
/// `boost::signals2::scoped_connection` made from it ends it with a scope.
using Connection = boost::signals2::connection;

/// The signal type of every interface: a boost::signals2 signal with the default combiner and its
/// own mutex, which also knows whether anybody has ever listened. Most signals never get a slot, and
/// even asking a boost signal whether it is empty takes its mutex and walks its list: too much for a
/// mouse move.
template <typename Signature>
class Signal {
public:
    /// Adds a slot of the signature; it is called after those that were added before.
    template <typename Slot>
    Connection connect(const Slot& slot)
    {
        m_hasBeenConnected.store(true, std::memory_order_release);
        return m_signal.connect(slot);
    }

    /// Whether there has ever been a slot. Cheap, and without a lock.
    bool hasBeenConnected() const { return m_hasBeenConnected.load(std::memory_order_acquire); }

    /// Calls every slot. What a slot throws ends the call and passes through.
    template <typename... Arguments>
    void operator()(Arguments&&... arguments)
    {
        m_signal(std::forward<Arguments>(arguments)...);
    }

private:
    boost::signals2::signal<Signature> m_signal;
    std::atomic<bool> m_hasBeenConnected{false};
};

/// Connects a slot and then tells the interface that owns the signal, through its
/// `signal…Connected()` hook.
template <typename Signature, typename Slot, typename Interface>
Connection connectTo(Signal<Signature>& signal, const Slot& slot, const Interface& owner,
                     void (Interface::*connectedHook)() const)
{
    Connection connection = signal.connect(slot);
    (owner.*connectedHook)();
    return connection;
}

/// Emits a signal that most likely has no slots: calling one takes its mutex and allocates, also when
/// nobody listens.
template <typename Signature, typename... Arguments>
void emitTo(Signal<Signature>& signal, Arguments&&... arguments)
{
    if (signal.hasBeenConnected())
        signal(std::forward<Arguments>(arguments)...);
}

} // namespace integration
} // namespace sdk
} // namespace velmora
