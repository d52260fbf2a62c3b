#pragma once

#include "chosen_toolkit/OnlyTransport.h" // isOnlyTransport()

#include <QEvent>
#include <memory>

class QObject;
class QWidget;

namespace velmora::sdk::integration::toolkit {

/// The event that tells the widget that the pointer, where it is now, has come over it. Since Qt 5 it has a
/// class of its own.
std::unique_ptr<QEvent> enterEvent(const QWidget& widget);

/// The event that tells the widget that the pointer, where it is now, has begun (QEvent::HoverEnter) or ended
/// (QEvent::HoverLeave) to hover over it.
std::unique_ptr<QEvent> hoverEvent(QEvent::Type type, const QWidget& widget);

} // namespace velmora::sdk::integration::toolkit
