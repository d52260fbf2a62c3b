#include "EndSignals.h"

#include "integration/Manager.h"
#include "interfaces/ApplicationEventMonitorInterface.h"

#include <QSocketNotifier>
#include <atomic>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace viewer {

using namespace velmora::sdk::integration;

namespace {

constexpr int Signals[] = {SIGHUP, SIGINT, SIGTERM};

// All that the handler touches; any thread may run it.
std::atomic<int> endSignal{0};
std::atomic<int> wakingEnd{-1};
static_assert(std::atomic<int>::is_always_lock_free, "a lock could be held by the thread that the signal interrupts");

int readingEnd = -1;

extern "C" void noteEndSignal(int signal)
{
    const int error = errno;
    int none = 0;
    endSignal.compare_exchange_strong(none, signal);
    static_cast<void>(!write(wakingEnd, "", 1)); // when the pipe is full, it wakes all the same
    errno = error;
}

void handle(void (*handler)(int))
{
    for (const int signal : Signals) {
        struct sigaction action = {};
        sigaction(signal, nullptr, &action);
        if (action.sa_handler == SIG_IGN) // as under nohup
            continue;
        action.sa_handler = handler;
        action.sa_flags = SA_RESTART;
        sigaction(signal, &action, nullptr);
    }
}

} // namespace

// More than one signal may come for one request (timeout sends two), so none of them ends the process at
// once; SIGQUIT still does.
EndSignals::EndSignals()
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    readingEnd = ends[0];
    wakingEnd = ends[1];
    QSocketNotifier* const notifier = new QSocketNotifier(readingEnd, QSocketNotifier::Read, this);
    connect(notifier, SIGNAL(activated(int)), this, SLOT(interruptEngine()));
    handle(&noteEndSignal);
}

EndSignals::~EndSignals()
{
    if (readingEnd < 0)
        return;
    handle(SIG_DFL);
    delete findChild<QSocketNotifier*>(); // before what it watches is closed
    close(wakingEnd.exchange(-1));
    close(readingEnd);
    readingEnd = -1;
}

// The pipe is never read, deliberately: while the engine is not busy nothing is interrupted, and so
// its next work is.
void EndSignals::interruptEngine()
{
    Manager::getInstance().getApplicationEventMonitor().interrupt();
}

bool endWasAsked()
{
    return endSignal != 0;
}

void endAsAsked()
{
    if (!endWasAsked())
        return;
    std::signal(endSignal, SIG_DFL);
    std::raise(endSignal);
}

} // namespace viewer
