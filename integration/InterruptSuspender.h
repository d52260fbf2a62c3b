#pragma once

#include "integration/Export.h"

#include <boost/shared_ptr.hpp>

namespace velmora {
namespace sdk {
namespace integration {

class StopButtonInterface;

/// While one lives, neither Escape nor a stop button that was registered before it interrupts the busy
/// engine. A stop button that is registered later still does, and so does a call of `interrupt()`.
/// Scopes nest: each stands for itself. Needs the Manager, on the GUI thread.
class VELMORA_INTEGRATION_EXPORT InterruptSuspender {
public:
    InterruptSuspender();
    InterruptSuspender(const InterruptSuspender&) = delete;
    InterruptSuspender& operator=(const InterruptSuspender&) = delete;
    ~InterruptSuspender();

private:
    boost::shared_ptr<const StopButtonInterface> m_stopButton;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
