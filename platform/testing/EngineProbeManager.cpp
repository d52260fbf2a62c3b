#include "integrationmanager/MonitorProbe.h"
#include "integrationmanager/PageTrackers.h"
#include "testing/EngineProbe.h"

// The part of the probe that steers what lies above the engine.

namespace velmora::testing {

using sdk::integration::intern::MonitorProbe;
using sdk::integration::intern::overridePageTrackerStates;

namespace {

void undoSteering()
{
    MonitorProbe::askToStop(false);
    MonitorProbe::discardNextEvent(false);
    overridePageTrackerStates(-1);
}

/// Registers the hook while this library is loaded, which is after the engine's.
struct ResetHook {
    ResetHook() { EngineProbe::addResetHook(&undoSteering); }
} resetHook;

} // namespace

void EngineProbe::askToStop(bool stop)
{
    MonitorProbe::askToStop(stop);
}

void EngineProbe::discardNextEvent()
{
    MonitorProbe::discardNextEvent(true);
}

bool EngineProbe::isDiscardingNextEvent()
{
    return MonitorProbe::isDiscardingNextEvent();
}

void EngineProbe::setPageTrackerState(int state)
{
    overridePageTrackerStates(state);
}

} // namespace velmora::testing
