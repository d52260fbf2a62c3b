#pragma once

#include <QObject>
#include <functional>

namespace velmora::test {

/// Acts once, as soon as a condition holds, from a timer event: also while the code under test, or
/// the engine, runs the event loop on its own.
class Onlooker : public QObject {
public:
    Onlooker(std::function<bool()> condition, std::function<void()> act)
        : m_condition(std::move(condition)), m_act(std::move(act))
    {
        startTimer(2);
    }

    bool hasActed() const { return m_acted; }

protected:
    void timerEvent(QTimerEvent*) override
    {
        if (m_acted || !m_condition())
            return;
        m_acted = true;
        m_act();
    }

private:
    std::function<bool()> m_condition;
    std::function<void()> m_act;
    bool m_acted = false;
};

} // namespace velmora::test
