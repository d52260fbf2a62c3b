#include "tests/applications/preload/Conversation.h"

#include "tests/applications/preload/ProgramState.h"

#include <QEvent>
#include <QGuiApplication>

#include <sys/socket.h>
#include <unistd.h>

namespace velmora::test {

namespace {

constexpr int TickMilliseconds = 20;
constexpr int TicksOfQuiet = 2;
constexpr int MostTicks = 150; // some programs are never quiet

} // namespace

Conversation::Conversation(int socket, EventRecorder& recorder, EngineHost* engine)
    : QSocketNotifier(socket, QSocketNotifier::Read), m_recorder(recorder), m_engine(engine)
{}

bool Conversation::event(QEvent* event)
{
    if (event->type() != QEvent::SockAct)
        return QSocketNotifier::event(event);
    read();
    return true;
}

void Conversation::read()
{
    char part[256];
    const ssize_t count = recv(static_cast<int>(socket()), part, sizeof part, MSG_DONTWAIT);
    if (count == 0)
        setEnabled(false); // the other side has gone
    if (count <= 0)
        return;
    m_input.append(part, static_cast<std::size_t>(count));
    for (std::string::size_type end; (end = m_input.find('\n')) != std::string::npos;) {
        const std::string question = m_input.substr(0, end);
        m_input.erase(0, end + 1);
        answer(question);
    }
}

void Conversation::answer(const std::string& question)
{
    if (question == "settle") {
        m_ticks = m_quietTicks = 0;
        m_seenEvents = m_recorder.eventCount();
        m_settling = startTimer(TickMilliseconds);
        return;
    }
    if (question == "targets")
        return say(targets());
    if (question == "open")
        return say(whatIsOpen());
    if (question == "problems")
        return say(problems());
    if (question == "keys")
        return say(std::to_string(m_recorder.keyPressCount()));
    if (question == "done")
        return say(m_engine ? m_engine->done() : "0 0");
    if (question == "repaint")
        repaintEverything();
    else if (question.compare(0, 5, "mark ") == 0)
        m_recorder.mark(question.substr(5));
    else if (m_engine)
        m_engine->setWorking(question == "work on");
    say("");
}

void Conversation::timerEvent(QTimerEvent*)
{
    QGuiApplication::sync(); // what the X server has for us is in the queue now
    const bool quiet = m_recorder.eventCount() == m_seenEvents;
    m_seenEvents = m_recorder.eventCount();
    m_quietTicks = quiet ? m_quietTicks + 1 : 0;
    if (m_quietTicks < TicksOfQuiet && ++m_ticks < MostTicks)
        return;
    killTimer(m_settling);
    say("");
}

void Conversation::say(const std::string& text) const
{
    const std::string line = text + "\n";
    static_cast<void>(send(static_cast<int>(socket()), line.data(), line.size(), MSG_NOSIGNAL));
}

} // namespace velmora::test
