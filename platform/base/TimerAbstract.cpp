#include "base/TimerAbstract.h"

#include "interfaces/TimerListenerInterface.h"
#include "testing/EngineProbe.h"

#include <algorithm>
#include <vector>

namespace velmora::sdk::util {

struct TimerAbstract::Listeners {
    std::vector<TimerListenerInterface*> all; ///< in the order they were added

    bool contains(const TimerListenerInterface* listener) const
    {
        return std::find(all.begin(), all.end(), listener) != all.end();
    }
};

TimerAbstract::TimerAbstract() : m_listeners(std::make_unique<Listeners>())
{
    testing::EngineProbe::passPoint("TimerAbstract");
}

TimerAbstract::~TimerAbstract() = default;

bool TimerAbstract::start(int milliseconds)
{
    // A platform's timer that still runs would go on beside the new one.
    stop();
    m_interval = milliseconds;
    m_running = milliseconds >= 0 && internalStart(milliseconds);
    return m_running;
}

void TimerAbstract::stop()
{
    if (!m_running)
        return;
    m_running = false;
    internalStop();
}

void TimerAbstract::addListener(TimerListenerInterface* listener)
{
    if (listener && !m_listeners->contains(listener))
        m_listeners->all.push_back(listener);
}

void TimerAbstract::removeListener(TimerListenerInterface* listener)
{
    auto& all = m_listeners->all;
    all.erase(std::remove(all.begin(), all.end(), listener), all.end());
}

void TimerAbstract::internalTimeout()
{
    if (m_running)
        timeout();
}

void TimerAbstract::timeout()
{
    // A listener may change the list: those added hear of the next timeout, those removed may be
    // gone already and are not touched.
    const std::vector<TimerListenerInterface*> toNotify = m_listeners->all;
    for (TimerListenerInterface* listener : toNotify)
        if (m_listeners->contains(listener))
            listener->timeout(*this);
}

} // namespace velmora::sdk::util
