#include "integration/intern/MissedNotifications.h"

#include "integration/toolkit/EventTransport.h"
#include "integration/toolkit/NewerChanges.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QActionEvent>
#include <QCoreApplication>
#include <QDragLeaveEvent>
#include <QFocusEvent>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QMouseEvent>
#include <QStatusTipEvent>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace velmora::sdk::integration::intern {

namespace {

using Tell = MissedNotifications::Tell;

QWidget& widget(QObject& receiver)
{
    return static_cast<QWidget&>(receiver);
}

template <typename Event, typename... Arguments>
void send(QObject& receiver, Arguments&&... arguments)
{
    Event event(std::forward<Arguments>(arguments)...);
    QCoreApplication::sendEvent(&receiver, &event);
}

// Each of the following makes, from a swallowed event, what tells its receiver again; nothing where that
// event has nothing to tell.

Tell sendSameType(const QEvent& event)
{
    return [type = event.type()](QObject& receiver) { send<QEvent>(receiver, type); };
}

// The queue makes one of several.
Tell postSameType(const QEvent& event)
{
    return [type = event.type()](QObject& receiver) {
        QCoreApplication::postEvent(&receiver, new QEvent(type)); // the queue owns it
    };
}

Tell deleteLater(const QEvent&)
{
    return [](QObject& receiver) { receiver.deleteLater(); };
}

Tell repaint(const QEvent&)
{
    return [](QObject& receiver) { widget(receiver).update(); };
}

// The size that it has now, whatever came in between, and all of it is new.
Tell resize(const QEvent&)
{
    return [](QObject& receiver) {
        send<QResizeEvent>(receiver, widget(receiver).size(), QSize());
        widget(receiver).update();
    };
}

Tell move(const QEvent&)
{
    return [](QObject& receiver) { send<QMoveEvent>(receiver, widget(receiver).pos(), widget(receiver).pos()); };
}

Tell show(const QEvent&)
{
    return [](QObject& receiver) { send<QShowEvent>(receiver); };
}

Tell hide(const QEvent&)
{
    return [](QObject& receiver) { send<QHideEvent>(receiver); };
}

Tell enter(const QEvent&)
{
    return
        [](QObject& receiver) { QCoreApplication::sendEvent(&receiver, toolkit::enterEvent(widget(receiver)).get()); };
}

Tell hover(const QEvent& event)
{
    return [type = event.type()](QObject& receiver) {
        QCoreApplication::sendEvent(&receiver, toolkit::hoverEvent(type, widget(receiver)).get());
    };
}

// Only what is still so: the focus may have moved on since.
Tell focus(const QEvent& event)
{
    const auto* const told = dynamic_cast<const QFocusEvent*>(&event);
    if (!told)
        return nullptr;
    return [type = told->type(), reason = told->reason()](QObject& receiver) {
        if (widget(receiver).hasFocus() == (type == QEvent::FocusIn))
            send<QFocusEvent>(receiver, type, reason);
    };
}

Tell windowState(const QEvent& event)
{
    const auto* const told = dynamic_cast<const QWindowStateChangeEvent*>(&event);
    if (!told)
        return nullptr;
    return [before = told->oldState()](QObject& receiver) { send<QWindowStateChangeEvent>(receiver, before); };
}

Tell property(const QEvent& event)
{
    const auto* const told = dynamic_cast<const QDynamicPropertyChangeEvent*>(&event);
    if (!told)
        return nullptr;
    return [name = told->propertyName()](QObject& receiver) { send<QDynamicPropertyChangeEvent>(receiver, name); };
}

Tell statusTip(const QEvent& event)
{
    const auto* const told = dynamic_cast<const QStatusTipEvent*>(&event);
    if (!told)
        return nullptr;
    return [tip = told->tip()](QObject& receiver) { send<QStatusTipEvent>(receiver, tip); };
}

// Directly: the toolkit sends it to the target of a drag that goes on, and that has ended.
Tell dragLeave(const QEvent&)
{
    return [](QObject& receiver) {
        QDragLeaveEvent event;
        receiver.event(&event);
    };
}

Tell sendCopy(std::shared_ptr<QEvent> copy)
{
    return [copy](QObject& receiver) { QCoreApplication::sendEvent(&receiver, copy.get()); };
}

Tell inputMethod(const QEvent& event)
{
    const auto* const told = dynamic_cast<const QInputMethodEvent*>(&event);
    if (!told)
        return nullptr;
    const auto copy = std::make_shared<QInputMethodEvent>(told->preeditString(), told->attributes());
    copy->setCommitString(told->commitString(), told->replacementStart(), told->replacementLength());
    return sendCopy(copy);
}

// A scene queues these calls of itself once and waits for them before it queues the next; queued calls
// themselves cannot be told from one another, nor sent again.
void wakeScene(QObject& scene)
{
    for (const char* const call : {"_q_polishItems", "_q_processDirtyItems", "_q_emitUpdated"})
        QMetaObject::invokeMethod(&scene, call, Qt::QueuedConnection);
}

// Without a click: the release is gone.
void letGo(QObject& button)
{
    static_cast<QAbstractButton&>(button).setDown(false);
}

/// Names a member of QLayout that is public in Qt 4 and protected since.
class LayoutAccess : public QLayout {
public:
    using QLayout::widgetEvent;
};

// Part of a call that is under way, whose caller counts on its effect at the next line; and what these events
// name may be gone soon.
bool isPartOfACall(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::ChildAdded:
    case QEvent::ChildPolished:
    case QEvent::ChildRemoved:
        return dynamic_cast<const QChildEvent*>(&event) != nullptr;
    case QEvent::ActionAdded:
    case QEvent::ActionChanged:
    case QEvent::ActionRemoved:
        return dynamic_cast<const QActionEvent*>(&event) != nullptr;
    case QEvent::Polish:
    case QEvent::ParentAboutToChange:
    case QEvent::ParentChange:
        return true;
    default:
        return false;
    }
}

