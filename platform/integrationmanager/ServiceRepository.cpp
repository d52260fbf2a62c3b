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

#include <algorithm>
#include <iterator>
#include <string>

namespace velmora::sdk::integration::intern {

namespace {

template <typename Interface>
bool isA(const services::ServiceInterface& service)
{
    return dynamic_cast<const Interface*>(&service) != nullptr;
}

bool isAny(const services::ServiceInterface& /*service*/)
{
    return true;
}

struct ServiceKind {
    bool (*matches)(const services::ServiceInterface& service);
    const char* name;
};

constexpr ServiceKind Kinds[] = {
    {&isA<services::MessageBoxServiceInterface>, "MessageBoxServiceInterface"},
    {&isA<services::SelectFileServiceInterface>, "SelectFileServiceInterface"},
    {&isA<services::CursorShapeServiceInterface>, "CursorShapeServiceInterface"},
    {&isA<services::ManagerMiscServiceInterface>, "ManagerMiscServiceInterface"},
    {&isA<services::OffscreenImageServiceInterface>, "OffscreenImageServiceInterface"},
    {&isA<services::SelectRegionServiceInterface>, "SelectRegionServiceInterface"},
    {&isAny, "ServiceInterface"},
};

const ServiceKind& kindOf(const services::ServiceInterface& service)
{
    return *std::find_if(std::begin(Kinds), std::end(Kinds),
                         [&service](const ServiceKind& kind) { return kind.matches(service); });
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
        velmora::testing::EngineProbe::note(std::string("addService ") + kindOf(service).name);
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

void ServiceRepository::makeCurrentInPlaceOf(const services::ServiceInterface& service)
{
    if (!m_registered)
        return;
    const ServiceKind& kind = kindOf(service);
    services::ServiceInterface* last = nullptr;
    m_services.notify([&](services::ServiceInterface& other) {
        if (&kindOf(other) == &kind)
            last = &other;
    });
    if (last != nullptr)
        last->makeCurrent();
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

void makeSuccessorCurrent(const services::ServiceInterface& service)
{
    LiveObject<ServiceRepository>::forEach(
        [&service](ServiceRepository& repository) { repository.makeCurrentInPlaceOf(service); });
}

} // namespace velmora::sdk::integration::intern
