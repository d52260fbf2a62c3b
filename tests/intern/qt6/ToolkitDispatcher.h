#pragma once

#include <QAbstractEventDispatcher>

namespace velmora::test {

/// What an event dispatcher of this toolkit must have and others lack; it does nothing.
class ToolkitDispatcher : public QAbstractEventDispatcher {
public:
    void registerTimer(int, qint64, Qt::TimerType, QObject*) override {}
};

} // namespace velmora::test