// As the toolkit delivers it: to the layout of the widget, which would otherwise keep an item for a child that
// is gone, and to the widget itself.
void tellAtOnce(QWidget& receiver, QEvent& event)
{
    if (QLayout* const layout = receiver.layout())
        (layout->*(&LayoutAccess::widgetEvent))(&event);
    static_cast<QObject&>(receiver).event(&event);
}

bool isPressOrRelease(QEvent::Type type)
{
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
           type == QEvent::MouseButtonRelease || type == QEvent::KeyPress || type == QEvent::KeyRelease;
}

// Whether it is where a graphics view gets its input, and an item in it has all the mouse's events.
bool isViewportOfGrabbedScene(const QObject& receiver)
{
    const auto* const view = qobject_cast<const QGraphicsView*>(receiver.parent());
    return view && &receiver == view->viewport() && view->scene() && view->scene()->mouseGrabberItem();
}

// Goes on stepping while it is pressed, or has all the mouse's events until it is let go, as a dragged dock has.
bool mustBeLetGo(const QObject& receiver)
{
    return qobject_cast<const QAbstractSlider*>(&receiver) || qobject_cast<const QAbstractSpinBox*>(&receiver) ||
           &receiver == QWidget::mouseGrabber() || isViewportOfGrabbedScene(receiver);
}

} // namespace

/// How a type of event is told again.
struct MissedNotifications::Kind {
    enum Receivers { AnyObject, Widgets };
    enum Repeat { Once, Every, Latest };

    QEvent::Type type;
    Receivers receivers;
    Repeat repeat;       ///< of several to one receiver: the first alone, each, or the last alone
    QEvent::Type undoes; ///< when that one is remembered, neither is told: the receiver knows the state
    Tell (*make)(const QEvent& event);
};

