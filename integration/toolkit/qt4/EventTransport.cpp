#include "integration/toolkit/EventTransport.h"

#include <QCursor>
#include <QHoverEvent>
#include <QWidget>

namespace velmora::sdk::integration::toolkit {

std::unique_ptr<QEvent> enterEvent(const QWidget&)
{
    return std::make_unique<QEvent>(QEvent::Enter);
}

std::unique_ptr<QEvent> hoverEvent(QEvent::Type type, const QWidget& widget)
{
    const QPoint outside(-1, -1);
    const QPoint pointer = widget.mapFromGlobal(QCursor::pos());
    return type == QEvent::HoverEnter ? std::make_unique<QHoverEvent>(type, pointer, outside)
                                      : std::make_unique<QHoverEvent>(type, outside, pointer);
}

} // namespace velmora::sdk::integration::toolkit
