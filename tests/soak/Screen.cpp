#include "tests/soak/Screen.h"

#include <stdexcept>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XRes.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

namespace velmora::test {

namespace {

// Windows come and go while they are looked at.
int ignoreError(Display*, XErrorEvent*)
{
    return 0;
}

Display* open()
{
    Display* const display = XOpenDisplay(nullptr);
    int ignored = 0;
    if (!display || !XTestQueryExtension(display, &ignored, &ignored, &ignored, &ignored) ||
        !XResQueryExtension(display, &ignored, &ignored))
        throw std::runtime_error("The display cannot be opened, or lacks the extensions XTEST and X-Resource.");
    XSetErrorHandler(&ignoreError);
    return display;
}

std::string titleOf(Display* display, Window window)
{
    char* name = nullptr;
    std::string title;
    if (XFetchName(display, window, &name) && name)
        title = name;
    if (name)
        XFree(name);
    return title;
}

std::string nameOf(Display* display, Atom atom)
{
    char* const name = XGetAtomName(display, atom);
    const std::string result = name ? name : "unknown";
    if (name)
        XFree(name);
    return result;
}

bool needsShift(KeySym symbol)
{
    return (symbol >= XK_A && symbol <= XK_Z) || symbol == XK_underscore;
}

} // namespace

Screen::Screen() : m_display(open()) {}

Screen::~Screen()
{
    XCloseDisplay(m_display);
}

void Screen::deliver() const
{
    XSync(m_display, False);
}

/// From the lowest to the topmost.
std::vector<Screen::Place> Screen::places() const
{
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned count = 0;
    std::vector<Place> result;
    if (!XQueryTree(m_display, DefaultRootWindow(m_display), &root, &parent, &children, &count))
        return result;
    for (unsigned i = 0; i < count; ++i) {
        XWindowAttributes is;
        if (XGetWindowAttributes(m_display, children[i], &is) && is.map_state == IsViewable &&
            is.c_class == InputOutput)
            result.push_back({children[i], is.x, is.y, is.width, is.height, is.override_redirect != False,
                              titleOf(m_display, children[i])});
    }
    if (children)
        XFree(children);
    return result;
}

Screen::Place Screen::top() const
{
    const std::vector<Place> all = places();
    return all.empty() ? Place() : all.back();
}

Screen::Place Screen::main() const
{
    for (const Place& place : places())
        if (!place.isPopup && place.title.find("Viewer") != std::string::npos)
            return place;
    return {};
}

void Screen::focus(const Place& place)
{
    if (!place.isPopup)
        XSetInputFocus(m_display, place.window, RevertToParent, CurrentTime);
    deliver();
}

void Screen::move(int x, int y)
{
    XTestFakeMotionEvent(m_display, -1, x, y, CurrentTime);
    deliver();
}

void Screen::button(int number, bool down)
{
    XTestFakeButtonEvent(m_display, static_cast<unsigned>(number), down, CurrentTime);
    deliver();
}

void Screen::key(unsigned long symbol, bool down)
{
    XTestFakeKeyEvent(m_display, XKeysymToKeycode(m_display, symbol), down, CurrentTime);
    deliver();
}

void Screen::type(unsigned long symbol, unsigned long modifier)
{
    if (modifier)
        key(modifier, true);
    key(symbol, true);
    key(symbol, false);
    if (modifier)
        key(modifier, false);
}

void Screen::type(const std::string& text)
{
    for (const char character : text) {
        const KeySym symbol = static_cast<unsigned char>(character); // those of ASCII are its characters
        type(symbol, needsShift(symbol) ? XK_Shift_L : 0);
    }
}

void Screen::resize(const Place& place, int x, int y, int width, int height)
{
    XMoveResizeWindow(m_display, place.window, x, y, static_cast<unsigned>(width), static_cast<unsigned>(height));
    deliver();
}

void Screen::close(const Place& place)
{
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = place.window;
    event.xclient.message_type = XInternAtom(m_display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(m_display, "WM_DELETE_WINDOW", False));
    XSendEvent(m_display, place.window, False, NoEventMask, &event);
    deliver();
}

std::map<std::string, long> Screen::resources() const
{
    const XID own = XGContextFromGC(DefaultGC(m_display, DefaultScreen(m_display)));
    std::map<std::string, long> total;
    int count = 0;
    XResClient* clients = nullptr;
    XResQueryClients(m_display, &count, &clients);
    for (int i = 0; i < count; ++i) {
        int types = 0;
        XResType* each = nullptr;
        if ((own & ~clients[i].resource_mask) == clients[i].resource_base ||
            !XResQueryClientResources(m_display, clients[i].resource_base, &types, &each))
            continue;
        for (int k = 0; k < types; ++k)
            total[nameOf(m_display, each[k].resource_type)] += each[k].count;
        XFree(each);
    }
    if (clients)
        XFree(clients);
    return total;
}

long Screen::pixmapKilobytes() const
{
    unsigned long total = 0;
    int count = 0;
    XResClient* clients = nullptr;
    XResQueryClients(m_display, &count, &clients);
    for (int i = 0; i < count; ++i) {
        unsigned long bytes = 0;
        if (XResQueryClientPixmapBytes(m_display, clients[i].resource_base, &bytes))
            total += bytes;
    }
    if (clients)
        XFree(clients);
    return static_cast<long>(total / 1024);
}

} // namespace velmora::test
