#include "integrationmanager/MouseWheelEvent.h"

namespace velmora::sdk::integration::intern {

MouseWheelEvent::MouseWheelEvent(int x, int y, int delta, bool leftButtonDown, bool middleButtonDown,
                                 bool rightButtonDown, Orientation orientation, int modifiers)
    : m_x(x), m_y(y), m_delta(delta), m_left(leftButtonDown), m_middle(middleButtonDown), m_right(rightButtonDown),
      m_orientation(orientation), m_modifiers(modifiers)
{}

} // namespace velmora::sdk::integration::intern
