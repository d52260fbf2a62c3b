#pragma once

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

namespace velmora::test {

/// What an event dispatcher of this toolkit must have and others lack; it does nothing.
class ToolkitDispatcher : public QAbstractEventDispatcher {
public:
    bool hasPendingEvents() override { return false; }
    void registerTimer(int, int, Qt::TimerType, QObject*) override {}
    void flush() override {}
    int remainingTime(int) override { return -1; }
};

/// Before there is an application object, whose the dispatcher becomes.
inline void makeApplicationUse(QAbstractEventDispatcher& dispatcher)
{
    QCoreApplication::setEventDispatcher(&dispatcher);
}

} // namespace velmora::test
