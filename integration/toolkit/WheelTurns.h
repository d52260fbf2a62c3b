#pragma once

#include <QPoint>

namespace velmora::sdk::integration::toolkit {

/// How far a wheel was turned, in eighths of a degree, and in which direction it turns.
struct WheelTurn {
    int delta;
    bool isVertical;
};

/// The turns that one event tells of: none, one, or, of what turns in both directions, the vertical one and the
/// horizontal one. They are whole numbers, as what they are made of is: there is nothing to round, and so no remainder
/// to keep from one event to the next. A wheel or touch pad that tells small steps comes to the same sum.
class WheelTurns {
public:
    WheelTurns() : m_turns{}, m_count(0) {}
    explicit WheelTurns(const WheelTurn& turn) : m_turns{turn, {}}, m_count(1) {}
    WheelTurns(const WheelTurn& first, const WheelTurn& second) : m_turns{first, second}, m_count(2) {}

    /// Of an event that tells both directions as a point. One that only begins or ends a gesture is a turn by 0.
    static WheelTurns ofAngle(const QPoint& turned)
    {
        const WheelTurn vertical = {turned.y(), true};
        const WheelTurn horizontal = {turned.x(), false};
        if (turned.x() == 0)
            return WheelTurns(vertical);
        return turned.y() == 0 ? WheelTurns(horizontal) : WheelTurns(vertical, horizontal);
    }
    /// Of one that tells pixels and no angle: a notch of 15 degrees is 10 of them, as window systems have it that
    /// tell both.
    static WheelTurns ofPixels(const QPoint& moved)
    {
        constexpr int EighthsPerPixel = 12;
        return ofAngle(moved * EighthsPerPixel);
    }

    const WheelTurn* begin() const { return m_turns; }
    const WheelTurn* end() const { return m_turns + m_count; }

private:
    WheelTurn m_turns[2];
    int m_count;
};

} // namespace velmora::sdk::integration::toolkit
