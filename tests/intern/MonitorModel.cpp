#include "tests/intern/MonitorModel.h"

#include "tests/support/ToolkitFacts.h"

#include <algorithm>

namespace velmora::test {

namespace {

const char* const kindNames[KindCount] = {"Press", "Release", "Move", "Wheel",     "Key",
                                          "Timer", "Close",   "User", "ChildAdded"};

bool isWidget(Who receiver)
{
    return receiver <= ValueWidget;
}

bool isAnalyzed(Kind kind, Who receiver)
{
    if (kind == Kind::User || kind == Kind::ChildAdded)
        return false;
    return kind != Kind::Timer || receiver == ValueWidget;
}

// What listeners hear of an event, in the words of Listening.
std::string announcement(Kind kind, int id)
{
    const std::string at = " at " + std::to_string(id) + ",0 modifiers 0";
    switch (kind) {
    case Kind::Press:
        return "pressed 1" + at;
    case Kind::Release:
        return "released 1" + at;
    case Kind::Move:
        return "moved 0" + at;
    case Kind::Wheel:
        return "wheel " + std::to_string(id) + " at 0,0 orientation 1 held 000 modifiers 0";
    case Kind::Key:
        return "key up " + std::to_string(id) + " modifiers 0";
    case Kind::Timer:
        return "widget change";
    default:
        return "key down 16777216 modifiers 0"; // a closing, as Escape
    }
}

} // namespace

bool isPossible(Kind kind, Who receiver)
{
    return kind != Kind::Close || isWidget(receiver);
}

std::string deliveryText(Who receiver, Kind kind, int id, bool spontaneous)
{
    return "receiver " + std::to_string(receiver) + ": " + kindNames[static_cast<int>(kind)] + ' ' +
           std::to_string(id) + (spontaneous ? " from X" : "");
}

void MonitorModel::run(const Step& step)
{
    switch (step.what) {
    case Do::Send:
    case Do::SendSpontaneous:
        return send(step.receiver, eventOf(step, step.what == Do::SendSpontaneous));
    case Do::Post:
        if (m_alive[step.receiver]) {
            m_posted.push_back({step.receiver, eventOf(step, false)});
            m_postedSince = true;
        }
        return;
    case Do::Loop:
        return runLoop(step.id);
    case Do::Pump:
        return pump();
    case Do::Busy:
    case Do::NotBusy:
        m_busy = step.what == Do::Busy;
        return;
    case Do::CallBack:
        if (m_idleKilled && !m_idleActive)
            startIdleTimer();
        m_idleKilled = false;
        m_levelOfWork = m_levelOfLoop = NoLevel;
        return note("not busy");
    case Do::AskStop:
    case Do::Unask:
        m_interrupting = step.what == Do::AskStop;
        return;
    case Do::Discard:
        m_discard = true;
        return;
    case Do::Kill:
        return kill(step.receiver);
    case Do::HoldInput:
    case Do::HoldAll:
        m_holdsInputOnly = step.what == Do::HoldInput;
        return;
    case Do::IdleTimer:
        // Not as the trigger of a re-send: by its end the timer may have been replaced by another, to
        // which the toolkit may or may not give the same number.
        if (m_idleActive && (m_busy || !m_hasInterrupted))
            send(FilterItself, {Kind::Timer, 0, false, ++m_instances, m_idleTimer});
        return;
    }
}

MonitorModel::Event MonitorModel::eventOf(const Step& step, bool spontaneous)
{
    return {step.kind, step.id, spontaneous, ++m_instances, 0};
}

void MonitorModel::send(Who receiver, Event event)
{
    if (isAlive(receiver) && !isSwallowed(receiver, event))
        deliver(receiver, event);
}

void MonitorModel::deliver(Who receiver, const Event& event)
{
    if (receiver == FilterItself)
        return;
    note(deliveryText(receiver, event.kind, event.id, event.spontaneous));
    react(event.id);
}

void MonitorModel::react(int id)
{
    const auto reaction = m_reactions.find(id);
    if (reaction == m_reactions.end())
        return;
    const std::vector<Step> steps = reaction->second;
    m_reactions.erase(reaction);
    for (const Step& step : steps)
        run(step);
}

bool MonitorModel::isSwallowed(Who receiver, const Event& event)
{
    if (event.kind == Kind::Press || event.kind == Kind::Release)
        note(event.kind == Kind::Press ? "state 1 down" : "state 1 up");
    if (m_hasInterrupted && !m_busy && sendsCopyFirst(receiver, event))
        return true;
    if (event.spontaneous)
        note("new, not visible");
    if (!shouldInterrupt())
        analyze(receiver, event);
    if (event.instance == m_dispatching)
        return false;
    watchForIdle(event);
    if (m_discard) {
        m_discard = false;
        if (!isNested())
            return receiver != ValueWidget; // which is the stop button
    }
    return shouldInterrupt() && isHeldBack(receiver, event);
}

bool MonitorModel::sendsCopyFirst(Who receiver, const Event& event)
{
    const Posted parked = {receiver, event};
    const Posted* const outer = m_parked;
    m_parked = &parked;
    sendCopy();
    const bool wasDelivered = m_parked == nullptr;
    m_parked = outer;
    return wasDelivered || !isAlive(receiver);
}

void MonitorModel::sendCopy()
{
    m_hasInterrupted = false;
    if (!m_copyExists) {
        m_dispatching = 0;
        return;
    }
    const Event copy = m_copy;
    const Who receiver = m_copyReceiver;
    m_copyExists = false;
    m_dispatching = copy.instance;
    send(receiver, copy);
    if (copy.kind == Kind::Close && receiver == MainWindow && isAlive(receiver))
        m_exited = true;
    m_dispatching = 0;
}

void MonitorModel::analyze(Who receiver, const Event& event)
{
    if (!isAnalyzed(event.kind, receiver))
        return;
    // The engine does not want a press during its work to reach a widget.
    if (event.kind == Kind::Press && m_busy)
        m_discard = true;
    note(announcement(event.kind, event.id));
}

void MonitorModel::watchForIdle(const Event& event)
{
    if (m_busy) {
        m_idleKilled = m_idleKilled || m_idleActive;
        m_idleActive = false;
    } else if (!m_idleActive) {
        startIdleTimer();
    } else if (event.idleTimer == m_idleTimer) {
        m_idleActive = false;
        note("idle");
    }
}

void MonitorModel::startIdleTimer()
{
    m_idleActive = true;
    ++m_idleTimer;
}

bool MonitorModel::isHeldBack(Who receiver, const Event& event)
{
    const bool isInput = event.kind != Kind::Timer && event.kind != Kind::User && event.kind != Kind::ChildAdded;
    if (m_holdsInputOnly && !isInput)
        return false;
    if (!m_hasInterrupted) {
        m_hasInterrupted = true;
        m_copyExists = isAnalyzed(event.kind, receiver);
        m_copy = {event.kind, event.id, false, ++m_instances, 0};
        m_copyReceiver = receiver;
    }
    const bool ofNetwork = receiver == NetworkSource || receiver == NetworkChild;
    return !(ofNetwork && event.kind == Kind::ChildAdded);
}

void MonitorModel::pump()
{
    m_levelOfWork = m_level;
    m_levelOfLoop = NoLevel;
    if (m_parked) {
        const Posted parked = *m_parked;
        m_parked = nullptr;
        Event event = parked.event;
        event.spontaneous = false;
        send(parked.receiver, event);
    }
    if (!m_hasInterrupted) {
        m_turnIsToProcess = true;
        processEvents();
    }
    m_levelOfLoop = NoLevel;
    m_turnIsToProcess = false;
}

// What the toolkit's dispatcher does once; whether it would wait then.
bool MonitorModel::processEvents()
{
    m_loopHasEnded = false;
    if (deliversPostedEventsBeforeWaking()) {
        processPosted();
        if (m_loopHasEnded)
            return false;
    }
    dispatcherIsAwake();
    processPosted();
    return !m_postedSince;
}

// One round of what was posted before it; a round inside it goes on where it is.
void MonitorModel::processPosted()
{
    m_postedSince = false;
    m_endOfPosted = m_posted.size();
    while (m_nextPosted < m_endOfPosted) {
        const Posted posted = m_posted[m_nextPosted++];
        send(posted.receiver, posted.event);
    }
}

// A loop waits when nothing is posted any more; what happens in it happens then.
void MonitorModel::runLoop(int id)
{
    const int level = m_level;
    m_level += countsEventLoops() ? 1 : 0;
    while (!processEvents()) {
    }
    if (m_busy)
        noteLoop();
    react(id);
    m_level = level;
    m_loopHasEnded = true;
}

// A handler that processes events though a stop was asked for waits for something.
void MonitorModel::dispatcherIsAwake()
{
    if (m_turnIsToProcess)
        m_turnIsToProcess = false;
    else if (m_levelOfWork != NoLevel && m_busy && shouldInterrupt())
        noteLoop();
}

void MonitorModel::noteLoop()
{
    m_levelOfLoop = std::min(m_level, m_levelOfLoop);
}

void MonitorModel::kill(Who receiver)
{
    if (receiver == NetworkSource && m_alive[NetworkSource])
        kill(NetworkChild);
    m_alive[receiver] = false;
    if (m_hasInterrupted && m_copyReceiver == receiver) {
        m_hasInterrupted = false;
        m_copyExists = false;
    }
}

} // namespace velmora::test
