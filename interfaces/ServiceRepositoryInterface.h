#pragma once

#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {

namespace services {
class ServiceInterface;
}

/// The services that the engine calls back. Services are borrowed: the caller keeps each alive
/// until the engine is stopped. GUI thread only.
class VELMORA_INTERFACE ServiceRepositoryInterface {
public:
    /// Adds a service, as the last one of its kind, which is the one that the engine calls. Its callbacks
    /// are registered when the engine starts, or at once when it runs. Adding a service again makes it
    /// the last one.
    virtual void addService(services::ServiceInterface& service) = 0;
    virtual ~ServiceRepositoryInterface() = default;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
