#pragma once

#include <QAbstractEventDispatcher>
#include <QPair>

namespace velmora::test {

/// What an event dispatcher of this toolkit must have and others lack; it does nothing.
class ToolkitDispatcher : public QAbstractEventDispatcher {
public:
    bool hasPendingEvents() override { return false; }
    void registerTimer(int, int, QObject*) override {}
    void flush() override {}
};

/// Before there is an application object, whose the dispatcher becomes. Here its construction has done it.
inline void makeApplicationUse(QAbstractEventDispatcher&) {}

} // namespace velmora::test
