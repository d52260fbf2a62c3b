#pragma once

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

/// How far a wheel was turned, in eighths of a degree, and in which direction it turns.
struct WheelTurn {
    int delta;
    bool isVertical;
};

/// The turns that one event tells of: one, or, of what turns in both directions, the vertical one and the horizontal
/// one.
class WheelTurns {
public:
    explicit WheelTurns(const WheelTurn& turn) : m_turns{turn, {}}, m_count(1) {}
    WheelTurns(const WheelTurn& first, const WheelTurn& second) : m_turns{first, second}, m_count(2) {}

    const WheelTurn* begin() const { return m_turns; }
    const WheelTurn* end() const { return m_turns + m_count; }

private:
    WheelTurn m_turns[2];
    int m_count;
};
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
