#pragma once

#include "interfaces/ManagerEnumerations.h"
#include "interfaces/Signal.h"
#include "interfaces/Visibility.h"

#include <string>

namespace velmora {
namespace sdk {
namespace integration {

class DialogManagerInterface;
class EventManagerInterface;
class PageManagerInterface;
class ServiceRepositoryInterface;

/// Starts and stops the engine and gives access to its sub-managers. GUI thread only.
class VELMORA_INTERFACE ManagerInterface {
    Signal<void()> m_engineStarted;
    Signal<void()> m_engineShutdownInitiated;
    Signal<void()> m_engineShutdownFinished;

public:
    /// @{
    /// A sub-manager. It lives as long as the manager, whether or not the engine runs.
    virtual PageManagerInterface& getPageManager() = 0;
    virtual EventManagerInterface& getEventManager() = 0;
    virtual DialogManagerInterface& getDialogManager() = 0;
    virtual ServiceRepositoryInterface& getServiceRepository() = 0;
    /// @}
    /// A return code in words, for a message to a person.
    virtual std::string returnCodeString(ManagerStartReturnCode_e code) = 0;
    /// Prepares the engine. `argv` (argc entries, only read) may hold `-b` for batch mode;
    /// `homeDirectory` is where the engine looks for its own files, empty for its default, and
    /// `applicationName` is how it names the host in its messages.
    virtual ManagerStartReturnCode_e init(int argc, char* const* argv, std::string homeDirectory,
                                          std::string applicationName) = 0;
    /// The same, with the treatment of states that older versions wrote.
    virtual ManagerStartReturnCode_e init(int argc, char* const* argv, std::string homeDirectory,
                                          StateModernizationLevel_e level, std::string applicationName) = 0;
    /// Starts the engine with its settings at their defaults, registers the services' callbacks and
    /// begins to watch the application's events. Needs `init` and an application object. What a service
    /// or a slot of EngineStarted throws passes through, and the engine is not started then: slots that
    /// were told that it runs are told of its end, as `stop` does.
    virtual ManagerStartReturnCode_e start() = 0;
    /// Ends what `start` began, in the reverse order; drawing areas go before. While the engine is busy,
    /// only asks it to stop and returns; the rest follows at the next idle time, to which the
    /// application's event loop must get. Without a `start` before it, does nothing.
    virtual void stop() = 0;
    /// Whether the command line given to `init` held `-b`.
    virtual bool isInBatchMode() const = 0;

    /// @{
    /// Called when a slot has been connected to the signal of that name.
    virtual void signalEngineStartedConnected() const {}
    virtual void signalEngineShutdownInitiatedConnected() const {}
    virtual void signalEngineShutdownFinishedConnected() const {}
    /// @}

    virtual ~ManagerInterface() = default;

    /// Slot `void()`: the engine runs and may be used. A slot that throws makes the start fail.
    template <typename Slot>
    Connection connectEngineStarted(const Slot& slot)
    {
        return connectTo(m_engineStarted, slot, *this, &ManagerInterface::signalEngineStartedConnected);
    }
    /// Slot `void()`: the engine is about to stop and may still be used.
    template <typename Slot>
    Connection connectEngineShutdownInitiated(const Slot& slot)
    {
        return connectTo(m_engineShutdownInitiated, slot, *this,
                         &ManagerInterface::signalEngineShutdownInitiatedConnected);
    }
    /// Slot `void()`: the engine has stopped.
    template <typename Slot>
    Connection connectEngineShutdownFinished(const Slot& slot)
    {
        return connectTo(m_engineShutdownFinished, slot, *this,
                         &ManagerInterface::signalEngineShutdownFinishedConnected);
    }

protected:
    ManagerInterface() = default;
    ManagerInterface(const ManagerInterface&) = delete;
    ManagerInterface& operator=(const ManagerInterface&) = delete;

    /// @{
    /// Calls the slots of the signal of that name. For the manager alone.
    void emitEngineStarted() { emitTo(m_engineStarted); }
    void emitEngineShutdownInitiated() { emitTo(m_engineShutdownInitiated); }
    void emitEngineShutdownFinished() { emitTo(m_engineShutdownFinished); }
    /// @}
};

} // namespace integration
} // namespace sdk
} // namespace velmora
