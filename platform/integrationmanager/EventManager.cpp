#include "integrationmanager/EventManager.h"

#include "integrationmanager/ManagerAbstract.h"
#include "integrationmanager/MonitorOfManager.h"

namespace velmora::sdk::integration::intern {

void EventManager::registerStopButton(const boost::shared_ptr<const StopButtonInterface>& button)
{
    if (auto* const monitor = monitorOf(m_manager))
        monitor->registerStopButton(button);
}

void EventManager::unRegisterStopButton(const boost::shared_ptr<const StopButtonInterface>& button)
{
    if (auto* const monitor = monitorOf(m_manager))
        monitor->unRegisterStopButton(button);
}

} // namespace velmora::sdk::integration::intern
