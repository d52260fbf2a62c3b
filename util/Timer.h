#pragma once

#include "base/TimerAbstract.h"
#include "integration/Export.h"

#include <QObject>

namespace velmora {
namespace sdk {
namespace util {

/// A repeating timer on the toolkit's event loop. It times out on the thread that made it, which
/// needs an event loop: without one, `start` returns false.
class VELMORA_INTEGRATION_EXPORT Timer : public virtual TimerAbstract {
public:
    Timer();
    ~Timer() override;

protected:
    bool internalStart(int milliseconds) override;
    void internalStop() override;

private:
    class TimerHelper : public QObject {
    public:
        explicit TimerHelper(Timer& timer) : m_timer(timer) {}
        ~TimerHelper() override;

        bool start(int milliseconds);
        void stop();

    protected:
        void timerEvent(QTimerEvent* event) override;

    private:
        Timer& m_timer;
        int m_id = 0; ///< of the toolkit's timer, 0 when none runs
    };

    TimerHelper m_helper;
};

} // namespace util
} // namespace sdk
} // namespace velmora
