#pragma once

#include "integration/intern/Mouse3DInput.h"
#include "integration/intern/ThreedMouseMessage.h"

#include <bitset>
#include <deque>
#include <functional>

namespace velmora {
namespace sdk {
namespace integration {
namespace intern {

/// What listeners are told of what a 3D mouse does. They hear of each end of which they heard the beginning, once, and
/// of no other. What comes while nobody is to be told is dropped and not told later: the device tells how fast it
/// wants to move, and a person who sees nothing move goes on pushing. GUI thread only.
class ThreedMouseEvents {
public:
    enum Audience {
        HearsAll,
        HearsEnds, ///< the person works elsewhere: what has begun ends
        HearsNothing
    };
    struct Callbacks {
        threedmouse::MotionCallback motion;
        threedmouse::EndOfMotionCallback endOfMotion;
        threedmouse::ButtonActionCallback buttonAction;
    };

    /// `audience` is asked before anything is told.
    ThreedMouseEvents(std::function<Audience()> audience, Callbacks callbacks);

    /// Keeps a message until `tell()`; motions that follow one another become one.
    void add(const ThreedMouseMessage& message);
    /// Tells of all messages that are kept, in their order, also when it is called from a callback.
    void tell();
    /// The device is at rest and all buttons are up, although it did not say so.
    void rest();
    /// Tells of the ends of which nobody could be told when they came.
    void tellEnds();

    /// Between the first motion and the end of motion that are told.
    bool isInMotion() const { return m_toldMoving; }
    /// Whether there will be an end to tell of.
    bool isAnythingOpen() const { return m_toldMoving || m_toldDown.any(); }
    /// Whether the device moves, as far as it has said.
    bool deviceMoves() const { return m_moving; }

private:
    using Buttons = std::bitset<ThreedMouseMessage::ButtonCount>;

    void note(const ThreedMouseMessage& message);
    void tellOf(const ThreedMouseMessage& message);
    void tellWhatEnded(bool moving, const Buttons& down);
    void tellOfButton(int button, bool pressed);

    std::function<Audience()> m_audience;
    Callbacks m_callbacks;
    std::deque<ThreedMouseMessage> m_waiting;
    bool m_moving = false;
    Buttons m_down;
    bool m_toldMoving = false;
    Buttons m_toldDown;
};

} // namespace intern
} // namespace integration
} // namespace sdk
} // namespace velmora
