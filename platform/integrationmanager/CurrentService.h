#pragma once

#include "integrationmanager/ServiceRepository.h"

#include <exception>

namespace velmora::sdk::integration::intern {

/// Writes on standard error that a service threw where the engine takes no exception.
void reportFailedService(const char* service, const char* reason);

/// The service of one kind that the engine's callbacks reach. A callback answers as if there were
/// no service when there is none or when it throws, for the engine's frames know no exceptions.
/// Needs no destructor: services die with the statics, and the engine may outlive them.
template <typename Service>
class CurrentService {
public:
    explicit constexpr CurrentService(const char* name) : m_name(name) {}

    void set(Service& service) { m_service = &service; }
    /// The service dies: no repository knows it any more, and when it was the current one, a
    /// repository whose services are registered makes its last one of the kind current.
    void forget(const Service& service)
    {
        const bool wasCurrent = m_service == &service;
        if (wasCurrent)
            m_service = nullptr;
        forgetService(service);
        if (wasCurrent)
            makeSuccessorCurrent(service);
    }
    Service* get() const { return m_service; }

    template <typename Call>
    void call(const Call& call) const
    {
        ask(0, [&call](Service& service) {
            call(service);
            return 0;
        });
    }

    template <typename Answer, typename Call>
    Answer ask(Answer withoutService, const Call& call) const
    {
        if (m_service == nullptr)
            return withoutService;
        try {
            return call(*m_service);
        } catch (const std::exception& exception) {
            reportFailedService(m_name, exception.what());
        } catch (...) {
            reportFailedService(m_name, "unknown reason");
        }
        return withoutService;
    }

private:
    Service* m_service = nullptr;
    const char* m_name;
};

} // namespace velmora::sdk::integration::intern
