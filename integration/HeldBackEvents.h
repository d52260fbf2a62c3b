#pragma once

#include "integration/Export.h"

namespace velmora {
namespace sdk {
namespace integration {

/// What the event monitor holds back from the application between a request to stop the busy engine and
/// the moment when the engine's work has left the call stack.
enum HeldBackEvents_e {
    /// Every event of every type, but the network's. No code of the host runs in an event handler while the
    /// engine unwinds. The price: a queued call (a queued signal connection, `QMetaObject::invokeMethod`, the
    /// result of a worker thread) that arrives then is lost, and so is a host's own event. What the toolkit
    /// itself tells only once is told again afterwards.
    HeldBackEvents_All = 0,
    /// Only what a person does: mouse, keys, wheel, touch, tablet, context menu, input method, shortcuts, drag
    /// and drop, and Close. Everything else passes: paints, timers, queued calls, layouts. Nothing of a worker
    /// thread is lost. The price: the host's timers, slots and paint handlers run while the engine unwinds,
    /// as they do during the engine's work; they must not call the engine then.
    HeldBackEvents_Input = 1
};

/// Chooses what is held back, from the next event on; HeldBackEvents_All until it is called. May be called
/// before the manager exists and at any time after. GUI thread only.
VELMORA_INTEGRATION_EXPORT void setHeldBackEvents(HeldBackEvents_e events);

/// The present choice. GUI thread only.
VELMORA_INTEGRATION_EXPORT HeldBackEvents_e heldBackEvents();

} // namespace integration
} // namespace sdk
} // namespace velmora
