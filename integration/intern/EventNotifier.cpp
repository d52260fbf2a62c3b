// ApplicationEventMonitor::EventNotifier: the toolkit's events in the engine's records.

#include "integration/intern/EventRecords.h"
#include "integrationmanager/MouseWheelEvent.h"

#include <QShortcutEvent>
#include <QWheelEvent>

namespace velmora::sdk::integration::intern {

namespace {

MouseWheelEvent recordOf(const QWheelEvent& event, const toolkit::WheelTurn& turn, const QObject& receiver)
{
    const Qt::MouseButtons held = event.buttons();
    const QPoint position = toolkit::screenPosition(event, receiver);
    return MouseWheelEvent(position.x(), position.y(), turn.delta, (held & Qt::LeftButton) != 0,
                           (held & Qt::MiddleButton) != 0, (held & Qt::RightButton) != 0,
                           turn.isVertical ? MouseWheelEventInterface::Orientation_Vertical
                                           : MouseWheelEventInterface::Orientation_Horizontal,
                           ApplicationEventMonitor::genericModifiersForEvent(event));
}

} // namespace

using Notifier = ApplicationEventMonitor::EventNotifier;

Notifier::EventNotifier(ApplicationEventMonitor& monitor) : m_monitor(monitor), m_receiver(&monitor.m_eventFilter) {}

void Notifier::handleTimerEventCausingWidgetChange(const QTimerEvent&)
{
    m_monitor.emitWidgetChangeDuetoTimerEvent();
}

// Through the signal alone: the engine itself takes no wheel.
void Notifier::handleMouseWheelEvent(const QWheelEvent& event)
{
    for (const toolkit::WheelTurn& turn : toolkit::turnsOf(event)) {
        MouseWheelEvent record = recordOf(event, turn, *m_receiver);
        m_monitor.emitWheelRotated(record);
    }
}

void Notifier::handleMouseMoveEvent(const QMouseEvent& event)
{
    MouseEvent record = recordOf(event, m_monitor, *m_receiver);
    m_monitor.notifyOfMouseMoved(record);
}

void Notifier::handleMouseButtonPress(const QMouseEvent& event)
{
    MouseEvent record = recordOf(event, m_monitor, *m_receiver);
    m_monitor.notifyOfButtonPressed(record);
}

void Notifier::handleMouseButtonRelease(const QMouseEvent& event)
{
    MouseEvent record = recordOf(event, m_monitor, *m_receiver);
    m_monitor.notifyOfButtonReleased(record);
}

void Notifier::handleMouseButtonDblClick(const QMouseEvent& event)
{
    MouseEvent record = recordOf(event, m_monitor, *m_receiver);
    m_monitor.notifyOfButtonDoublePressed(record);
}

void Notifier::handleKeyPress(const QKeyEvent& event)
{
    KeyEvent record = recordOf(event, m_monitor);
    m_monitor.notifyOfKeyPressed(record);
}

void Notifier::handleKeyRelease(const QKeyEvent& event)
{
    KeyEvent record = recordOf(event, m_monitor);
    m_monitor.notifyOfKeyReleased(record);
}

void Notifier::handleShortcut(const QShortcutEvent& event)
{
    KeyEvent record(&m_monitor, toolkit::firstKeyOf(event), EventInterface::Modifier_None);
    m_monitor.notifyOfKeyPressed(record);
}

// Closing a window reaches the engine as Escape, so that it ends what it is at.
void Notifier::handleCloseEvent(const QCloseEvent&)
{
    KeyEvent record(&m_monitor, Qt::Key_Escape, EventInterface::Modifier_None);
    m_monitor.notifyOfKeyPressed(record);
}

} // namespace velmora::sdk::integration::intern
