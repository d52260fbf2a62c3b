// Random sequences of events, engine states, stop requests, deaths of receivers, discards and
// re-entries, run against the event filter and against a plain model of its rules: every event is
// delivered, swallowed or sent again exactly as the model says, and no copy of an event is lost.
//
// 2,000 sequences by default. The nightly run:
//   RC_PARAMS="max_success=100000" scripts/with-display bin/test_monitor_model
// After a failure rapidcheck prints the seed and the shortest sequence that fails; the same run is
// had again with RC_PARAMS="seed=… max_success=…".

#include "tests/intern/MonitorModel.h"
#include "tests/intern/MonitorHarness.h"
#include "tests/intern/WatchedAllocations.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMouseEvent>
#include <QPointer>
#include <QSpinBox>
#include <QTimerEvent>
#include <QWheelEvent>
#include <boost/make_shared.hpp>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <rapidcheck.h>
#include <sstream>

using namespace velmora::test;

namespace {

constexpr int firstId = 300;           // no key code of a key that matters
constexpr int firstTimerId = 10000000; // far above the toolkit's own timers

class NumberedEvent : public QEvent {
public:
    NumberedEvent(Type type, int number) : QEvent(type), id(number) {}
    const int id;
};

std::unique_ptr<QEvent> makeEvent(Kind kind, int id)
{
    const QPoint at(id, 0);
    switch (kind) {
    case Kind::Press:
        return std::make_unique<QMouseEvent>(QEvent::MouseButtonPress, at, at, Qt::LeftButton, Qt::LeftButton,
                                             Qt::NoModifier);
    case Kind::Release:
        return std::make_unique<QMouseEvent>(QEvent::MouseButtonRelease, at, at, Qt::LeftButton, Qt::NoButton,
                                             Qt::NoModifier);
    case Kind::Move:
        return std::make_unique<QMouseEvent>(QEvent::MouseMove, at, at, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    case Kind::Wheel:
        return std::make_unique<QWheelEvent>(QPoint(), QPoint(), id, Qt::NoButton, Qt::NoModifier, Qt::Vertical);
    case Kind::Key:
        return std::make_unique<QKeyEvent>(QEvent::KeyRelease, id, Qt::NoModifier);
    case Kind::Timer:
        return std::make_unique<QTimerEvent>(firstTimerId + id);
    case Kind::Close:
        return std::make_unique<QCloseEvent>();
    case Kind::User:
        return std::make_unique<NumberedEvent>(QEvent::User, id);
    case Kind::ChildAdded:
        return std::make_unique<NumberedEvent>(QEvent::ChildAdded, id);
    }
    return nullptr;
}

const std::map<int, Kind>& kindsOfTypes()
{
    static const std::map<int, Kind> kinds = {
        {QEvent::MouseButtonPress, Kind::Press},
        {QEvent::MouseButtonRelease, Kind::Release},
        {QEvent::MouseMove, Kind::Move},
        {QEvent::Wheel, Kind::Wheel},
        {QEvent::KeyRelease, Kind::Key},
        {QEvent::Timer, Kind::Timer},
        {QEvent::Close, Kind::Close},
        {QEvent::User, Kind::User},
        {QEvent::ChildAdded, Kind::ChildAdded},
    };
    return kinds;
}

int idOf(const QEvent& event, Kind kind)
{
    switch (kind) {
    case Kind::Press:
    case Kind::Release:
    case Kind::Move:
        return static_cast<const QMouseEvent&>(event).pos().x();
    case Kind::Wheel:
        return static_cast<const QWheelEvent&>(event).delta();
    case Kind::Key:
        return static_cast<const QKeyEvent&>(event).key();
    case Kind::Timer:
        return static_cast<const QTimerEvent&>(event).timerId() - firstTimerId;
    case Kind::Close:
        return 0;
    default:
        return static_cast<const NumberedEvent&>(event).id;
    }
}

/// The real filter, real receivers and a real event queue.
class RealWorld {
public:
    explicit RealWorld(Reactions reactions);
    ~RealWorld();
    RealWorld(const RealWorld&) = delete;
    RealWorld& operator=(const RealWorld&) = delete;

    void run(const Step& step);
    void receive(Who who, QEvent& event);

    const Journal& journal() const { return m_journal; }
    SteeredMonitor& monitor() { return m_monitor; }
    bool isAlive(Who who) const { return !m_receivers[who].isNull(); }
    void watchCopy();

    bool copyWasRecognised = true;

private:
    /// Keeps away what the toolkit does by itself; only what a step sends may happen.
    struct Gate : QObject {
        explicit Gate(RealWorld& owner) : world(owner) {}
        bool eventFilter(QObject* receiver, QEvent* event) override;
        RealWorld& world;
    };

    bool isOurs(const QObject* receiver) const;
    void send(const Step& step);
    void fireIdleTimer();

    Journal m_journal;
    Reactions m_reactions;
    SteeredMonitor m_monitor;
    Listening m_listening{m_monitor, m_journal};
    Gate m_gate{*this};
    QPointer<QObject> m_receivers[receiverCount];
    const QEvent* m_idleTimerEvent = nullptr;
};

template <typename Base>
class Actor : public Base {
public:
    Actor(RealWorld& world, Who who) : m_world(world), m_who(who) {}
    bool event(QEvent* event) override
    {
        if (!m_isReady || kindsOfTypes().count(event->type()) == 0)
            return Base::event(event);
        // Whoever reacts may destroy this receiver; the toolkit must not ask its parent then.
        event->accept();
        m_world.receive(m_who, *event);
        return true;
    }
    Actor* ready()
    {
        m_isReady = true;
        return this;
    }

private:
    RealWorld& m_world;
    const Who m_who;
    bool m_isReady = false;
};

RealWorld::RealWorld(Reactions reactions) : m_reactions(std::move(reactions))
{
    auto plain = std::make_unique<Actor<QWidget>>(*this, PlainWidget);
    plain->setMouseTracking(true);
    auto window = std::make_unique<Actor<QMainWindow>>(*this, MainWindow);
    window->setMouseTracking(true);
    auto value = std::make_unique<Actor<QSpinBox>>(*this, ValueWidget);
    value->setMouseTracking(true);
    auto source = std::make_unique<Actor<QObject>>(*this, NetworkSource);
    source->setObjectName(QLatin1String("velmora_usage_report"));
    auto child = std::make_unique<Actor<QObject>>(*this, NetworkChild);
    child->setParent(source.get());
    QCoreApplication::sendPostedEvents();
    m_monitor.registerStopButton(boost::make_shared<FakeStopButton>(static_cast<QObject*>(value.get())));
    m_receivers[PlainWidget] = plain.release()->ready();
    m_receivers[MainWindow] = window.release()->ready();
    m_receivers[ValueWidget] = value.release()->ready();
    m_receivers[NetworkSource] = source.release()->ready();
    m_receivers[NetworkChild] = child.release()->ready();
    m_monitor.start();
    // After the monitor, so that it is asked before it.
    qApp->installEventFilter(&m_gate);
    m_journal.clear();
}

RealWorld::~RealWorld()
{
    for (const QPointer<QObject>& receiver : m_receivers)
        delete receiver.data();
}

bool RealWorld::isOurs(const QObject* receiver) const
{
    for (const QPointer<QObject>& ours : m_receivers)
        if (ours == receiver)
            return true;
    return false;
}

bool RealWorld::Gate::eventFilter(QObject* receiver, QEvent* event)
{
    if (event == world.m_idleTimerEvent)
        return false;
    return !world.isOurs(receiver) || kindsOfTypes().count(event->type()) == 0;
}

void RealWorld::receive(Who who, QEvent& event)
{
    const Kind kind = kindsOfTypes().at(event.type());
    const int id = idOf(event, kind);
    if (Probe::filter(m_monitor).isDispatchingInterruptedEvent(event)) {
        WatchedAllocations::watch(&event);
        copyWasRecognised = copyWasRecognised && !event.spontaneous();
    }
    m_journal.push_back(deliveryText(who, kind, id, event.spontaneous()));
    const auto reaction = m_reactions.find(id);
    if (reaction == m_reactions.end())
        return;
    const std::vector<Step> steps = reaction->second;
    m_reactions.erase(reaction);
    for (const Step& step : steps)
        run(step);
}

void RealWorld::watchCopy()
{
    if (const QEvent* const copy = Probe::waiting(m_monitor))
        WatchedAllocations::watch(copy);
}

void RealWorld::send(const Step& step)
{
    QObject* const receiver = m_receivers[step.receiver];
    if (!receiver)
        return;
    std::unique_ptr<QEvent> event = makeEvent(step.kind, step.id);
    if (step.what == Do::Post)
        QCoreApplication::postEvent(receiver, event.release()); // the queue owns it
    else if (step.what == Do::SendSpontaneous)
        sendSpontaneous(*receiver, *event);
    else
        QCoreApplication::sendEvent(receiver, event.get());
}

void RealWorld::fireIdleTimer()
{
    const bool wouldTrigger = Probe::filter(m_monitor).hasInterruptedEvent() && !m_monitor.busy;
    if (!Probe::idleTimerRuns(m_monitor) || wouldTrigger)
        return;
    QTimerEvent event(Probe::idleTimer(m_monitor));
    const QEvent* const outer = m_idleTimerEvent;
    m_idleTimerEvent = &event;
    QCoreApplication::sendEvent(&Probe::filter(m_monitor), &event);
    m_idleTimerEvent = outer;
}

void RealWorld::run(const Step& step)
{
    switch (step.what) {
    case Do::Send:
    case Do::SendSpontaneous:
    case Do::Post:
        send(step);
        break;
    case Do::Pump:
        m_monitor.processWhileBusy_Internal();
        break;
    case Do::Busy:
    case Do::NotBusy:
        m_monitor.busy = step.what == Do::Busy;
        break;
    case Do::CallBack:
        Monitor::EventFilter::engineNotBusyCallback(reinterpret_cast<long>(&Probe::filter(m_monitor)));
        break;
    case Do::AskStop:
    case Do::Unask:
        m_monitor.interrupting = step.what == Do::AskStop;
        break;
    case Do::Discard:
        m_monitor.discardNext();
        break;
    case Do::Kill:
        delete m_receivers[step.receiver].data();
        break;
    case Do::IdleTimer:
        fireIdleTimer();
        break;
    }
    watchCopy();
}

// ---- from random bytes to a sequence

struct Sequence {
    std::vector<Step> steps;
    Reactions reactions;
};

class Decoder {
public:
    explicit Decoder(const std::vector<unsigned char>& bytes) : m_bytes(bytes) {}

    Sequence decode()
    {
        Sequence sequence;
        while (m_next < m_bytes.size())
            sequence.steps.push_back(step(sequence.reactions, 0));
        return sequence;
    }

private:
    int take(int limit) { return m_next < m_bytes.size() ? m_bytes[m_next++] % limit : 0; }

    Step step(Reactions& reactions, int depth)
    {
        // Events are half of what happens.
        const int what = take(2 * doCount);
        Step step;
        step.what = what < doCount ? static_cast<Do>(what) : static_cast<Do>(what % 3);
        step.receiver = static_cast<Who>(take(receiverCount));
        if (step.what > Do::Post)
            return step;
        step.kind = static_cast<Kind>(take(kindCount));
        if (!isPossible(step.kind, step.receiver))
            step.kind = Kind::Key;
        if (step.kind == Kind::Close)
            return step;
        step.id = firstId + m_ids++;
        const int reacting = depth < 3 ? take(5) : 0;
        for (int i = 0; i < reacting; ++i)
            reactions[step.id].push_back(this->step(reactions, depth + 1));
        return step;
    }

    const std::vector<unsigned char>& m_bytes;
    std::size_t m_next = 0;
    int m_ids = 0;
};

std::string text(const Journal& journal)
{
    std::ostringstream lines;
    for (const std::string& entry : journal)
        lines << "  " << entry << '\n';
    return lines.str();
}

/// How many of the sequences came to something worth while; a generator that never interrupts proves
/// nothing.
int g_copiesSeen = 0;

void compare(const MonitorModel& model, RealWorld& real)
{
    if (model.journal() != real.journal())
        RC_FAIL("model:\n" + text(model.journal()) + "real:\n" + text(real.journal()));
    RC_ASSERT(model.copyWaits() == (Probe::waiting(real.monitor()) != nullptr));
    RC_ASSERT(model.isDiscarding() == real.monitor().isDiscarding());
    RC_ASSERT(model.isIdleTimerActive() == Probe::idleTimerRuns(real.monitor()));
    RC_ASSERT(model.hasExited() == !QApplication::quitOnLastWindowClosed());
    for (int who = 0; who < receiverCount; ++who)
        RC_ASSERT(model.isAlive(static_cast<Who>(who)) == real.isAlive(static_cast<Who>(who)));
    // With nothing being delivered, the copy that waits is the only one there is.
    RC_ASSERT(WatchedAllocations::alive() == (model.copyWaits() ? 1 : 0));
    RC_ASSERT(real.copyWasRecognised);
    RC_ASSERT(Probe::parked(real.monitor()) == nullptr);
    RC_ASSERT(Probe::dispatching(real.monitor()) == nullptr);
    g_copiesSeen += model.copyWaits() ? 1 : 0;
}

void runBoth(const std::vector<unsigned char>& bytes)
{
    const Sequence sequence = Decoder(bytes).decode();
    WatchedAllocations::reset();
    QApplication::setQuitOnLastWindowClosed(true);
    {
        MonitorModel model(sequence.reactions);
        RealWorld real(sequence.reactions);
        for (const Step& step : sequence.steps) {
            model.run(step);
            real.run(step);
            compare(model, real);
        }
    }
    // The end of the receivers ended the last copy.
    RC_ASSERT(WatchedAllocations::alive() == 0);
}

} // namespace

TEST(MonitorModel, TheFilterDoesWhatTheModelSays)
{
    EXPECT_TRUE(rc::check("every event is delivered, swallowed or sent again as the model says",
                          [] { runBoth(*rc::gen::scale(3.0, rc::gen::arbitrary<std::vector<unsigned char>>())); }));
    EXPECT_GT(g_copiesSeen, 100);
}

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    ::setenv("RC_PARAMS", "max_success=2000", 0);
    // The order of posted events and timers is then the same in every run.
    ::setenv("QT_NO_GLIB", "1", 1);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
