#pragma once

#include "integration/Export.h"
#include "integrationmanager/ManagerMiscServiceAbstract.h"

namespace velmora {
namespace sdk {
namespace integration {
namespace services {

/// Answers the engine's small questions about the screen, the keyboard, the mouse and OpenGL from
/// the state of the application object. Holds nothing of its own. GUI thread only.
class VELMORA_INTEGRATION_EXPORT ManagerMiscService : public ManagerMiscServiceAbstract {
public:
    ManagerMiscService();
    ~ManagerMiscService() override;

    /// Maps a Qt::Key value to the engine's control character; 31 for every key that has none,
    /// Tab, Insert, Home and End among them.
    int translateNonPrintableKeyboardCode(int qtKey) const override;
    /// Logical dots per centimetre of the desktop's first screen, a dot being a pixel of the screen also where
    /// the toolkit scales. Neither pointer may be null. Without a desktop
    /// the engine's assertion is raised and nothing is written.
    void getDotPitchPerCm(double* x, double* y) const override;
    /// Screen pixels of the whole desktop, all screens together, also where the toolkit scales (and then
    /// perhaps one off); a null pointer is skipped. Without a
    /// desktop the engine's assertion is raised and nothing is written.
    void getScreenSizeInPixels(int* width, int* height) const override;
    /// EventInterface::ModifierMask_e bits of the keys held now, other modifiers left out.
    int keyboardModifiers() const override;
    /// Whether the button is held now; false for MouseButton_None.
    bool mouseButtonState(MouseEventInterface::MouseButton_e button) const override;
    /// What OpenGL calls its version in a context of the toolkit's default format. Leaves no
    /// context current. Throws std::logic_error when OpenGL does not tell.
    std::string openGLVersionString() const override;
    /// The address of the service's interface.
    operator long() const override;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
