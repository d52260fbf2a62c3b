#pragma once

#include <QAbstractEventDispatcher>
#include <QObject>
#include <functional>
#include <utility>

namespace velmora {
namespace test {

/// Acts once, when the innermost loop is about to wait for the first time, if it is that of this object.
class WhenWaiting : public QObject {
    Q_OBJECT

public:
    explicit WhenWaiting(std::function<bool()> isInnermost, std::function<void()> act)
        : m_isInnermost(std::move(isInnermost)), m_act(std::move(act))
    {
        connect(QAbstractEventDispatcher::instance(), SIGNAL(aboutToBlock()), this, SLOT(act()));
    }

private Q_SLOTS:
    void act()
    {
        if (!m_act || !m_isInnermost())
            return;
        const std::function<void()> once = std::exchange(m_act, nullptr);
        once();
    }

private:
    const std::function<bool()> m_isInnermost;
    std::function<void()> m_act;
};

} // namespace test
} // namespace velmora