// Decided for every event that the toolkit sends or posts on the occasion of a change and does not send again:
//
// - told at once, because they are part of a call that is under way: isPartOfACall();
// - told again after the work: the table; and what remember() knows beside it: the release of what was pressed
//   (buttons, sliders, spin boxes and the widget or graphics item that has grabbed the mouse, which otherwise stay
//   down, go on stepping or keep the mouse; for all other widgets a release that comes second is lost, as every later
//   event is), the queued calls of a graphics scene, the changes that only newer toolkits tell of;
// - not told again: what comes by itself while its cause lasts (timers, sockets), what a person did (keys,
//   presses, wheel, moves, help, tool tips), what only announces (AboutToQuit), and what nobody can repeat:
//   queued calls and a host's own events. A host that needs those chooses HeldBackEvents_Input.
const std::vector<MissedNotifications::Kind> MissedNotifications::s_kinds = {
    // posted; the toolkit posts no second one while it believes the first on its way
    {QEvent::UpdateRequest, Kind::AnyObject, Kind::Once, QEvent::None, postSameType},
    {QEvent::LayoutRequest, Kind::AnyObject, Kind::Once, QEvent::None, postSameType},
    {QEvent::DeferredDelete, Kind::AnyObject, Kind::Once, QEvent::None, deleteLater},
    {QEvent::Quit, Kind::AnyObject, Kind::Once, QEvent::None, sendSameType},
    {QEvent::PolishRequest, Kind::Widgets, Kind::Once, QEvent::None, sendSameType},
    // geometry and contents; what was to be painted is no longer marked as dirty
    {QEvent::Paint, Kind::Widgets, Kind::Once, QEvent::None, repaint},
    {QEvent::Resize, Kind::Widgets, Kind::Once, QEvent::None, resize},
    {QEvent::Move, Kind::Widgets, Kind::Once, QEvent::None, move},
    {QEvent::ContentsRectChange, Kind::Widgets, Kind::Once, QEvent::None, sendSameType},
    // two states each
    {QEvent::Show, Kind::Widgets, Kind::Once, QEvent::Hide, show},
    {QEvent::Hide, Kind::Widgets, Kind::Once, QEvent::Show, hide},
    {QEvent::ShowToParent, Kind::Widgets, Kind::Once, QEvent::HideToParent, sendSameType},
    {QEvent::HideToParent, Kind::Widgets, Kind::Once, QEvent::ShowToParent, sendSameType},
    {QEvent::Enter, Kind::Widgets, Kind::Once, QEvent::Leave, enter},
    {QEvent::Leave, Kind::Widgets, Kind::Once, QEvent::Enter, sendSameType},
    {QEvent::HoverEnter, Kind::Widgets, Kind::Once, QEvent::HoverLeave, hover},
    {QEvent::HoverLeave, Kind::Widgets, Kind::Once, QEvent::HoverEnter, hover},
    {QEvent::FocusIn, Kind::Widgets, Kind::Once, QEvent::FocusOut, focus},
    {QEvent::FocusOut, Kind::Widgets, Kind::Once, QEvent::FocusIn, focus},
    {QEvent::WindowActivate, Kind::Widgets, Kind::Once, QEvent::WindowDeactivate, sendSameType},
    {QEvent::WindowDeactivate, Kind::Widgets, Kind::Once, QEvent::WindowActivate, sendSameType},
    {QEvent::WindowBlocked, Kind::Widgets, Kind::Once, QEvent::WindowUnblocked, sendSameType},
    {QEvent::WindowUnblocked, Kind::Widgets, Kind::Once, QEvent::WindowBlocked, sendSameType},
    // sent once for a change: look at the present state
    {QEvent::ActivationChange, Kind::Widgets, Kind::Once, QEvent::None, sendSameType},
    {QEvent::EnabledChange, Kind::Widgets, Kind::Once, QEvent::None, sendSameType},
    {QEvent::FontChange, Kind::Widgets, Kind::Once, QEvent::None, sendSameType},
    {QEvent::PaletteChange, Kind::Widgets, Kind::Once, QEvent::None, sendSameType},
    {QEvent::StyleChange, Kind::Widgets, Kind::Once, QEvent::None, sendSameType},
    {QEvent::LanguageChange, Kind::AnyObject, Kind::Once, QEvent::None, sendSameType},
    {QEvent::LocaleChange, Kind::AnyObject, Kind::Once, QEvent::None, sendSameType},
    {QEvent::LayoutDirectionChange, Kind::Widgets, Kind::Once, QEvent::None, sendSameType},
    {QEvent::ApplicationFontChange, Kind::AnyObject, Kind::Once, QEvent::None, sendSameType},
    {QEvent::ApplicationPaletteChange, Kind::AnyObject, Kind::Once, QEvent::None, sendSameType},
    {QEvent::ApplicationLayoutDirectionChange, Kind::AnyObject, Kind::Once, QEvent::None, sendSameType},
    {QEvent::ApplicationWindowIconChange, Kind::AnyObject, Kind::Once, QEvent::None, sendSameType},
    {QEvent::WindowTitleChange, Kind::Widgets, Kind::Once, QEvent::None, sendSameType},
    {QEvent::WindowIconChange, Kind::Widgets, Kind::Once, QEvent::None, sendSameType},
    {QEvent::IconTextChange, Kind::Widgets, Kind::Once, QEvent::None, sendSameType},
    {QEvent::ModifiedChange, Kind::Widgets, Kind::Once, QEvent::None, sendSameType},
    {QEvent::ToolTipChange, Kind::Widgets, Kind::Once, QEvent::None, sendSameType},
    {QEvent::MouseTrackingChange, Kind::Widgets, Kind::Once, QEvent::None, sendSameType},
    {QEvent::CursorChange, Kind::Widgets, Kind::Once, QEvent::None, sendSameType},
    {QEvent::ZOrderChange, Kind::Widgets, Kind::Once, QEvent::None, sendSameType},
    {QEvent::WinIdChange, Kind::Widgets, Kind::Once, QEvent::None, sendSameType},
    {QEvent::WindowStateChange, Kind::Widgets, Kind::Once, QEvent::None, windowState},
    {QEvent::DynamicPropertyChange, Kind::AnyObject, Kind::Every, QEvent::None, property},
    {QEvent::StatusTip, Kind::Widgets, Kind::Latest, QEvent::None, statusTip},
    {QEvent::DragLeave, Kind::Widgets, Kind::Once, QEvent::None, dragLeave},
    // typed text, which the input method has already given away
    {QEvent::InputMethod, Kind::Widgets, Kind::Every, QEvent::None, inputMethod},
};

