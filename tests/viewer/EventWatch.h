#pragma once

#include "tests/support/Wait.h"

#include <QApplication>
#include <QEvent>
#include <gtest/gtest.h>

namespace velmora::test {

/// Sees the application's events of one type. What a person does reaches the application some time
/// after the X server has taken it.
class EventWatch : public QObject {
public:
    explicit EventWatch(QEvent::Type type) : m_type(type) { qApp->installEventFilter(this); }

    /// Waits until there has been one and it has been delivered.
    void wait() const
    {
        EXPECT_TRUE(waitUntil([this] { return m_seen; })) << "no event of type " << m_type;
        processPending();
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        m_seen = m_seen || event->type() == m_type;
        return false;
    }

private:
    QEvent::Type m_type;
    bool m_seen = false;
};

} // namespace velmora::test
