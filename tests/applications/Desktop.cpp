#include "tests/applications/Desktop.h"

#include <csignal>
#include <fstream>
#include <stdexcept>

#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>

namespace velmora::test {

namespace {

constexpr int LongestStartMilliseconds = 30000;
constexpr int LookMilliseconds = 20;
constexpr int AskAgainMilliseconds = 1000;
constexpr int Buttons = 3;

pid_t startWindowManager(const std::string& configuration)
{
    std::string words[] = {"openbox", "--sm-disable", "--config-file", configuration};
    char* arguments[] = {&words[0][0], &words[1][0], &words[2][0], &words[3][0], nullptr};
    pid_t process = -1;
    if (posix_spawnp(&process, arguments[0], nullptr, nullptr, arguments, environ) != 0)
        throw std::runtime_error("openbox could not be started; install the package openbox.");
    return process;
}

} // namespace

Desktop::Desktop(const std::string& windowManagerConfiguration) : m_display(XOpenDisplay(nullptr))
{
    m_windowManager = startWindowManager(windowManagerConfiguration);
    for (int waited = 0; windowsOf("_NET_SUPPORTING_WM_CHECK").empty(); waited += LookMilliseconds) {
        if (waited > LongestStartMilliseconds)
            throw std::runtime_error("openbox did not come up.");
        poll(nullptr, 0, LookMilliseconds);
    }
    m_question = XCreateSimpleWindow(m_display, DefaultRootWindow(m_display), 0, 0, 1, 1, 0, 0, 0);
    XSelectInput(m_display, m_question, PropertyChangeMask);
    awaitWindowManager();
}

Desktop::~Desktop()
{
    kill(m_windowManager, SIGTERM);
    waitpid(m_windowManager, nullptr, 0);
    XCloseDisplay(m_display);
}

/// It answers a request about a window after what came before. While it starts it loses some.
void Desktop::awaitWindowManager() const
{
    for (int asked = 0; asked < LongestStartMilliseconds / AskAgainMilliseconds; ++asked) {
        ask(m_question, "_NET_REQUEST_FRAME_EXTENTS", {});
        pollfd wait = {ConnectionNumber(m_display), POLLIN, 0};
        for (XEvent event; XPending(m_display) > 0 || poll(&wait, 1, AskAgainMilliseconds) == 1;) {
            XNextEvent(m_display, &event);
            if (event.type == PropertyNotify && event.xproperty.window == m_question)
                return;
        }
    }
    throw std::runtime_error("openbox does not answer.");
}

void Desktop::perform(const Gesture& gesture)
{
    for (const Input& input : gesture.inputs)
        perform(input);
}

void Desktop::perform(const Input& input)
{
    switch (input.kind) {
    case Input::Move:
        return m_screen.move(static_cast<int>(input.a), static_cast<int>(input.b));
    case Input::Button:
        return m_screen.button(static_cast<int>(input.a), input.b != 0);
    case Input::Key:
        return m_screen.key(static_cast<unsigned long>(input.a), input.b != 0);
    case Input::Resize:
        return resizeActiveWindow(input.a, input.b);
    case Input::Close:
        return closeActiveWindow();
    }
}

void Desktop::letGo()
{
    for (int button = 1; button <= Buttons; ++button)
        m_screen.button(button, false);
    for (const unsigned long symbol : {XK_Control_L, XK_Alt_L, XK_Shift_L})
        m_screen.key(symbol, false);
}

void Desktop::type(unsigned long symbol)
{
    m_screen.type(symbol);
}

std::vector<unsigned long> Desktop::windowsOf(const char* property) const
{
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(m_display, DefaultRootWindow(m_display), XInternAtom(m_display, property, False), 0, 1024, False,
                       XA_WINDOW, &type, &format, &count, &left, &data);
    const auto* const first = reinterpret_cast<const unsigned long*>(data);
    const std::vector<unsigned long> windows(first, first + count);
    if (data)
        XFree(data);
    return windows;
}

std::size_t Desktop::windowCount() const
{
    return windowsOf("_NET_CLIENT_LIST").size();
}

unsigned long Desktop::activeWindow() const
{
    const std::vector<unsigned long> windows = windowsOf("_NET_ACTIVE_WINDOW");
    return windows.empty() ? 0 : windows.front();
}

void Desktop::ask(unsigned long window, const char* message, const std::vector<long>& data) const
{
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(m_display, message, False);
    event.xclient.format = 32;
    for (std::size_t i = 0; i < data.size(); ++i)
        event.xclient.data.l[i] = data[i];
    XSendEvent(m_display, DefaultRootWindow(m_display), False, SubstructureRedirectMask | SubstructureNotifyMask,
               &event);
    XSync(m_display, False);
}

void Desktop::activateSomeWindow()
{
    const std::vector<unsigned long> windows = windowsOf("_NET_CLIENT_LIST_STACKING");
    if (activeWindow() == 0 && !windows.empty())
        ask(windows.back(), "_NET_ACTIVE_WINDOW", {2, CurrentTime, 0});
}

void Desktop::closeActiveWindow()
{
    if (const unsigned long window = activeWindow())
        ask(window, "_NET_CLOSE_WINDOW", {CurrentTime, 2});
}

void Desktop::resizeActiveWindow(long width, long height)
{
    constexpr long WidthAndHeight = (1 << 10) | (1 << 11);
    constexpr long FromAPerson = 2 << 12;
    if (const unsigned long window = activeWindow())
        ask(window, "_NET_MOVERESIZE_WINDOW", {WidthAndHeight | FromAPerson, 0, 0, width, height});
}

void Desktop::movePointerAway()
{
    const int screen = DefaultScreen(m_display);
    m_screen.move(DisplayWidth(m_display, screen) - 1, DisplayHeight(m_display, screen) - 1);
}

void Desktop::emptyClipboard()
{
    for (const char* const name : {"PRIMARY", "CLIPBOARD"})
        XSetSelectionOwner(m_display, XInternAtom(m_display, name, False), 0, CurrentTime);
    XSync(m_display, False);
}

void Desktop::stopKeyRepetition()
{
    XAutoRepeatOff(m_display);
    XSync(m_display, False);
}

Picture Desktop::picture() const
{
    const int screen = DefaultScreen(m_display);
    XImage* const image =
        XGetImage(m_display, DefaultRootWindow(m_display), 0, 0, static_cast<unsigned>(DisplayWidth(m_display, screen)),
                  static_cast<unsigned>(DisplayHeight(m_display, screen)), AllPlanes, ZPixmap);
    const auto* const first = reinterpret_cast<const unsigned char*>(image->data);
    const Picture pixels(first, first + image->bytes_per_line * image->height);
    XDestroyImage(image);
    return pixels;
}

void Desktop::savePicture(const Picture& picture, const std::string& fileName) const
{
    const int screen = DefaultScreen(m_display);
    std::ofstream file(fileName, std::ios::binary);
    file << "P6\n" << DisplayWidth(m_display, screen) << ' ' << DisplayHeight(m_display, screen) << "\n255\n";
    for (std::size_t i = 0; i + 3 < picture.size(); i += 4) // blue, green, red, unused
        file << picture[i + 2] << picture[i + 1] << picture[i];
}

std::string Desktop::whatIsGrabbed() const
{
    const Window root = DefaultRootWindow(m_display);
    std::string grabbed;
    if (XGrabPointer(m_display, root, False, 0, GrabModeAsync, GrabModeAsync, 0, 0, CurrentTime) != GrabSuccess)
        grabbed = "the pointer";
    XUngrabPointer(m_display, CurrentTime);
    if (XGrabKeyboard(m_display, root, False, GrabModeAsync, GrabModeAsync, CurrentTime) != GrabSuccess)
        grabbed += grabbed.empty() ? "the keyboard" : " and the keyboard";
    XUngrabKeyboard(m_display, CurrentTime);
    XSync(m_display, False);
    return grabbed;
}

} // namespace velmora::test
