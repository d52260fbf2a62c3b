#include "integrationmanager/ManagerAbstract.h"

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "integrationmanager/DestructionNote.h"
#include "integrationmanager/DialogManager.h"
#include "integrationmanager/EventManager.h"
#include "integrationmanager/MonitorOfManager.h"
#include "integrationmanager/PageManager.h"
#include "integrationmanager/ServiceRepository.h"
#include "interfaces/OnIdleListenerInterface.h"
#include "testing/EngineProbe.h"

#include <cstdio>
#include <cstring>
#include <exception>
#include <utility>

namespace velmora::sdk::integration {

namespace {

struct ReturnCodeText {
    ManagerStartReturnCode_e code;
    const char* text;
};

constexpr ReturnCodeText ReturnCodeTexts[] = {
    {ManagerStartReturnCode_Ok, "The engine was started."},
    {ManagerStartReturnCode_NotInitialized, "The manager was not initialised: call init before start."},
    {ManagerStartReturnCode_AlreadyStarted, "The engine runs already: call stop first."},
    {ManagerStartReturnCode_BadArgument, "The command line given to init is not valid: argc is negative or argv null."},
    {ManagerStartReturnCode_EngineFailed, "The engine could not be started."},
};

bool asksForBatchMode(int argc, char* const* argv)
{
    // The first entry is the program's own name.
    for (int i = 1; i < argc; ++i)
        if (argv[i] != nullptr && std::strcmp(argv[i], "-b") == 0)
            return true;
    return false;
}

/// In a catch block: tells of an exception that goes no further.
void report(const char* consequence)
{
    try {
        throw;
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "%s: %s\n", consequence, exception.what());
    } catch (...) {
        std::fprintf(stderr, "%s.\n", consequence);
    }
}

/// Emits a signal while another exception is on its way, which is the one that the caller is to get.
template <typename Emit>
void emitAfterFailure(const Emit& emit)
{
    try {
        emit();
    } catch (...) {
        report("A slot failed while a start that had failed was undone");
    }
}

/// The engine's slices of work end here. An exception of a listener must not pass through the
/// engine's frames; it ends the work instead.
int processWhileBusy(long clientData)
{
    auto* const monitor = reinterpret_cast<intern::ApplicationEventMonitorAbstract*>(clientData);
    try {
        return monitor->processWhileBusy() ? 1 : 0;
    } catch (...) {
        report("The work was stopped, for a listener failed");
    }
    return 1;
}

} // namespace

struct ManagerAbstract::Impl : public OnIdleListenerInterface {
    enum class Life { Stopped, Starting, Running, Stopping };

    explicit Impl(ManagerAbstract& manager) : owner(manager), events(manager) {}

    ManagerStartReturnCode_e initialize(int argc, char* const* argv, std::string home, std::string application);
    void bringUp();
    void takeDown();
    void endFailedStart();
    void stopWhenIdle();
    /// The engine was busy when `stop` was called; now it is not.
    void onIdle(OnIdleObservableInterface& source) override;

    ManagerAbstract& owner;
    Life life = Life::Stopped;
    bool initialized = false;
    bool batchMode = false;
    std::string homeDirectory;
    std::string applicationName;

    // The sub-managers live as long as the manager, so that references to them stay good from one
    // start to the next.
    intern::ServiceRepository services;
    intern::PageManager pages;
    intern::EventManager events;
    intern::DialogManager dialogs;
};

ManagerStartReturnCode_e ManagerAbstract::Impl::initialize(int argc, char* const* argv, std::string home,
                                                           std::string application)
{
    if (argc < 0 || argv == nullptr)
        return ManagerStartReturnCode_BadArgument;
    if (life != Life::Stopped)
        return ManagerStartReturnCode_AlreadyStarted;
    batchMode = asksForBatchMode(argc, argv);
    homeDirectory = std::move(home);
    applicationName = std::move(application);
    initialized = true;
    return ManagerStartReturnCode_Ok;
}

void ManagerAbstract::Impl::bringUp()
{
    owner.subManagersInstantiate();
    owner.subManagersRegisterCallbacks();
    if (auto* const monitor = intern::monitorOf(owner)) {
        VelEngProcessWhileBusyRegisterCallback(&processWhileBusy, reinterpret_cast<long>(monitor));
        monitor->start();
    }
}

void ManagerAbstract::Impl::takeDown()
{
    if (auto* const monitor = intern::monitorOf(owner)) {
        monitor->removeOnIdleListener(this);
        monitor->stop();
    }
    VelEngProcessWhileBusyRegisterCallback(nullptr, 0);
    services.takeCallbacksAway();
    owner.subManagersDestroy();
    VelEngStop();
}

