#pragma once

#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace util {

class TimerListenerInterface;

/// A repeating timer.
class VELMORA_INTERFACE TimerInterface {
public:
    /// Starts, or restarts with another interval. False when the platform has no timer to give or
    /// the interval is negative; the timer is then not running.
    virtual bool start(int milliseconds) = 0;
    /// No more timeouts. A timer that does not run stays as it is.
    virtual void stop() = 0;
    /// Adding a listener twice has no further effect; null is ignored. Listeners are borrowed.
    virtual void addListener(TimerListenerInterface* listener) = 0;
    /// A listener that was not added is ignored.
    virtual void removeListener(TimerListenerInterface* listener) = 0;
    /// Milliseconds, as last given to `start`; 0 before that.
    virtual int getInterval() const = 0;
    /// Whether it has been started, with success, and not stopped since.
    virtual bool isRunning() const = 0;
    virtual ~TimerInterface() = default;
};

} // namespace util
} // namespace sdk
} // namespace velmora
