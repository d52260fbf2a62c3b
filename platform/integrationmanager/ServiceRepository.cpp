#include "integrationmanager/ServiceRepository.h"

#include "engine/VelEng.h"
#include "interfaces/services/CursorShapeServiceInterface.h"
#include "interfaces/services/ManagerMiscServiceInterface.h"
#include "interfaces/services/MessageBoxServiceInterface.h"
#include "interfaces/services/OffscreenImageServiceInterface.h"
#include "interfaces/services/SelectFileServiceInterface.h"
#include "interfaces/services/SelectRegionServiceInterface.h"
#include "interfaces/services/ServiceInterface.h"
#include "testing/EngineProbe.h"

#include <string>

namespace velmora::sdk::integration::intern {

namespace {

template <typename Interface>
bool isA(const services::ServiceInterface& service)
{
    return dynamic_cast<const Interface*>(&service) != nullptr;
}

struct ServiceKind {
    bool (*matches)(const services::ServiceInterface& service);
    const char* name;
};

constexpr ServiceKind kinds[] = {
    {&isA<services::MessageBoxServiceInterface>, "MessageBoxServiceInterface"},
    {&isA<services::SelectFileServiceInterface>, "SelectFileServiceInterface"},
    {&isA<services::CursorShapeServiceInterface>, "CursorShapeServiceInterface"},
    {&isA<services::ManagerMiscServiceInterface>, "ManagerMiscServiceInterface"},
    {&isA<services::OffscreenImageServiceInterface>, "OffscreenImageServiceInterface"},
    {&isA<services::SelectRegionServiceInterface>, "SelectRegionServiceInterface"},
};

const char* kindOf(const services::ServiceInterface& service)
{
    for (const ServiceKind& kind : kinds) {
        if (kind.matches(service))
            return kind.name;
    }
    return "ServiceInterface";
}

void connectToEngine(services::ServiceInterface& service)
{
    service.registerCallbacks();
    service.makeCurrent();
}

} // namespace

void ServiceRepository::addService(services::ServiceInterface& service)
{
    if (velmora::testing::EngineProbe::isLogging())
        velmora::testing::EngineProbe::note(std::string("addService ") + kindOf(service));
    m_services.remove(&service);
    m_services.add(&service);
    if (m_registered)
        connectToEngine(service);
}

void ServiceRepository::registerCallbacks()
{
    m_registered = true;
    m_services.notify(&connectToEngine);
}

void ServiceRepository::takeCallbacksAway()
{
    m_registered = false;
    VelEngMessageBoxRegisterCallback(nullptr, 0);
    VelEngSelectFileRegisterCallback(nullptr, 0);
    VelEngWaitCursorRegisterCallback(nullptr, 0);
    VelEngBaseCursorRegisterCallback(nullptr, 0);
    VelEngSelectRegionRegisterCallback(nullptr, 0);
    VelEngMiscRegisterCallbacks(nullptr, 0);
    VelEngOffscreenImageRegisterCallbacks(nullptr, 0);
}

void forgetService(const services::ServiceInterface& service)
{
    LiveObject<ServiceRepository>::forEach(
        [&service](ServiceRepository& repository) { repository.removeService(service); });
}

} // namespace velmora::sdk::integration::intern
