#include "tests/intern/RealWorld.h"

#include "integration/HeldBackEvents.h"
#include "tests/intern/WatchedAllocations.h"
#include "tests/intern/WhenWaiting.h"
#include "tests/support/WheelEvents.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QSpinBox>
#include <QTimerEvent>
#include <QWheelEvent>
#include <algorithm>
#include <boost/make_shared.hpp>
#include <map>
#include <memory>
#include <utility>

namespace velmora::test {

namespace {

constexpr int FirstTimerId = 10000000; // far above the toolkit's own timers

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
        return std::unique_ptr<QEvent>(
            new QWheelEvent(wheelEvent(QPoint(), QPoint(), id, Qt::NoButton, Qt::NoModifier, Qt::Vertical)));
    case Kind::Key:
        return std::make_unique<QKeyEvent>(QEvent::KeyRelease, id, Qt::NoModifier);
    case Kind::Timer:
        return std::make_unique<QTimerEvent>(FirstTimerId + id);
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
        return wheelFacts(static_cast<const QWheelEvent&>(event)).delta;
    case Kind::Key:
        return static_cast<const QKeyEvent&>(event).key();
    case Kind::Timer:
        return static_cast<const QTimerEvent&>(event).timerId() - FirstTimerId;
    case Kind::Close:
        return 0;
    default:
        return static_cast<const NumberedEvent&>(event).id;
    }
}

template <typename Base>
class Actor : public Base {
public:
    Actor(RealWorld& world, Who who) : m_world(world), m_who(who) {}
    bool event(QEvent* event) override
    {
        if (!m_isReady || kindsOfTypes().count(event->type()) == 0)
            return Base::event(event);
        // A reaction may destroy this receiver; the toolkit must not ask its parent then.
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

} // namespace

namespace {

/// Loops end at once after an application was told to end, until it runs again.
void forgetEndOfApplication()
{
    QMetaObject::invokeMethod(qApp, "quit", Qt::QueuedConnection);
    QApplication::exec();
}

} // namespace

RealWorld::RealWorld(Reactions reactions) : m_reactions(std::move(reactions))
{
    forgetEndOfApplication();
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
    // A dialog or menu lives its own life, unseen by the monitor.
    if (std::find(world.m_popups.begin(), world.m_popups.end(), receiver) != world.m_popups.end()) {
        receiver->event(event);
        return true;
    }
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
    react(id);
}

void RealWorld::react(int id)
{
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

void RealWorld::runLoop(int id, LoopKind kind)
{
    loopsInWork += m_monitor.busy;
    QEventLoop loop;
    QDialog dialog;
    QMenu menu;
    menu.addAction(QLatin1String("entry"));
    m_popups.insert(m_popups.end(), {&dialog, &menu});
    WhenWaiting happening([this, depth = m_popups.size()] { return m_popups.size() == depth; },
                          [&] {
                              react(id);
                              loop.quit();
                              // Closing may send events to the windows, which the gate does not let through.
                              dialog.hide();
                              menu.hide();
                          });
    if (kind == LoopKind::Dialog)
        dialog.exec();
    else if (kind == LoopKind::Menu)
        menu.exec(QPoint(10, 10));
    else
        loop.exec();
    m_popups.resize(m_popups.size() - 2);
}

void RealWorld::run(const Step& step)
{
    switch (step.what) {
    case Do::Send:
    case Do::SendSpontaneous:
    case Do::Post:
        send(step);
        break;
    case Do::Loop:
        runLoop(step.id, step.loop);
        break;
    case Do::Pump:
        m_monitor.processWhileBusy_Internal();
        break;
    case Do::HoldInput:
        setHeldBackEvents(sdk::integration::HeldBackEvents_Input);
        break;
    case Do::HoldAll:
        setHeldBackEvents(sdk::integration::HeldBackEvents_All);
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

} // namespace velmora::test
