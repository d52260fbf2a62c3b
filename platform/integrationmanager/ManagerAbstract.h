#pragma once

#include "engine/VelExport.h"
#include "interfaces/ManagerInterface.h"

#include <memory>

namespace velmora {
namespace sdk {
namespace integration {

class ApplicationEventMonitorInterface;

/// What is the same for a manager on every windowing toolkit: the engine's life, its sub-managers
/// and its services. A toolkit's manager supplies the event monitor and fills the repository.
class VELMORA_PLATFORM_EXPORT ManagerAbstract : public virtual ManagerInterface {
public:
    PageManagerInterface& getPageManager() override;
    EventManagerInterface& getEventManager() override;
    DialogManagerInterface& getDialogManager() override;
    ServiceRepositoryInterface& getServiceRepository() override;
    std::string returnCodeString(ManagerStartReturnCode_e code) override;
    /// Directory and name are handed to VelEngStart.
    ManagerStartReturnCode_e init(int argc, char* const* argv, std::string homeDirectory,
                                  std::string applicationName) override;
    /// The level has no effect: the reference engine reads no saved states.
    ManagerStartReturnCode_e init(int argc, char* const* argv, std::string homeDirectory,
                                  StateModernizationLevel_e level, std::string applicationName) override;
    ManagerStartReturnCode_e start() override;
    /// While the engine is busy, its work is below the caller on the call stack: `stop` then asks it
    /// to stop its work, returns at once, and follows when the application is idle next. A caller that must
    /// be sure calls it again after the work has unwound, for example after the event loop.
    void stop() override;
    bool isInBatchMode() const override;

    ~ManagerAbstract() override;

protected:
    ManagerAbstract();

    /// @{
    /// Steps of `start` and `stop`, for a toolkit's manager to add to: the page manager opens, the
    /// services' callbacks are registered, the page manager closes.
    virtual void subManagersInstantiate();
    virtual void subManagersRegisterCallbacks();
    virtual void subManagersDestroy();
    /// @}

public:
    /// The toolkit's watch over the application's events; it lives as long as the manager.
    virtual ApplicationEventMonitorInterface& getApplicationEventMonitor() = 0;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
