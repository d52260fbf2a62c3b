#pragma once

#include "integration/Export.h"

#include <boost/shared_ptr.hpp>

namespace velmora {
namespace sdk {
namespace integration {

class StopButtonInterface;

/// While one lives, no input interrupts the busy engine. Scopes nest: each stands for itself. Needs
/// the Manager, on the GUI thread.
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
