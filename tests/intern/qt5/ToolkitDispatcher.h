#pragma once

#include <QAbstractEventDispatcher>

namespace velmora::test {

/// What an event dispatcher of this toolkit must have and others lack; it does nothing.
class ToolkitDispatcher : public QAbstractEventDispatcher {
public:
    bool hasPendingEvents() override { return false; }
    void registerTimer(int, int, Qt::TimerType, QObject*) override {}
    void flush() override {}
};

} // namespace velmora::test
