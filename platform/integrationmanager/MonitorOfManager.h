#pragma once

#include "integrationmanager/ApplicationEventMonitorAbstract.h"
#include "integrationmanager/ManagerAbstract.h"

namespace velmora::sdk::integration::intern {

/// The manager's event monitor with all that a manager needs of it, or null when the manager has a
/// monitor of another making.
inline ApplicationEventMonitorAbstract* monitorOf(ManagerAbstract& manager)
{
    return dynamic_cast<ApplicationEventMonitorAbstract*>(&manager.getApplicationEventMonitor());
}

} // namespace velmora::sdk::integration::intern
