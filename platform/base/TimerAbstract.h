#pragma once

#include "engine/VelExport.h"
#include "interfaces/TimerInterface.h"

#include <memory>

namespace velmora {
namespace sdk {
namespace util {

/// What is the same for a timer on every platform: interval, running state, listeners. A platform
/// supplies `internalStart` and `internalStop` and calls `internalTimeout` at each interval's end.
class VELMORA_PLATFORM_EXPORT TimerAbstract : public virtual TimerInterface {
public:
    bool start(int milliseconds) override;
    void stop() override;
    void addListener(TimerListenerInterface* listener) override;
    void removeListener(TimerListenerInterface* listener) override;
    int getInterval() const override { return m_interval; }
    bool isRunning() const override { return m_running; }
    ~TimerAbstract() override;

protected:
    TimerAbstract();
    TimerAbstract(const TimerAbstract&) = delete;
    TimerAbstract& operator=(const TimerAbstract&) = delete;

    /// The platform's interval has passed: calls `timeout()` when the timer is running.
    void internalTimeout();
    /// Notifies the listeners.
    virtual void timeout();
    /// Starts the platform's timer; false when it has none to give.
    virtual bool internalStart(int milliseconds) = 0;
    /// Stops the platform's timer, which runs.
    virtual void internalStop() = 0;

private:
    struct Listeners;
    std::unique_ptr<Listeners> m_listeners;
    int m_interval = 0;
    bool m_running = false;
};

} // namespace util
} // namespace sdk
} // namespace velmora
