#include "util/Timer.h"

namespace velmora::sdk::util {

Timer::Timer() : m_helper(*this) {}
Timer::~Timer() = default;

bool Timer::internalStart(int milliseconds)
{
    return m_helper.start(milliseconds);
}

void Timer::internalStop()
{
    m_helper.stop();
}

Timer::TimerHelper::~TimerHelper()
{
    if (m_id != 0)
        killTimer(m_id);
}

bool Timer::TimerHelper::start(int milliseconds)
{
    m_id = startTimer(milliseconds);
    return m_id != 0;
}

void Timer::TimerHelper::stop()
{
    // Deliberately unguarded; to kill the timer 0 does nothing.
    killTimer(m_id);
    m_id = 0;
}

// There is at most one timer, so its id need not be compared.
void Timer::TimerHelper::timerEvent(QTimerEvent*)
{
    m_timer.internalTimeout();
}

} // namespace velmora::sdk::util
