// Preloaded into a program of the toolkit, makes it a host of the engine without its knowing, and lets
// another process watch it. Told by the environment:
//   VELMORA_TRY_SOCKET    descriptor of the socket through which the other process asks, see Conversation.h
//   VELMORA_TRY_MONITOR   what is held back during an interruption, "everything" or "input"; without it
//                         there is no engine and no monitor
//   VELMORA_TRY_DATA      file that the engine reads as its work
//   VELMORA_TRY_EVENTS    file for the record of events

#include "tests/applications/preload/Conversation.h"
#include "tests/applications/preload/EngineHost.h"
#include "tests/applications/preload/EventRecorder.h"

#include <QApplication>
#include <QTimerEvent>
#include <csignal>
#include <cstdlib>
#include <memory>

#include <execinfo.h>
#include <unistd.h>

namespace velmora::test {

namespace {

constexpr int MostFrames = 200;

std::string setting(const char* name)
{
    const char* const value = std::getenv(name);
    return value ? value : "";
}

/// Shows where the program is when it crashes, or is aborted because it is frozen.
void showWhere(int number)
{
    void* frames[MostFrames];
    backtrace_symbols_fd(frames, backtrace(frames, MostFrames), STDERR_FILENO);
    std::signal(number, SIG_DFL);
    std::raise(number);
}

/// Nothing may happen on the screen by itself, and nothing depend on how fast a person is.
void makeReproducible()
{
    QApplication::setCursorFlashTime(0);
    QApplication::setDoubleClickInterval(40);
    QApplication::setKeyboardInputInterval(1);
}

class Watch : public QObject {
public:
    Watch() : m_recorder(setting("VELMORA_TRY_EVENTS"))
    {
        QCoreApplication::instance()->installEventFilter(&m_recorder);
        startTimer(0);
    }

protected:
    /// The program's first event loop runs.
    void timerEvent(QTimerEvent* event) override
    {
        killTimer(event->timerId());
        makeReproducible();
        const std::string heldBack = setting("VELMORA_TRY_MONITOR");
        if (!heldBack.empty())
            m_engine = std::make_unique<EngineHost>(setting("VELMORA_TRY_DATA"), heldBack);
        m_conversation =
            std::make_unique<Conversation>(std::stoi(setting("VELMORA_TRY_SOCKET")), m_recorder, m_engine.get());
    }

private:
    EventRecorder m_recorder;
    std::unique_ptr<EngineHost> m_engine;
    std::unique_ptr<Conversation> m_conversation;
};

Watch* watch = nullptr; // a program that leaves without destroying its application object keeps it

/// The application object is about to go.
void end()
{
    delete watch;
    watch = nullptr;
}

void begin()
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()) || setting("VELMORA_TRY_SOCKET").empty())
        return;
    for (const int number : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT})
        std::signal(number, &showWhere);
    watch = std::make_unique<Watch>().release();
    qAddPostRoutine(&end);
}

// Runs before the program's main().
const bool prepared = (unsetenv("LD_PRELOAD"), qAddPreRoutine(&begin), true);

} // namespace

} // namespace velmora::test
