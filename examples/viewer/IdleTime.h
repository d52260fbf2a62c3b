#pragma once

#include "integration/Manager.h"
#include "interfaces/ApplicationEventMonitorInterface.h"
#include "interfaces/OnIdleObservableInterface.h"

namespace viewer {

/// Tells its listeners when the application has nothing to do.
inline velmora::sdk::integration::OnIdleObservableInterface& idleTime()
{
    using namespace velmora::sdk::integration;
    return dynamic_cast<OnIdleObservableInterface&>(Manager::getInstance().getApplicationEventMonitor());
}

} // namespace viewer
