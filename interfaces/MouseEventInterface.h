#pragma once

#include "interfaces/EventInterface.h"

namespace velmora {
namespace sdk {
namespace integration {

/// A mouse event as the engine and its listeners see it. An event lives only while listeners are
/// notified; a listener that wants to keep one keeps a `clone()`.
class VELMORA_INTERFACE MouseEventInterface : public virtual EventInterface {
public:
    /// The buttons that are told apart.
    enum MouseButton_e : int {
        MouseButton_None = 0, ///< no button, or one that is not told apart (the extra buttons)
        MouseButton_Left = 1,
        MouseButton_Middle = 2,
        MouseButton_Right = 3
    };

    /// The button that caused the event; a move carries MouseButton_None.
    virtual MouseButton_e button() const = 0;
    /// Horizontal position in pixels of the screen, 0 at the left edge of the widget that produced the event.
    /// The widget's own pixels may be larger, where the windowing toolkit scales.
    virtual int x() const = 0;
    /// Vertical position, likewise, 0 at the top edge.
    virtual int y() const = 0;
    /// A copy on the heap; the caller owns it.
    virtual MouseEventInterface* clone() const = 0;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