/// A slot failed on hearing that the engine runs. Others heard it before, and now hear of its end.
void ManagerAbstract::Impl::endFailedStart()
{
    // The slot may have stopped the engine itself.
    if (life != Life::Running)
        return;
    life = Life::Stopping;
    emitAfterFailure([this] { owner.emitEngineShutdownInitiated(); });
    takeDown();
    life = Life::Stopped;
    emitAfterFailure([this] { owner.emitEngineShutdownFinished(); });
}

void ManagerAbstract::Impl::stopWhenIdle()
{
    if (auto* const monitor = intern::monitorOf(owner)) {
        monitor->addOnIdleListener(this);
        monitor->interrupt();
    }
}

void ManagerAbstract::Impl::onIdle(OnIdleObservableInterface& source)
{
    source.removeOnIdleListener(this);
    owner.stop();
}

ManagerAbstract::ManagerAbstract()
{
    velmora::testing::EngineProbe::passPoint("ManagerAbstract");
    m_impl = std::make_unique<Impl>(*this);
}

// Does not stop the engine: at the end of the process the application object and what the engine
// draws with are gone already.
ManagerAbstract::~ManagerAbstract()
{
    intern::noteDestruction("ManagerAbstract");
}

PageManagerInterface& ManagerAbstract::getPageManager()
{
    return m_impl->pages;
}

EventManagerInterface& ManagerAbstract::getEventManager()
{
    return m_impl->events;
}

DialogManagerInterface& ManagerAbstract::getDialogManager()
{
    return m_impl->dialogs;
}

ServiceRepositoryInterface& ManagerAbstract::getServiceRepository()
{
    return m_impl->services;
}

std::string ManagerAbstract::returnCodeString(ManagerStartReturnCode_e code)
{
    for (const ReturnCodeText& entry : ReturnCodeTexts)
        if (entry.code == code)
            return entry.text;
    return "Unknown return code " + std::to_string(static_cast<int>(code)) + ".";
}

ManagerStartReturnCode_e ManagerAbstract::init(int argc, char* const* argv, std::string homeDirectory,
                                               std::string applicationName)
{
    return m_impl->initialize(argc, argv, std::move(homeDirectory), std::move(applicationName));
}

ManagerStartReturnCode_e ManagerAbstract::init(int argc, char* const* argv, std::string homeDirectory,
                                               StateModernizationLevel_e, std::string applicationName)
{
    return m_impl->initialize(argc, argv, std::move(homeDirectory), std::move(applicationName));
}

ManagerStartReturnCode_e ManagerAbstract::start()
{
    if (!m_impl->initialized)
        return ManagerStartReturnCode_NotInitialized;
    if (m_impl->life != Impl::Life::Stopped)
        return ManagerStartReturnCode_AlreadyStarted;
    if (VelEngStart(m_impl->homeDirectory.c_str(), m_impl->applicationName.c_str()) == 0)
        return ManagerStartReturnCode_EngineFailed;
    m_impl->life = Impl::Life::Starting;
    try {
        m_impl->bringUp();
    } catch (...) {
        m_impl->takeDown();
        m_impl->life = Impl::Life::Stopped;
        throw;
    }
    m_impl->life = Impl::Life::Running;
    try {
        emitEngineStarted();
    } catch (...) {
        m_impl->endFailedStart();
        throw;
    }
    return ManagerStartReturnCode_Ok;
}

void ManagerAbstract::stop()
{
    if (m_impl->life != Impl::Life::Running)
        return;
    if (VelUtilIsBusy() == 1) {
        // The engine's work is below us on the call stack, so this call cannot wait for its end.
        m_impl->stopWhenIdle();
        return;
    }
    m_impl->life = Impl::Life::Stopping;
    try {
        emitEngineShutdownInitiated();
    } catch (...) {
        m_impl->life = Impl::Life::Running;
        throw;
    }
    m_impl->takeDown();
    m_impl->life = Impl::Life::Stopped;
    emitEngineShutdownFinished();
}

bool ManagerAbstract::isInBatchMode() const
{
    return m_impl->batchMode;
}

void ManagerAbstract::subManagersInstantiate()
{
    m_impl->pages.open();
}

void ManagerAbstract::subManagersRegisterCallbacks()
{
    m_impl->services.registerCallbacks();
}

void ManagerAbstract::subManagersDestroy()
{
    m_impl->pages.close();
}

} // namespace velmora::sdk::integration
