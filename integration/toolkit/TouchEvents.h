#pragma once

#include "integration/toolkit/WheelTurns.h"

#include <QEvent>
#include <QPointF>
#include <Qt>
#include <memory>
#include <vector>

class QMouseEvent;
class QWheelEvent;
class QWidget;

namespace velmora::sdk::integration::toolkit {

enum TouchPhase {
    NoTouch, ///< not an event of fingers on a screen
    TouchBegins,
    TouchGoesOn,
    TouchEnds,
    TouchIsGivenUp ///< the window system has taken it for something of its own
};
TouchPhase touchPhaseOf(const QEvent& event);

/// A finger on the screen, or one that has just left it.
struct Finger {
    int id;
    QPointF position; ///< in the receiver, in the toolkit's pixels
    bool isDown;
};
/// Of an event with a phase.
std::vector<Finger> fingersOf(const QEvent& event);

/// What two fingers on a touch pad do, since the event before.
struct PadGesture {
    double factor = 1;  ///< by which they went apart
    double degrees = 0; ///< by which they turned, clockwise
    QPointF position;   ///< of the pointer, as that of a finger
};
/// False: the event is no such thing.
bool readPadGesture(const QEvent& event, PadGesture& gesture);

/// @{
/// An event as the window system would have it, of the left button or of no button, at a position of the receiver. Not
/// spontaneous.
std::unique_ptr<QMouseEvent> newLeftButtonEvent(QEvent::Type type, const QPointF& position, const QWidget& receiver,
                                                Qt::KeyboardModifiers modifiers);
std::unique_ptr<QWheelEvent> newWheelEvent(const WheelTurn& turn, const QPointF& position, const QWidget& receiver,
                                           Qt::KeyboardModifiers modifiers);
/// @}

} // namespace velmora::sdk::integration::toolkit
