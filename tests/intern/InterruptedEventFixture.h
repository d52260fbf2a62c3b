#pragma once

#include "tests/intern/MonitorFixture.h"

#include <string>

namespace velmora::test {

inline const std::string A = std::to_string(Qt::Key_A);
inline const std::string B = std::to_string(Qt::Key_B);

/// A watching monitor whose engine is interrupted and unwinds when the test says so.
class InterruptedEvent : public MonitorTest {
protected:
    InterruptedEvent() { watch(); }

    void beginInterruption()
    {
        monitor.busy = true;
        monitor.interrupting = true;
    }
    void unwind()
    {
        monitor.busy = false;
        monitor.interrupting = false;
    }
    /// Everything at once: the event comes during the interruption, then the work is over.
    void interruptWith(QEvent& event, QObject& receiver)
    {
        beginInterruption();
        EXPECT_TRUE(Probe::filter(monitor).eventFilter(&receiver, &event));
        unwind();
        journal.clear();
    }
    void sendTrigger(QObject& receiver)
    {
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(&receiver, &event);
    }
    void sendKey(QObject& receiver, int key)
    {
        QKeyEvent event = keyEvent(QEvent::KeyRelease, key);
        QCoreApplication::sendEvent(&receiver, &event);
    }

    Receiver<QWidget> other{"other", journal};
};

} // namespace velmora::test
