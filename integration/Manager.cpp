#include "integration/Manager.h"

#include "exception/ExceptionBase.h"
#include "integration/intern/ApplicationEventMonitor.h"
#include "integration/services/CursorShapeService.h"
#include "integration/services/ManagerMiscService.h"
#include "integration/services/MessageBoxService.h"
#include "integration/services/OffscreenImageService.h"
#include "integration/services/SelectFileService.h"
#include "interfaces/ServiceRepositoryInterface.h"

#include <QCoreApplication>
#include <QThread>

namespace velmora::sdk::integration {

struct Manager::Impl {
    explicit Impl(Manager& manager)
        : owner(&manager), applicationEventMonitor(std::make_unique<intern::ApplicationEventMonitor>(manager))
    {}

    Manager* owner; // deliberate: seen in a debugger; never read
    // In the order of their creation, so that they are destroyed in the reverse one: the services
    // from the last to the first, then the monitor.
    std::unique_ptr<intern::ApplicationEventMonitor> applicationEventMonitor;
    std::unique_ptr<services::MessageBoxService> messageBoxService;
    std::unique_ptr<services::SelectFileService> selectFileService;
    std::unique_ptr<services::CursorShapeService> cursorShapeService;
    std::unique_ptr<services::ManagerMiscService> managerMiscService;
    std::unique_ptr<services::OffscreenImageService> offscreenImageService;
};

namespace {

template <typename Service>
void createService(std::unique_ptr<Service>& field, ServiceRepositoryInterface& repository)
{
    field = std::make_unique<Service>();
    repository.addService(*field);
}

/// The event filter belongs to the thread that makes it, and the toolkit ignores one of another thread.
void requireThreadOfApplication()
{
    const QCoreApplication* const application = QCoreApplication::instance();
    if (application && application->thread() != QThread::currentThread())
        throw ExceptionBase("The first Manager::getInstance() came from another thread than the application object's. "
                            "Call it once on that thread before any other thread does.");
}

} // namespace

Manager& Manager::getInstance()
{
    static Manager manager;
    return manager;
}

Manager::Manager()
{
    requireThreadOfApplication();
    m_impl = std::make_unique<Impl>(*this);
    ServiceRepositoryInterface& repository = getServiceRepository();
    createService(m_impl->messageBoxService, repository);
    createService(m_impl->selectFileService, repository);
    createService(m_impl->cursorShapeService, repository);
    createService(m_impl->managerMiscService, repository);
    createService(m_impl->offscreenImageService, repository);
}

// Services, monitor and record go before ManagerAbstract and the signals do.
Manager::~Manager() = default;

ApplicationEventMonitorInterface& Manager::getApplicationEventMonitor()
{
    return *m_impl->applicationEventMonitor;
}

threedmouse::DeviceState_e Manager::startThreedMouse(const std::string& deviceName, const QWidget& widget)
{
    m_impl->applicationEventMonitor->startThreedMouse(deviceName, widget);
    return threedmouse::deviceState();
}

void Manager::subManagersInstantiate()
{
    ManagerAbstract::subManagersInstantiate();
}

void Manager::subManagersRegisterCallbacks()
{
    ManagerAbstract::subManagersRegisterCallbacks();
}

void Manager::subManagersDestroy()
{
    ManagerAbstract::subManagersDestroy();
}

} // namespace velmora::sdk::integration
