#pragma once

#include "integration/toolkit/WheelTurns.h"

#include <QPoint>
#include <memory>

class QMouseEvent;
class QObject;
class QShortcutEvent;
class QWheelEvent;

namespace velmora::sdk::integration::toolkit {

/// @{
/// Where in its receiver the event happened, in pixels of the screen. For a mouse event it is the very
/// pixel; for a wheel event the toolkit tells no more than its own, larger one. Of a receiver that is no
/// widget nothing is known: the event's position as it is.
QPoint screenPosition(const QMouseEvent& event, const QObject& receiver);
QPoint screenPosition(const QWheelEvent& event, const QObject& receiver);
/// @}

/// What the event tells of the wheel.
WheelTurns turnsOf(const QWheelEvent& event);

/// The first key of the shortcut as the toolkit packs it, modifier bits included.
int firstKeyOf(const QShortcutEvent& event);

/// @{
/// A new event of the same type, position, buttons and modifiers, and of the same turn; its position is as
/// exact. Not spontaneous.
std::unique_ptr<QMouseEvent> copyOf(const QMouseEvent& event);
std::unique_ptr<QWheelEvent> copyOf(const QWheelEvent& event);
/// @}

} // namespace velmora::sdk::integration::toolkit
