#pragma once

#include "engine/VelExport.h"
#include "interfaces/KeyEventInterface.h"

namespace velmora {
namespace sdk {
namespace integration {

class KeyEventObservableInterface;

namespace intern {

/// The key event record that producers build on the stack.
class VELMORA_PLATFORM_EXPORT KeyEvent : public virtual KeyEventInterface {
public:
    /// `key` is the toolkit's key code, `modifiers` the generic modifier mask.
    KeyEvent(KeyEventObservableInterface* source, int key, int modifiers);

    int key() const override { return m_key; }
    int keyboardModifiers() const override { return m_modifiers; }
    bool isControlDown() const override { return (m_modifiers & Modifier_Control) != 0; }
    bool isShiftDown() const override { return (m_modifiers & Modifier_Shift) != 0; }
    bool isAltDown() const override { return (m_modifiers & Modifier_Alt) != 0; }
    /// The producer.
    KeyEventObservableInterface* source() const { return m_source; }

private:
    KeyEventObservableInterface* m_source;
    int m_key;
    int m_modifiers;
};

} // namespace intern
} // namespace integration
} // namespace sdk
} // namespace velmora
