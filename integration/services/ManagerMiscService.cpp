#include "integration/services/ManagerMiscService.h"

#include "engine/VelEng.h"
#include "integration/intern/ModifierMask.h"
#include "integration/services/TextArgument.h"
#include "integration/toolkit/Screens.h"
#include "integration/toolkit/TemporaryContext.h"

#include <GL/gl.h>
#include <QApplication>
#include <array>

namespace velmora::sdk::integration::services {

namespace {

const int NoControlCharacter = 31;
const double CentimetresPerInch = 2.54;

// By the distance from Qt::Key_Escape, the first of the keys that print nothing. Tab has no
// character of its own, deliberately, like every key that is not listed.
const std::array<int, 22> ControlCharacters = {
    27,                 // Escape
    NoControlCharacter, // Tab
    NoControlCharacter, // Backtab
    8,                  // Backspace
    13,                 // Return
    13,                 // Enter
    NoControlCharacter, // Insert
    127,                // Delete
    NoControlCharacter, // Pause
    NoControlCharacter, // Print
    NoControlCharacter, // SysReq
    NoControlCharacter, // Clear
    NoControlCharacter, // (no key)
    NoControlCharacter, // (no key)
    NoControlCharacter, // (no key)
    NoControlCharacter, // (no key)
    NoControlCharacter, // Home
    NoControlCharacter, // End
    29,                 // Left
    11,                 // Up
    30,                 // Right
    10                  // Down
};
static_assert(Qt::Key_Down - Qt::Key_Escape + 1 == static_cast<int>(ControlCharacters.size()),
              "The table of control characters has one entry for each key from Escape to Down.");

bool requireScreens(const char* function)
{
    const bool exist = toolkit::hasScreens();
    if (!exist)
        VelEngDoVUAssert("Check", "( (desktop) != __null )", "Invalid Desktop Object", function);
    return exist;
}

} // namespace

ManagerMiscService::ManagerMiscService() = default;
ManagerMiscService::~ManagerMiscService() = default;

int ManagerMiscService::translateNonPrintableKeyboardCode(int qtKey) const
{
    if (qtKey < Qt::Key_Escape || qtKey > Qt::Key_Down)
        return NoControlCharacter;
    return ControlCharacters[static_cast<std::size_t>(qtKey - Qt::Key_Escape)];
}

// Dots are pixels of the screen, as everything that the engine measures.
void ManagerMiscService::getDotPitchPerCm(double* x, double* y) const
{
    if (!requireScreens("ManagerMiscService::getDotPitchPerCm"))
        return;
    const QSizeF perInch = toolkit::screenPixelsPerInch();
    *x = perInch.width() / CentimetresPerInch;
    *y = perInch.height() / CentimetresPerInch;
}

void ManagerMiscService::getScreenSizeInPixels(int* width, int* height) const
{
    if (!requireScreens("ManagerMiscService::getScreenSizeInPixels"))
        return;
    const QSize size = toolkit::sizeOfAllScreens();
    if (width)
        *width = size.width();
    if (height)
        *height = size.height();
}

int ManagerMiscService::keyboardModifiers() const
{
    return intern::modifierMask(QApplication::keyboardModifiers());
}

bool ManagerMiscService::mouseButtonState(MouseEventInterface::MouseButton_e button) const
{
    const Qt::MouseButtons held = QApplication::mouseButtons();
    switch (button) {
    case MouseEventInterface::MouseButton_Left:
        return held & Qt::LeftButton;
    case MouseEventInterface::MouseButton_Middle:
        return held & Qt::MiddleButton;
    case MouseEventInterface::MouseButton_Right:
        return held & Qt::RightButton;
    case MouseEventInterface::MouseButton_None:
        break;
    }
    return false;
}

std::string ManagerMiscService::openGLVersionString() const
{
    const toolkit::TemporaryContext context;
    return requiredText(reinterpret_cast<const char*>(glGetString(GL_VERSION)));
}

ManagerMiscService::operator long() const
{
    return reinterpret_cast<long>(static_cast<const ManagerMiscServiceInterface*>(this));
}

} // namespace velmora::sdk::integration::services
