#pragma once

#include "Log.h"

#include "engine/VelEng.h"
#include "integrationmanager/ApplicationEventMonitorAbstract.h"
#include "interfaces/StopButtonInterface.h"

#include <functional>

namespace velmora::tests {

/// An event monitor without a toolkit: the test takes the part of the windowing system.
class FakeMonitor : public sdk::integration::intern::ApplicationEventMonitorAbstract {
public:
    explicit FakeMonitor(sdk::integration::ManagerInterface& manager) : ApplicationEventMonitorAbstract(manager) {}

    void processWhileBusy_Internal() override
    {
        if (duringTurn)
            duringTurn();
    }
    void interruptEventProcessing() override { ++interruptedTurns; }
    operator long() const override { return reinterpret_cast<long>(this); }
    bool start() override
    {
        if (log != nullptr)
            log->push_back("monitor start");
        if (duringStart)
            duringStart();
        VelEngEngineNotBusyRegisterCallback(&FakeMonitor::engineIsNotBusy, reinterpret_cast<long>(this));
        return true;
    }
    bool stop() override
    {
        if (log != nullptr)
            log->push_back("monitor stop");
        VelEngEngineNotBusyRegisterCallback(nullptr, 0);
        return true;
    }

    using ApplicationEventMonitorAbstract::notifyOfButtonDoublePressed;
    using ApplicationEventMonitorAbstract::notifyOfButtonPressed;
    using ApplicationEventMonitorAbstract::notifyOfButtonReleased;
    using ApplicationEventMonitorAbstract::notifyOfIdle;
    using ApplicationEventMonitorAbstract::notifyOfKeyPressed;
    using ApplicationEventMonitorAbstract::notifyOfKeyReleased;
    using ApplicationEventMonitorAbstract::notifyOfMouseMoved;
    using ApplicationEventMonitorAbstract::threedMouseButtonAction;
    using ApplicationEventMonitorAbstract::threedMouseMoveEvent;
    using ApplicationEventMonitorAbstract::threedMouseStopEvent;

    bool isDiscardingNextEvent() const { return discardNextEvent; }
    /// What the toolkit's monitor does with an event: true when it does not reach its receiver.
    bool discards(const void* receiver)
    {
        if (!discardNextEvent)
            return false;
        discardNextEvent = false;
        return !isStopButton(receiver);
    }

    std::function<void()> duringStart;
    std::function<void()> duringTurn;
    Log* log = nullptr;
    int interruptedTurns = 0;

private:
    static void engineIsNotBusy(long clientData)
    {
        reinterpret_cast<FakeMonitor*>(clientData)->emitEngineIsNoLongerBusy();
    }
};

/// A stop button whose widget is the object itself.
struct FakeStopButton : public virtual sdk::integration::StopButtonInterface {
    bool isActive() const override { return active; }
    bool isEqual(const void* object) const override { return object == this; }
    bool active = true;
};

/// In force, and no object is ever it.
struct NoStopButton : public virtual sdk::integration::StopButtonInterface {
    bool isActive() const override { return true; }
    bool isEqual(const void*) const override { return false; }
};

} // namespace velmora::tests
