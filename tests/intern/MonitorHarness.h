#pragma once

#include "integration/intern/ApplicationEventMonitor.h"
#include "integration/intern/EventCloner.h"
#include "interfaces/KeyEventListenerInterface.h"
#include "interfaces/MouseEventListenerInterface.h"
#include "interfaces/OnIdleListenerInterface.h"
#include "interfaces/StopButtonInterface.h"

#include <QCoreApplication>
#include <QEvent>
#include <functional>
#include <string>
#include <vector>

namespace velmora::sdk::integration::intern {

/// Looks inside the monitor.
struct EventFilterProbe {
    using Filter = ApplicationEventMonitor::EventFilter;
    using EventCloner = Filter::EventCloner;

    static Filter& filter(ApplicationEventMonitor& monitor) { return monitor.m_eventFilter; }
    static QEvent* waiting(ApplicationEventMonitor& monitor) { return monitor.m_eventFilter.m_interruptedEvent.get(); }
    static QEvent* dispatching(ApplicationEventMonitor& monitor) { return monitor.m_eventFilter.m_dispatchingEvent; }
    static QEvent* parked(ApplicationEventMonitor& monitor) { return monitor.m_eventFilter.m_currentEvent; }
    static bool isWatching(ApplicationEventMonitor& monitor) { return bool(monitor.m_eventFilter.m_receiverListener); }
    static int idleTimer(ApplicationEventMonitor& monitor) { return monitor.m_eventFilter.m_idleTimerId; }
    static bool idleTimerRuns(ApplicationEventMonitor& monitor) { return monitor.m_eventFilter.m_idleTimerActive; }
    static bool idleTimerWasKilled(ApplicationEventMonitor& monitor)
    {
        return monitor.m_eventFilter.m_idleTimerKilledWhileBusy;
    }
};

} // namespace velmora::sdk::integration::intern

namespace velmora::test {

namespace integration = velmora::sdk::integration;
using Monitor = integration::intern::ApplicationEventMonitor;
using Probe = integration::intern::EventFilterProbe;

/// What happened, in order, in words.
using Journal = std::vector<std::string>;

/// An event in words: "KeyPress 65", "MouseButtonPress 1 at 3,4", with " from X" when spontaneous.
std::string describe(const QEvent& event);

/// A monitor whose state is set by hand, on a manager that manages nothing.
class SteeredMonitor : public Monitor {
public:
    SteeredMonitor();
    ~SteeredMonitor() override;

    bool isBusy() const override { return busy; }
    bool shouldInterrupt() override;
    void interrupt() override { ++interruptCalls; }

    void discardNext() { discardNextEvent = true; }
    void stopDiscarding() { discardNextEvent = false; }
    bool isDiscarding() const { return discardNextEvent; }
    void moveThreedMouse(const MotionData& motion) { threedMouseMoveEvent(motion); }

    bool busy = false;
    bool interrupting = false;
    int interruptCalls = 0;
    int timesAsked = 0;                 ///< shouldInterrupt
    std::function<void(int)> whenAsked; ///< with the number of times before
};

/// The monitor as it is, on a manager that manages nothing; EngineProbe steers the engine behind it.
class PlainMonitor : public Monitor {
public:
    PlainMonitor();
    ~PlainMonitor() override;
};

/// Writes down everything that a monitor tells its listeners.
class Listening : public integration::MouseEventListenerInterface,
                  public integration::KeyEventListenerInterface,
                  public integration::OnIdleListenerInterface {
public:
    Listening(Monitor& monitor, Journal& journal);
    ~Listening() override;

    void mouseMoved(integration::MouseEventInterface& event, integration::MouseEventObservableInterface&) override;
    void buttonPressed(integration::MouseEventInterface& event, integration::MouseEventObservableInterface&) override;
    void buttonReleased(integration::MouseEventInterface& event, integration::MouseEventObservableInterface&) override;
    void buttonDoublePressed(integration::MouseEventInterface& event,
                             integration::MouseEventObservableInterface&) override;
    void keyPressed(integration::KeyEventInterface& event, integration::KeyEventObservableInterface&) override;
    void keyReleased(integration::KeyEventInterface& event, integration::KeyEventObservableInterface&) override;
    void onIdle(integration::OnIdleObservableInterface&) override;

    std::function<void()> onKeyPressed;

private:
    void note(const char* what, const integration::MouseEventInterface& event);
    void note(const char* what, const integration::KeyEventInterface& event);
    void connectSignals();

    Monitor& m_monitor;
    Journal& m_journal;
    std::vector<boost::signals2::scoped_connection> m_connections;
};

/// A stop button that is what a test says.
class FakeStopButton : public virtual integration::StopButtonInterface {
public:
    explicit FakeStopButton(const void* object) : m_object(object) {}
    bool isActive() const override { return active; }
    bool isEqual(const void* object) const override { return object == m_object; }

    bool active = true;

private:
    const void* m_object;
};

/// A receiver that writes down the input it gets, and does with it what the test wants; by default
/// it takes it and goes no further.
template <typename Base>
class Receiver : public Base {
public:
    template <typename... Arguments>
    Receiver(const char* name, Journal& journal, Arguments&&... arguments)
        : Base(std::forward<Arguments>(arguments)...), m_name(name), m_journal(journal)
    {}

    bool event(QEvent* event) override
    {
        const std::string text = describe(*event);
        if (text.empty())
            return Base::event(event);
        m_journal.push_back(m_name + ": " + text);
        // The handler may destroy this receiver.
        const std::function<void(QEvent&)> handler = onEvent;
        if (handler)
            handler(*event);
        return true;
    }

    std::function<void(QEvent&)> onEvent;

private:
    const std::string m_name;
    Journal& m_journal;
};

/// As from the window system.
bool sendSpontaneous(QObject& receiver, QEvent& event);

} // namespace velmora::test
