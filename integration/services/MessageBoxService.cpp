#include "integration/services/MessageBoxService.h"

#include "ui_qt/OverrideCursor.h"

#include <QApplication>
#include <QEvent>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <iterator>

namespace velmora::sdk::integration::services {

namespace {

const QEvent::Type WakeUpType = static_cast<QEvent::Type>(2812);

// Discards the mouse presses that reach a widget between its creation and the moment the event
// loop has worked off what was waiting.
//
// Two departures, because the toolkit (Qt 5) delivers posted events before the window system's, and
// takes the click on the box and the next one, on what lay behind it, for a double click:
// - The wake-up is posted twice. Presses of the window system that were waiting come between the two;
//   what the program itself sends passes from the first on.
// - A double click of the window system whose first press the widget did not get is a press to it.
class MousePressSwallower : public QObject {
public:
    explicit MousePressSwallower(QWidget* target);
    ~MousePressSwallower() override;

    const QWidget* marker() const { return &m_marker; }
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class WakeUp;

    void wakeUp(WakeUp& event);
    bool isUnmeantPress(const QEvent& event);
    void removeFilters();

    QPointer<QWidget> m_target;
    QWidget m_marker; // never shown: it only receives the wake-up
    bool m_lastRound = false;
    bool m_targetWasPressed = false;
};

// Disarms the swallower when it has been delivered for the second time, and as well when somebody has
// kept it from that: a filter of the application's takes every event that comes at certain times, and a
// swallower without its wake-up would never end.
class MousePressSwallower::WakeUp : public QEvent {
public:
    explicit WakeUp(MousePressSwallower& swallower) : QEvent(WakeUpType), m_swallower(&swallower) {}
    ~WakeUp() override
    {
        if (m_swallower)
            static_cast<MousePressSwallower*>(m_swallower.data())->removeFilters();
    }
    WakeUp(const WakeUp&) = delete;
    WakeUp& operator=(const WakeUp&) = delete;

    // Another one ends the swallower.
    void release() { m_swallower = nullptr; }

private:
    QPointer<QObject> m_swallower;
};

MousePressSwallower::MousePressSwallower(QWidget* target) : m_target(target)
{
    m_target->installEventFilter(this);
    m_marker.installEventFilter(this);
    // Posted, so that it comes after the events that are queued already.
    QCoreApplication::postEvent(&m_marker, new WakeUp(*this));
}

MousePressSwallower::~MousePressSwallower()
{
    // Now, while the swallower is whole: an event that still waits calls it when it goes.
    QCoreApplication::removePostedEvents(&m_marker, WakeUpType);
    removeFilters();
}

void MousePressSwallower::removeFilters()
{
    if (m_target)
        m_target->removeEventFilter(this);
    m_marker.removeEventFilter(this);
}

bool MousePressSwallower::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_marker && event->type() == WakeUpType) {
        wakeUp(static_cast<WakeUp&>(*event));
        return false;
    }
    return watched == m_target && isUnmeantPress(*event);
}

void MousePressSwallower::wakeUp(WakeUp& event)
{
    if (m_lastRound) {
        removeFilters();
        return;
    }
    m_lastRound = true;
    event.release();
    QCoreApplication::postEvent(&m_marker, new WakeUp(*this));
}

bool MousePressSwallower::isUnmeantPress(const QEvent& event)
{
    if (m_lastRound && !event.spontaneous())
        return false;
    if (event.type() == QEvent::MouseButtonPress) {
        m_targetWasPressed = true;
        return true;
    }
    return event.type() == QEvent::MouseButtonDblClick && event.spontaneous() && !m_targetWasPressed;
}

} // namespace

// Holds the current swallower of one service, if there is one. A swallower has a widget, and no
// widget may outlive the application object, while a service may: all slots are emptied when the
// application object begins to go. The slots are linked through themselves and the head of the list
// needs no destructor, for services come and go during the destruction of statics too.
class Q_DECL_HIDDEN MessageBoxService::SwallowerSlot {
public:
    SwallowerSlot();
    ~SwallowerSlot();
    SwallowerSlot(const SwallowerSlot&) = delete;
    SwallowerSlot& operator=(const SwallowerSlot&) = delete;

    void put(std::unique_ptr<MousePressSwallower> swallower);
    static bool isMarker(const QWidget* widget);

private:
    static void emptyAll();

    std::unique_ptr<MousePressSwallower> m_swallower;
    SwallowerSlot* m_next;
    static inline SwallowerSlot* s_first = nullptr;
};

MessageBoxService::SwallowerSlot::SwallowerSlot() : m_next(s_first)
{
    s_first = this;
}

MessageBoxService::SwallowerSlot::~SwallowerSlot()
{
    SwallowerSlot** link = &s_first;
    while (*link != this)
        link = &(*link)->m_next;
    *link = m_next;
    if (!s_first)
        qRemovePostRoutine(&SwallowerSlot::emptyAll);
}