void MissedNotifications::remember(QObject* receiver, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (isPressOrRelease(type))
        return rememberPressOrRelease(receiver, *event);
    if (type == QEvent::MetaCall && qobject_cast<QGraphicsScene*>(receiver))
        return m_missed.push_back({receiver, type, wakeScene});
    if (receiver->isWidgetType() && isPartOfACall(*event))
        return tellAtOnce(widget(*receiver), *event);
    if (receiver->isWidgetType() && toolkit::isNewerChange(type))
        return add(receiver, {type, Kind::Widgets, Kind::Once, QEvent::None, sendSameType}, *event);
    for (const Kind& kind : s_kinds)
        if (kind.type == type && (kind.receivers == Kind::AnyObject || receiver->isWidgetType()))
            return add(receiver, kind, *event);
}

void MissedNotifications::add(QObject* receiver, const Kind& kind, const QEvent& event)
{
    if (kind.undoes != QEvent::None && takeBack(receiver, kind.undoes))
        return;
    if (kind.repeat == Kind::Latest)
        takeBack(receiver, kind.type);
    const bool isKnown =
        kind.repeat == Kind::Once && std::any_of(m_missed.begin(), m_missed.end(), [&](const Missed& missed) {
            return missed.receiver == receiver && missed.type == kind.type;
        });
    if (isKnown)
        return;
    if (Tell tell = kind.make(event))
        m_missed.push_back({receiver, kind.type, std::move(tell)});
}

bool MissedNotifications::takeBack(const QObject* receiver, QEvent::Type type)
{
    const auto found = std::find_if(m_missed.begin(), m_missed.end(), [&](const Missed& missed) {
        return missed.receiver == receiver && missed.type == type;
    });
    if (found == m_missed.end())
        return false;
    m_missed.erase(found);
    return true;
}

// The repeated press and release of a key that is held are neither.
void MissedNotifications::rememberPressOrRelease(QObject* receiver, const QEvent& event)
{
    const auto* const mouse = dynamic_cast<const QMouseEvent*>(&event);
    const auto* const key = dynamic_cast<const QKeyEvent*>(&event);
    if (!mouse && (!key || key->isAutoRepeat()))
        return;
    const int pressed = mouse ? -static_cast<int>(mouse->button()) : key->key();
    if (event.type() != QEvent::MouseButtonRelease && event.type() != QEvent::KeyRelease)
        m_swallowedPresses.insert(pressed);
    else if (m_swallowedPresses.erase(pressed) > 0)
        return; // as far as the receiver knows it was never pressed
    else if (qobject_cast<QAbstractButton*>(receiver))
        m_missed.push_back({receiver, event.type(), letGo});
    else if (mustBeLetGo(*receiver))
        m_missed.push_back({receiver, event.type(), sendCopy(m_copy(event, *receiver))});
}

void MissedNotifications::tellAgain()
{
    m_swallowedPresses.clear();
    for (const Missed& missed : std::exchange(m_missed, {}))
        if (missed.receiver)
            missed.tell(*missed.receiver);
}

} // namespace velmora::sdk::integration::intern
