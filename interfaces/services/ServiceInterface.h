#pragma once

#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {
namespace services {

/// Root of every service that the engine calls back. GUI thread only.
class VELMORA_INTERFACE ServiceInterface {
public:
    virtual ~ServiceInterface() = default;
    /// Installs the engine callbacks that forward to the service's operations.
    virtual void registerCallbacks() = 0;
    /// Makes this object the one that the engine's callbacks reach.
    virtual void makeCurrent() = 0;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
