#include "integration/intern/EventCloner.h"

#include "integration/toolkit/InputEvents.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QShortcutEvent>
#include <QTimerEvent>
#include <QWheelEvent>

namespace velmora::sdk::integration::intern {

using Filter = ApplicationEventMonitor::EventFilter;

void Filter::EventCloner::handleTimerEventCausingWidgetChange(const QTimerEvent& event)
{
    m_clonedEvent = std::make_unique<QTimerEvent>(event.timerId()).release();
}

void Filter::EventCloner::handleMouseWheelEvent(const QWheelEvent& event)
{
    m_clonedEvent = toolkit::copyOf(event).release();
}

void Filter::EventCloner::handleMouseMoveEvent(const QMouseEvent& event)
{
    cloneMouseEvent(event);
}

void Filter::EventCloner::handleMouseButtonPress(const QMouseEvent& event)
{
    cloneMouseEvent(event);
}

void Filter::EventCloner::handleMouseButtonRelease(const QMouseEvent& event)
{
    cloneMouseEvent(event);
}

void Filter::EventCloner::handleMouseButtonDblClick(const QMouseEvent& event)
{
    cloneMouseEvent(event);
}

void Filter::EventCloner::handleKeyPress(const QKeyEvent& event)
{
    cloneKeyEvent(event);
}

void Filter::EventCloner::handleKeyRelease(const QKeyEvent& event)
{
    cloneKeyEvent(event);
}

// Deliberately comes back as the plain key press: the shortcut's own owner may be gone by then.
void Filter::EventCloner::handleShortcut(const QShortcutEvent& event)
{
    m_clonedEvent = std::make_unique<QKeyEvent>(QEvent::KeyPress, toolkit::firstKeyOf(event),
                                                QApplication::keyboardModifiers(), QString(), false, ushort(1))
                        .release();
}

void Filter::EventCloner::handleCloseEvent(const QCloseEvent&)
{
    m_clonedEvent = std::make_unique<QCloseEvent>().release();
}

void Filter::EventCloner::cloneMouseEvent(const QMouseEvent& event)
{
    m_clonedEvent = toolkit::copyOf(event).release();
}

void Filter::EventCloner::cloneKeyEvent(const QKeyEvent& event)
{
    m_clonedEvent = std::make_unique<QKeyEvent>(event.type(), event.key(), event.modifiers(), event.text(),
                                                event.isAutoRepeat(), static_cast<ushort>(event.count()))
                        .release();
}

} // namespace velmora::sdk::integration::intern
