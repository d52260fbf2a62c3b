#pragma once

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

namespace velmora::test {

/// What an event dispatcher of this toolkit must have and others lack; it does nothing.
class ToolkitDispatcher : public QAbstractEventDispatcher {
public:
    void registerTimer(int, qint64, Qt::TimerType, QObject*) override {}
    int remainingTime(int) override { return -1; }
};

/// Before there is an application object, whose the dispatcher becomes.
inline void makeApplicationUse(QAbstractEventDispatcher& dispatcher)
{
    QCoreApplication::setEventDispatcher(&dispatcher);
}

} // namespace velmora::test