void MessageBoxService::SwallowerSlot::put(std::unique_ptr<MousePressSwallower> swallower)
{
    // An application object runs a routine once and forgets it, so each put says it again; removed
    // first, so that it is in the list only once.
    qRemovePostRoutine(&SwallowerSlot::emptyAll);
    qAddPostRoutine(&SwallowerSlot::emptyAll);
    m_swallower = std::move(swallower);
}

void MessageBoxService::SwallowerSlot::emptyAll()
{
    for (SwallowerSlot* slot = s_first; slot; slot = slot->m_next)
        slot->m_swallower.reset();
}

bool MessageBoxService::SwallowerSlot::isMarker(const QWidget* widget)
{
    for (const SwallowerSlot* slot = s_first; slot; slot = slot->m_next)
        if (slot->m_swallower && slot->m_swallower->marker() == widget)
            return true;
    return false;
}

namespace {

typedef QMessageBox::StandardButton (*ShowBox)(QWidget*, const QString&, const QString&, QMessageBox::StandardButtons,
                                               QMessageBox::StandardButton);

struct BoxRow {
    const char* title;
    ShowBox show;
    int buttons;
    QMessageBox::StandardButton defaultButton;
};

const int OkCancel = QMessageBox::Ok | QMessageBox::Cancel;
const int YesNo = QMessageBox::Yes | QMessageBox::No;
const int YesNoCancel = YesNo | QMessageBox::Cancel;

// By MessageBoxType_e. The last one deliberately has the title of a piece of information and the
// icon of a warning.
const BoxRow Boxes[] = {
    {"Error", &QMessageBox::critical, QMessageBox::Ok, QMessageBox::NoButton},
    {"Warning", &QMessageBox::warning, QMessageBox::Ok, QMessageBox::NoButton},
    {"Information", &QMessageBox::information, QMessageBox::Ok, QMessageBox::NoButton},
    {"Question", &QMessageBox::question, OkCancel, QMessageBox::Cancel},
    {"Question", &QMessageBox::question, YesNo, QMessageBox::Yes},
    {"Question", &QMessageBox::question, YesNoCancel, QMessageBox::Cancel},
    {"Information", &QMessageBox::warning, OkCancel, QMessageBox::Cancel},
};
static_assert(std::size(Boxes) == MessageBoxType_WarningOkCancel + 1,
              "The table of boxes has one row for each MessageBoxType_e value.");

MessageBoxReply_e replyFor(QMessageBox::StandardButton button)
{
    switch (button) {
    case QMessageBox::Yes:
        return MessageBoxReply_Yes;
    case QMessageBox::No:
        return MessageBoxReply_No;
    case QMessageBox::Cancel:
        return MessageBoxReply_Cancel;
    case QMessageBox::Ok:
        return MessageBoxReply_Ok;
    default:
        return MessageBoxReply_Error;
    }
}

MessageBoxReply_e showBox(QWidget* parent, const QString& text, MessageBoxType_e type)
{
    // As unsigned, so that a negative value counts as one beyond the table.
    const unsigned index = static_cast<unsigned>(type);
    if (index >= std::size(Boxes))
        return MessageBoxReply_Error;
    const BoxRow& row = Boxes[index];
    return replyFor(row.show(parent, QString::fromLatin1(row.title), text,
                             QMessageBox::StandardButtons(QFlag(row.buttons)), row.defaultButton));
}

// A departure: on a toolkit where the focus is the window system's to give, it is back only once the
// event loop runs again, and without the widget that had it before the box no press would be discarded.
QWidget* focusWidgetBehindBox(QWidget* focusedBefore)
{
    QWidget* const focused = QApplication::focusWidget();
    return focused ? focused : focusedBefore;
}

bool isOtherThanArrow(const QCursor* cursor)
{
    return cursor && cursor->shape() != Qt::ArrowCursor;
}

} // namespace

MessageBoxService::MessageBoxService() : m_slot(std::make_unique<SwallowerSlot>()) {}

MessageBoxService::~MessageBoxService() = default;

QWidget* MessageBoxService::chooseParent()
{
    QWidget* first = nullptr;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* const window : windows) {
        if (dynamic_cast<QMainWindow*>(window))
            return window;
        // A marker is no window of the application, and it would take its child, a box that is
        // still open, along when the next box is answered.
        if (!first && !SwallowerSlot::isMarker(window))
            first = window;
    }
    return first;
}

unsigned MessageBoxService::displayMessageBox(const char* message, MessageBoxType_e type)
{
    QWidget* const parent = chooseParent();
    const QString text = QString::fromUtf8(message);
    std::unique_ptr<ui::OverrideCursor> arrow;
    if (isOtherThanArrow(QApplication::overrideCursor()))
        arrow = std::make_unique<ui::OverrideCursor>(Qt::ArrowCursor);

    const QPointer<QWidget> focusedBefore(QApplication::focusWidget());
    const MessageBoxReply_e reply = showBox(parent, text, type);

    if (QWidget* const focused = focusWidgetBehindBox(focusedBefore))
        m_slot->put(std::make_unique<MousePressSwallower>(focused));
    return reply;
}

} // namespace velmora::sdk::integration::services
