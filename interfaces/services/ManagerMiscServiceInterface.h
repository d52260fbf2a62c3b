#pragma once

#include "interfaces/MouseEventInterface.h"

#include <string>

namespace velmora {
namespace sdk {
namespace integration {
namespace services {

/// Answers the engine's small questions about screen, keyboard, mouse and OpenGL. GUI thread
/// only.
class VELMORA_INTERFACE ManagerMiscServiceInterface {
public:
    /// The engine's control character for a toolkit key code; 31 for every key without one.
    virtual int translateNonPrintableKeyboardCode(int qtKey) const = 0;
    /// Dots per centimetre, a dot being a pixel of the screen, whatever the windowing toolkit takes for its
    /// pixel; neither pointer may be null.
    virtual void getDotPitchPerCm(double* x, double* y) const = 0;
    /// Size of the whole desktop in pixels of the screen, likewise; a null pointer is skipped.
    virtual void getScreenSizeInPixels(int* width, int* height) const = 0;
    /// EventInterface::ModifierMask_e bits.
    virtual int keyboardModifiers() const = 0;
    /// Whether the button is held now.
    virtual bool mouseButtonState(MouseEventInterface::MouseButton_e button) const = 0;
    /// What OpenGL calls its version in a context of the toolkit's default format.
    virtual std::string openGLVersionString() const = 0;
    /// The address of the service object.
    virtual operator long() const = 0;
    virtual ~ManagerMiscServiceInterface() = default;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
