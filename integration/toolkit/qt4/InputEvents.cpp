#include "integration/toolkit/InputEvents.h"

#include <QMouseEvent>
#include <QShortcutEvent>
#include <QWheelEvent>

namespace velmora::sdk::integration::toolkit {

QPoint screenPosition(const QMouseEvent& event, const QObject&)
{
    return event.pos();
}

QPoint screenPosition(const QWheelEvent& event, const QObject&)
{
    return event.pos();
}

WheelTurns turnsOf(const QWheelEvent& event)
{
    return WheelTurns({event.delta(), event.orientation() == Qt::Vertical});
}

int firstKeyOf(const QShortcutEvent& event)
{
    return static_cast<int>(event.key()[0]);
}

std::unique_ptr<QMouseEvent> copyOf(const QMouseEvent& event)
{
    return std::make_unique<QMouseEvent>(event.type(), event.pos(), event.globalPos(), event.button(), event.buttons(),
                                         event.modifiers());
}

std::unique_ptr<QWheelEvent> copyOf(const QWheelEvent& event)
{
    return std::make_unique<QWheelEvent>(event.pos(), event.globalPos(), event.delta(), event.buttons(),
                                         event.modifiers(), event.orientation());
}

} // namespace velmora::sdk::integration::toolkit
