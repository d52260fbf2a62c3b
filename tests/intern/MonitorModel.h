#pragma once

#include <map>
#include <string>
#include <vector>

namespace velmora::test {

/// The receivers of a sequence. The filter is the monitor's own, for its idle timer.
enum Who { PlainWidget, MainWindow, ValueWidget, NetworkSource, NetworkChild, FilterItself };
constexpr int ReceiverCount = FilterItself;

enum class Kind { Press, Release, Move, Wheel, Key, Timer, Close, User, ChildAdded };
constexpr int KindCount = 9;

enum class Do {
    Send,
    SendSpontaneous,
    Post,
    Loop, ///< opens an event loop, in which what its id stands for happens
    Pump,
    Busy,
    NotBusy,
    CallBack,
    AskStop,
    Unask,
    Discard,
    Kill,
    IdleTimer,
    HoldInput,
    HoldAll
};
constexpr int DoCount = 15;

enum class LoopKind { Local, Dialog, Menu };

/// One thing that happens; `id` tells events apart where the event can carry one, and loops.
struct Step {
    Do what = Do::Pump;
    Who receiver = PlainWidget;
    Kind kind = Kind::User;
    int id = 0;
    LoopKind loop = LoopKind::Local;
};

/// What a receiver does when it gets the event with this id, once; what happens in the loop with this id.
using Reactions = std::map<int, std::vector<Step>>;

/// Whether an event of this kind may go to the receiver at all: only windows are closed.
bool isPossible(Kind kind, Who receiver);
/// A delivery in words.
std::string deliveryText(Who receiver, Kind kind, int id, bool spontaneous);

/// The rules of the event filter as plain data and functions, without a toolkit: what it writes into
/// its journal is what must happen.
class MonitorModel {
public:
    explicit MonitorModel(Reactions reactions) : m_reactions(std::move(reactions)) {}

    void run(const Step& step);

    const std::vector<std::string>& journal() const { return m_journal; }
    bool copyWaits() const { return m_hasInterrupted && m_copyExists; }
    bool isDiscarding() const { return m_discard; }
    bool isIdleTimerActive() const { return m_idleActive; }
    bool hasExited() const { return m_exited; }
    bool isAlive(Who receiver) const { return receiver == FilterItself || m_alive[receiver]; }

private:
    struct Event {
        Kind kind;
        int id;
        bool spontaneous;
        int instance;  ///< tells the copy from the original
        int idleTimer; ///< which of the idle timers' own event it is; 0 for all other events
    };
    struct Posted {
        Who receiver;
        Event event;
    };

    static constexpr int NoLevel = 1000;

    Event eventOf(const Step& step, bool spontaneous);
    void send(Who receiver, Event event);
    void deliver(Who receiver, const Event& event);
    bool isSwallowed(Who receiver, const Event& event);
    bool sendsCopyFirst(Who receiver, const Event& event);
    void sendCopy();
    void analyze(Who receiver, const Event& event);
    void watchForIdle(const Event& event);
    void startIdleTimer();
    bool isHeldBack(Who receiver, const Event& event);
    void pump();
    bool processEvents();
    void processPosted();
    void runLoop(int id);
    void react(int id);
    void dispatcherIsAwake();
    void noteLoop();
    bool isNested() const { return m_level > m_levelOfWork || m_level >= m_levelOfLoop; }
    bool shouldInterrupt() const { return m_interrupting && !isNested(); }
    void kill(Who receiver);
    void note(const std::string& entry) { m_journal.push_back(entry); }

    Reactions m_reactions;
    std::vector<std::string> m_journal;
    std::vector<Posted> m_posted;
    std::size_t m_nextPosted = 0;
    std::size_t m_endOfPosted = 0;
    bool m_turnIsToProcess = false; ///< what the dispatcher tells next is of the turn itself
    bool m_loopHasEnded = false;    ///< the dispatcher returns to the loop around at once
    bool m_alive[ReceiverCount] = {true, true, true, true, true};
    bool m_busy = false;
    bool m_interrupting = false;
    bool m_discard = false;
    bool m_hasInterrupted = false;
    bool m_copyExists = false;
    Event m_copy = {};
    Who m_copyReceiver = PlainWidget;
    int m_dispatching = 0;
    const Posted* m_parked = nullptr;
    bool m_idleActive = false;
    int m_idleTimer = 0; ///< counts them, for an event may come after its timer has been replaced
    bool m_idleKilled = false;
    bool m_exited = false;
    bool m_holdsInputOnly = false;
    bool m_postedSince = false; ///< the last round of posted events began
    int m_level = 0;            ///< count of event loops
    int m_levelOfWork = NoLevel;
    int m_levelOfLoop = NoLevel;
    int m_instances = 0;
};

} // namespace velmora::test
