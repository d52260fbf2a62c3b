#pragma once

#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace util {

class TimerInterface;

/// Hears of the timeouts of a timer, on the thread that started it.
class VELMORA_INTERFACE TimerListenerInterface {
public:
    /// A listener may stop or restart the timer and add or remove listeners. It must not destroy
    /// the timer.
    virtual void timeout(TimerInterface& timer) = 0;
    virtual ~TimerListenerInterface() = default;
};

} // namespace util
} // namespace sdk
} // namespace velmora
