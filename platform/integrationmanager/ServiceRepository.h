#pragma once

#include "integrationmanager/ListenerList.h"
#include "integrationmanager/LiveObject.h"
#include "interfaces/ServiceRepositoryInterface.h"

namespace velmora::sdk::integration::intern {

/// The services in the order they were added; of two of a kind, the one added last is reached, and
/// when that one dies, the other.
class ServiceRepository : public ServiceRepositoryInterface {
public:
    ServiceRepository() : m_live(*this) {}
    ServiceRepository(const ServiceRepository&) = delete;
    ServiceRepository& operator=(const ServiceRepository&) = delete;

    /// Adding a service again makes it the last added.
    void addService(services::ServiceInterface& service) override;
    void removeService(const services::ServiceInterface& service) { m_services.remove(&service); }
    /// Registers the callbacks of all services, and from now on of each that is added.
    void registerCallbacks();
    /// Makes the last of the services of `service`'s kind current, if their callbacks are registered.
    void makeCurrentInPlaceOf(const services::ServiceInterface& service);
    /// Takes the callbacks of all services away from the engine.
    void takeCallbacksAway();

private:
    ListenerList<services::ServiceInterface> m_services;
    LiveObject<ServiceRepository> m_live;
    bool m_registered = false;
};

/// Removes a service that dies from every repository.
void forgetService(const services::ServiceInterface& service);
/// Lets the repositories replace a service that was current and dies; it is in none any more. It has
/// come down to the part that the services of its kind share.
void makeSuccessorCurrent(const services::ServiceInterface& service);

} // namespace velmora::sdk::integration::intern
