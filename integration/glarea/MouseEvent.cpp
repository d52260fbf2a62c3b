#include "integration/glarea/MouseEvent.h"

#include <memory>

namespace velmora::sdk::integration::intern {

MouseEvent::MouseEvent(MouseEventObservableInterface* source, MouseButton_e button, int x, int y, int modifiers)
    : m_source(source), m_button(button), m_x(x), m_y(y), m_modifiers(modifiers)
{}

MouseEvent::~MouseEvent() = default;

int MouseEvent::keyboardModifiers() const
{
    return m_modifiers;
}

bool MouseEvent::isControlDown() const
{
    return (m_modifiers & Modifier_Control) != 0;
}

bool MouseEvent::isShiftDown() const
{
    return (m_modifiers & Modifier_Shift) != 0;
}

bool MouseEvent::isAltDown() const
{
    return (m_modifiers & Modifier_Alt) != 0;
}

MouseEventInterface::MouseButton_e MouseEvent::button() const
{
    return m_button;
}

int MouseEvent::x() const
{
    return m_x;
}

int MouseEvent::y() const
{
    return m_y;
}

MouseEventInterface* MouseEvent::clone() const
{
    return std::make_unique<MouseEvent>(*this).release();
}

MouseEventObservableInterface* MouseEvent::source() const
{
    return m_source;
}

} // namespace velmora::sdk::integration::intern
