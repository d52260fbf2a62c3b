#pragma once

#include "engine/VelExport.h"
#include "interfaces/MouseWheelEventInterface.h"

namespace velmora {
namespace sdk {
namespace integration {
namespace intern {

/// The wheel event record that producers build on the stack.
class VELMORA_PLATFORM_EXPORT MouseWheelEvent : public virtual MouseWheelEventInterface {
public:
    /// Pixels, eighths of a degree and the generic modifier mask, as the interface says.
    MouseWheelEvent(int x, int y, int delta, bool leftButtonDown, bool middleButtonDown, bool rightButtonDown,
                    Orientation orientation, int modifiers);

    int x() const override { return m_x; }
    int y() const override { return m_y; }
    int delta() const override { return m_delta; }
    bool isLeftButtonDown() const override { return m_left; }
    bool isMiddleButtonDown() const override { return m_middle; }
    bool isRightButtonDown() const override { return m_right; }
    Orientation orientation() const override { return m_orientation; }
    int keyboardModifiers() const override { return m_modifiers; }
    bool isControlDown() const override { return (m_modifiers & Modifier_Control) != 0; }
    bool isShiftDown() const override { return (m_modifiers & Modifier_Shift) != 0; }
    bool isAltDown() const override { return (m_modifiers & Modifier_Alt) != 0; }

private:
    int m_x;
    int m_y;
    int m_delta;
    bool m_left;
    bool m_middle;
    bool m_right;
    Orientation m_orientation;
    int m_modifiers;
};

} // namespace intern
} // namespace integration
} // namespace sdk
} // namespace velmora
