#pragma once

#include "interfaces/EventInterface.h"

namespace velmora {
namespace sdk {
namespace integration {

/// One turn of the mouse wheel.
class VELMORA_INTERFACE MouseWheelEventInterface : public virtual EventInterface {
public:
    /// Which wheel, or which way it was tilted.
    enum Orientation { Orientation_Horizontal = 0, Orientation_Vertical = 1 };

    /// @{
    /// Position in pixels of the screen, 0 at the left and top edge of the widget under the pointer. The
    /// widget's own pixels may be larger, where the windowing toolkit scales.
    virtual int x() const = 0;
    virtual int y() const = 0;
    /// @}
    /// Rotation in eighths of a degree, positive away from the person.
    virtual int delta() const = 0;
    /// @{
    /// Whether the button was held while the wheel turned.
    virtual bool isLeftButtonDown() const = 0;
    virtual bool isMiddleButtonDown() const = 0;
    virtual bool isRightButtonDown() const = 0;
    /// @}
    /// Which wheel turned.
    virtual Orientation orientation() const = 0;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
