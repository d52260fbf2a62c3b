#pragma once

#include <QObject>
#include <functional>

namespace velmora {
namespace sdk {
namespace integration {
namespace intern {

class ApplicationEventMonitor;

/// Tells whether, above the busy engine's work on the call stack, an event loop runs that is not the
/// monitor's own: a menu, a dialog or a QEventLoop that a handler of the host opened in the application's
/// turn or in a callback of the engine. The work cannot unwind before such a loop has ended, so nothing
/// may be held back from it.
///
/// A loop is found by the toolkit's count of loops, and where that does not tell (Qt 4; a handler that
/// calls `processEvents` in a loop of its own) by what the event dispatcher announces: the monitor's own
/// turn never waits for events, and it begins to process them once. A loop that only the dispatcher told
/// of counts until the turn ends. GUI thread only.
class NestedLoops : public QObject {
    Q_OBJECT

public:
    /// `running` is called when a nested loop is about to process events, perhaps not for the first time.
    NestedLoops(ApplicationEventMonitor& monitor, std::function<void()> running);

    /// Begins to listen to the event dispatcher of this thread.
    void watch();
    /// Ends that; no loop runs.
    void unwatch();

    /// Around a turn of the application: loops that begin now are nested, those before are not.
    void turnBegins();
    void turnEnds();
    /// The next thing that the turn does is to process events.
    void turnProcessesEvents() { m_turnIsToProcess = true; }
    /// The engine is no longer busy.
    void workEnded();

    bool isOneRunning() const;

private Q_SLOTS:
    void dispatcherIsAboutToWait();
    void dispatcherIsAwake();

private:
    void noteLoop();

    ApplicationEventMonitor& m_monitor;
    std::function<void()> m_running;
    int m_levelOfWork;      ///< count of loops when the last turn began
    int m_levelOfLoop;      ///< the same in the loop that the dispatcher told of
    bool m_turnIsToProcess; ///< what the dispatcher tells next is of the turn itself
};

} // namespace intern
} // namespace integration
} // namespace sdk
} // namespace velmora
