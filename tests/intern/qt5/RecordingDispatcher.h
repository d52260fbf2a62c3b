#pragma once

#include <QAbstractEventDispatcher>
#include <vector>

namespace velmora::test {

/// Writes down what it is asked to process, and processes nothing.
class RecordingDispatcher : public QAbstractEventDispatcher {
public:
    /// The flags of each call.
    static std::vector<int>& turns()
    {
        static std::vector<int> turns;
        return turns;
    }

    bool processEvents(QEventLoop::ProcessEventsFlags flags) override
    {
        turns().push_back(static_cast<int>(flags));
        return false;
    }
    bool hasPendingEvents() override { return false; }
    void registerSocketNotifier(QSocketNotifier*) override {}
    void unregisterSocketNotifier(QSocketNotifier*) override {}
    void registerTimer(int, int, Qt::TimerType, QObject*) override {}
    bool unregisterTimer(int) override { return true; }
    bool unregisterTimers(QObject*) override { return true; }
    QList<TimerInfo> registeredTimers(QObject*) const override { return QList<TimerInfo>(); }
    int remainingTime(int) override { return -1; }
    void wakeUp() override {}
    void interrupt() override {}
    void flush() override {}
};

} // namespace velmora::test
