#pragma once

#include "interfaces/EventManagerInterface.h"

namespace velmora::sdk::integration {

class ManagerAbstract;

namespace intern {

/// Hands stop buttons on to the manager's event monitor, which keeps them whether it has been
/// started or not.
class EventManager : public EventManagerInterface {
public:
    explicit EventManager(ManagerAbstract& manager) : m_manager(manager) {}

    void registerStopButton(const boost::shared_ptr<const StopButtonInterface>& button) override;
    void unRegisterStopButton(const boost::shared_ptr<const StopButtonInterface>& button) override;

private:
    ManagerAbstract& m_manager;
};

} // namespace intern
} // namespace velmora::sdk::integration
