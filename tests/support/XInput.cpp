#include "tests/support/XInput.h"

#include "tests/support/DisplayScale.h"
#include "tests/support/WindowManager.h"

#include <QCoreApplication>
#include <QPoint>
#include <QWidget>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace velmora::test {

namespace {

// A connection of its own, like the person's keyboard and mouse.
Display* inputDisplay()
{
    static Display* const display = XOpenDisplay(nullptr);
    return display;
}

void deliver()
{
    XSync(inputDisplay(), False);
}

} // namespace

void movePointerToScreen(int x, int y)
{
    if (!inputDisplay())
        return;
    XTestFakeMotionEvent(inputDisplay(), -1, x, y, CurrentTime);
    deliver();
}

void movePointer(const QWidget& widget, const QPoint& position)
{
    const QPoint place = placeOnScreen(widget, position);
    movePointerToScreen(place.x(), place.y());
}

void pressButton(int button)
{
    XTestFakeButtonEvent(inputDisplay(), static_cast<unsigned>(button), True, CurrentTime);
    deliver();
}

void releaseButton(int button)
{
    XTestFakeButtonEvent(inputDisplay(), static_cast<unsigned>(button), False, CurrentTime);
    deliver();
}

void click(const QWidget& widget, const QPoint& position, int button)
{
    // A window manager takes the button for itself and gives it back. Of two clicks within the millisecond of the
    // server's clock, for which a person is too slow, it gives back but one.
    if (hasWindowManager())
        waitForWindowManager();
    movePointer(widget, position);
    pressButton(button);
    releaseButton(button);
}

void doubleClick(const QWidget& widget, const QPoint& position, int button)
{
    click(widget, position, button);
    click(widget, position, button);
}

void turnWheel(bool up)
{
    pressButton(up ? 4 : 5);
    releaseButton(up ? 4 : 5);
}

void pressKey(unsigned long keySymbol)
{
    XTestFakeKeyEvent(inputDisplay(), XKeysymToKeycode(inputDisplay(), keySymbol), True, CurrentTime);
    deliver();
}

void releaseKey(unsigned long keySymbol)
{
    XTestFakeKeyEvent(inputDisplay(), XKeysymToKeycode(inputDisplay(), keySymbol), False, CurrentTime);
    deliver();
}

void typeKey(unsigned long keySymbol)
{
    pressKey(keySymbol);
    releaseKey(keySymbol);
}

void closeByWindowManager(const QWidget& window)
{
    Display* const display = inputDisplay();
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window.window()->winId();
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(display, window.window()->winId(), False, NoEventMask, &event);
    deliver();
}

void focusWindow(const QWidget& window)
{
    // The server must have been asked to map it before, which the toolkit may still keep for itself.
    if (toolkitDisplay())
        XSync(toolkitDisplay(), False);
    XSetInputFocus(inputDisplay(), window.window()->winId(), RevertToParent, CurrentTime);
    deliver();
}

} // namespace velmora::test
