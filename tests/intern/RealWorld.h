#pragma once

#include "tests/intern/MonitorHarness.h"
#include "tests/intern/MonitorModel.h"

#include <QObject>
#include <QPointer>

namespace velmora::test {

/// The real filter, real receivers and a real event queue.
class RealWorld {
public:
    explicit RealWorld(Reactions reactions);
    ~RealWorld();
    RealWorld(const RealWorld&) = delete;
    RealWorld& operator=(const RealWorld&) = delete;

    void run(const Step& step);
    void receive(Who who, QEvent& event);

    const Journal& journal() const { return m_journal; }
    SteeredMonitor& monitor() { return m_monitor; }
    bool isAlive(Who who) const { return !m_receivers[who].isNull(); }
    void watchCopy();

    bool copyWasRecognised = true;
    int loopsInWork = 0; ///< how many loops ran while the engine was busy

private:
    /// Keeps away what the toolkit does by itself; only what a step sends may happen.
    struct Gate : QObject {
        explicit Gate(RealWorld& owner) : world(owner) {}
        bool eventFilter(QObject* receiver, QEvent* event) override;
        RealWorld& world;
    };

    bool isOurs(const QObject* receiver) const;
    void send(const Step& step);
    void fireIdleTimer();
    void runLoop(int id, LoopKind kind);
    void react(int id);

    Journal m_journal;
    Reactions m_reactions;
    SteeredMonitor m_monitor;
    Listening m_listening{m_monitor, m_journal};
    Gate m_gate{*this};
    QPointer<QObject> m_receivers[ReceiverCount];
    const QEvent* m_idleTimerEvent = nullptr;
    std::vector<const QObject*> m_popups; ///< the dialogs and menus whose loops run
};

} // namespace velmora::test
