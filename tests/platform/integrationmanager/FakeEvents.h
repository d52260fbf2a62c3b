#pragma once

#include "integrationmanager/KeyEvent.h"
#include "interfaces/MouseEventInterface.h"

namespace velmora::tests {

constexpr int EscapeKey = 0x01000000;

struct FakeMouseEvent : public virtual sdk::integration::MouseEventInterface {
    MouseButton_e button() const override { return MouseButton_Left; }
    int x() const override { return 3; }
    int y() const override { return 4; }
    MouseEventInterface* clone() const override { return new FakeMouseEvent; }
    int keyboardModifiers() const override { return 0; }
    bool isControlDown() const override { return false; }
    bool isShiftDown() const override { return false; }
    bool isAltDown() const override { return false; }
};

inline sdk::integration::intern::KeyEvent keyEvent(int key, int modifiers = 0)
{
    return {nullptr, key, modifiers};
}

} // namespace velmora::tests
