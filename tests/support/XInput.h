#pragma once

#include <X11/keysym.h>

class QPoint;
class QWidget;

namespace velmora::test {

// Input as a person gives it: fake events of the XTEST extension, which travel through the X server
// to whatever window is under the pointer or has the focus. Each call returns once the server has
// taken the event; the application still has to process it. Buttons are X's: 1 left, 2 middle,
// 3 right, 4 wheel up, 5 wheel down, 6 wheel left, 7 wheel right. Keys are X key symbols
// (XK_Escape …).

/// Moves the pointer to a position of the widget.
void movePointer(const QWidget& widget, const QPoint& position);
/// Moves the pointer to a position of the screen.
void movePointerToScreen(int x, int y);
void pressButton(int button);
void releaseButton(int button);
/// Moves, presses and releases.
void click(const QWidget& widget, const QPoint& position, int button = 1);
void doubleClick(const QWidget& widget, const QPoint& position, int button = 1);
void turnWheel(bool up);
void pressKey(unsigned long keySymbol);
void releaseKey(unsigned long keySymbol);
void typeKey(unsigned long keySymbol);
/// Asks the widget's window to close, as a window manager does (WM_DELETE_WINDOW).
void closeByWindowManager(const QWidget& window);
/// Gives the widget's window the X input focus without a window manager.
void focusWindow(const QWidget& window);

} // namespace velmora::test
