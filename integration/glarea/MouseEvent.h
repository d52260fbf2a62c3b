#pragma once

#include "interfaces/MouseEventInterface.h"

namespace velmora {
namespace sdk {
namespace integration {

class MouseEventObservableInterface;

namespace intern {

/// The mouse event record that producers build on the stack; it lives while listeners are notified.
class MouseEvent : public virtual MouseEventInterface {
public:
    /// `source` produced the event and is not owned; `x` and `y` are in screen pixels of it; `modifiers` is
    /// the generic modifier mask.
    MouseEvent(MouseEventObservableInterface* source, MouseButton_e button, int x, int y, int modifiers);
    MouseEvent(const MouseEvent& other) = default;
    MouseEvent& operator=(const MouseEvent&) = delete;
    ~MouseEvent() override;

    int keyboardModifiers() const override;
    bool isControlDown() const override;
    bool isShiftDown() const override;
    bool isAltDown() const override;
    MouseButton_e button() const override;
    int x() const override;
    int y() const override;
    MouseEventInterface* clone() const override;

    /// As given to the constructor, so it may be null; not owned, and not kept alive by a clone.
    MouseEventObservableInterface* source() const;

private:
    MouseEventObservableInterface* m_source;
    MouseButton_e m_button;
    int m_x;
    int m_y;
    int m_modifiers;
};

} // namespace intern
} // namespace integration
} // namespace sdk
} // namespace velmora
