#pragma once

#include "tests/intern/MonitorHarness.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimerEvent>
#include <QWidget>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora::test {

inline QKeyEvent keyEvent(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    return QKeyEvent(type, key, modifiers, QString());
}

inline QMouseEvent mouseEvent(QEvent::Type type, Qt::MouseButton button, const QPoint& at = QPoint(3, 4),
                              Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    return QMouseEvent(type, at, QPoint(30, 40), button, button, modifiers);
}

/// A monitor with a listener, and a widget that is not shown: only what a test sends happens.
class MonitorTest : public ::testing::Test {
protected:
    void watch()
    {
        monitor.start();
        // What start() announces has a test of its own.
        journal.clear();
    }

    /// Sends one event that says no more than its type.
    template <typename Object>
    bool sendPlain(Object& receiver, QEvent::Type type)
    {
        QEvent event(type);
        return QCoreApplication::sendEvent(&receiver, &event);
    }

    /// The journal's entries that a receiver wrote.
    Journal received() const
    {
        Journal entries;
        for (const std::string& entry : journal)
            if (entry.find(": ") != std::string::npos)
                entries.push_back(entry);
        return entries;
    }

    Journal journal;
    SteeredMonitor monitor;
    Listening listening{monitor, journal};
    Receiver<QWidget> widget{"widget", journal};
    QEvent::Type trigger = QEvent::User;
};

} // namespace velmora::test
