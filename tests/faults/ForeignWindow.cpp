#include "tests/faults/ForeignWindow.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <stdexcept>
#include <string>

#include <poll.h>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <X11/Xlib.h>

namespace velmora::test {

namespace {

constexpr int LongestWaitMilliseconds = 60000;
constexpr int LookAgainMilliseconds = 20; // other programs are not told of a new title

// Windows of other programs come and go.
int ignoreError(Display*, XErrorEvent*)
{
    return 0;
}

class Connection {
public:
    explicit Connection(const QString& name)
        : m_display(XOpenDisplay(name.toLatin1().constData())), m_before(XSetErrorHandler(&ignoreError))
    {
        if (!m_display)
            throw std::runtime_error("The display cannot be opened.");
    }
    ~Connection()
    {
        XCloseDisplay(m_display);
        XSetErrorHandler(m_before);
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    operator Display*() const { return m_display; }

private:
    Display* m_display;
    XErrorHandler m_before;
};

bool isShown(Display* display, Window window, const char* title)
{
    char* name = nullptr;
    XWindowAttributes attributes;
    const bool named = XFetchName(display, window, &name) && name && std::string(name).find(title) != std::string::npos;
    if (name)
        XFree(name);
    return named && XGetWindowAttributes(display, window, &attributes) && attributes.map_state == IsViewable;
}

/// 0 when there is none.
Window findShown(Display* display, const char* title)
{
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned count = 0;
    Window found = 0;
    XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count);
    for (unsigned i = 0; i < count && !found; ++i)
        found = isShown(display, children[i], title) ? children[i] : 0;
    if (children)
        XFree(children);
    return found;
}

} // namespace

ForeignWindow::ForeignWindow(const QString& display, const char* title) : m_display(display)
{
    const Connection connection(display);
    QElapsedTimer clock;
    clock.start();
    while (!m_window && clock.elapsed() < LongestWaitMilliseconds) {
        m_window = findShown(connection, title);
        if (!m_window)
            poll(nullptr, 0, LookAgainMilliseconds);
    }
    if (!m_window)
        throw std::runtime_error(std::string("There is no window called ") + title);
}

QSize ForeignWindow::size() const
{
    const Connection display(m_display);
    XWindowAttributes attributes = {};
    XGetWindowAttributes(display, m_window, &attributes);
    return QSize(attributes.width, attributes.height);
}

QSize ForeignWindow::screenSize() const
{
    const Connection display(m_display);
    return QSize(DisplayWidth(static_cast<Display*>(display), 0), DisplayHeight(static_cast<Display*>(display), 0));
}

void ForeignWindow::close() const
{
    const Connection display(m_display);
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = m_window;
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    XSendEvent(display, m_window, False, NoEventMask, &event);
    XSync(display, False);
}

void ForeignWindow::killClient() const
{
    const Connection display(m_display);
    XKillClient(display, m_window);
    XSync(display, False);
}

} // namespace velmora::test
