#include "tests/support/WindowManager.h"

#include "tests/support/ToolkitWindows.h"

#include <QElapsedTimer>
#include <QThread>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <X11/Xatom.h>
#include <X11/Xlib.h>

namespace velmora::test {

namespace {

const int PatienceMilliseconds = 30000;

// A connection of its own, so that no event of the toolkit's is taken from its queue.
struct Connection {
    Connection() : display(XOpenDisplay(nullptr)) {}
    ~Connection()
    {
        if (display)
            XCloseDisplay(display);
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    Atom atom(const char* name) const { return XInternAtom(display, name, False); }
    Window root() const { return DefaultRootWindow(display); }

    Display* display;
};

bool hasProperty(const Connection& connection, Window window, const char* name)
{
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* value = nullptr;
    XGetWindowProperty(connection.display, window, connection.atom(name), 0, 4, False, AnyPropertyType, &type, &format,
                       &count, &rest, &value);
    if (value)
        XFree(value);
    return type != None;
}

void askForFrame(const Connection& connection, Window window)
{
    XEvent request = {};
    request.xclient.type = ClientMessage;
    request.xclient.window = window;
    request.xclient.message_type = connection.atom("_NET_REQUEST_FRAME_EXTENTS");
    request.xclient.format = 32;
    XSendEvent(connection.display, connection.root(), False, SubstructureNotifyMask | SubstructureRedirectMask,
               &request);
}

} // namespace

bool hasWindowManager()
{
    const Connection connection;
    return connection.display && hasProperty(connection, connection.root(), "_NET_SUPPORTING_WM_CHECK");
}

bool waitForWindowManager()
{
    XSync(toolkitDisplay(), False);
    // The manager answers requests in their order: how wide a frame would be is a harmless one.
    const Connection connection;
    const Window window = XCreateSimpleWindow(connection.display, connection.root(), 0, 0, 1, 1, 0, 0, 0);
    askForFrame(connection, window);
    QElapsedTimer clock;
    clock.start();
    bool answered = false;
    while (!answered && clock.elapsed() < PatienceMilliseconds)
        answered = hasProperty(connection, window, "_NET_FRAME_EXTENTS");
    XSync(toolkitDisplay(), False);
    while (answered && !toolkitHasReadAll() && clock.elapsed() < PatienceMilliseconds)
        QThread::yieldCurrentThread();
    return answered;
}

} // namespace velmora::test
