// Watches a host from outside, as a person in front of the screen: starts it, waits until its window
// shows a plot, closes the window as a window manager does, and waits until the program has ended.
//   watch_host PROGRAM [ARGUMENT …]
// Exit code: the program's own; 3 when it ended before it showed a plot, 4 when no plot was to be seen in
// time, 5 when it did not end after its window was closed. Needs nothing but Xlib.

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <optional>
#include <set>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

enum ExitCode { WrongUsage = 2, EndedTooEarly = 3, NoPlot = 4, DidNotEnd = 5 };

constexpr auto Patience = std::chrono::seconds(60);
// A lit surface has hundreds of colours, an empty window and a window's decoration a handful.
constexpr std::size_t ColoursOfAPlot = 64;

template <typename Condition>
bool waitUntil(Condition condition)
{
    const Clock::time_point end = Clock::now() + Patience;
    while (!condition()) {
        if (Clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return true;
}

class Child {
public:
    explicit Child(char** command) : m_process(fork())
    {
        if (m_process != 0)
            return;
        execvp(command[0], command);
        std::fprintf(stderr, "watch_host: %s cannot be started: %s\n", command[0], std::strerror(errno));
        _exit(WrongUsage);
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child()
    {
        if (!hasEnded()) {
            kill(m_process, SIGKILL);
            waitpid(m_process, nullptr, 0);
        }
    }

    bool hasEnded()
    {
        int status = 0;
        if (!m_exitCode && waitpid(m_process, &status, WNOHANG) == m_process)
            m_exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        return m_exitCode.has_value();
    }
    int exitCode() const { return *m_exitCode; }

private:
    const pid_t m_process;
    std::optional<int> m_exitCode;
};

bool wantsToBeAskedToClose(Display& display, Window window)
{
    Atom* protocols = nullptr;
    int count = 0;
    if (!XGetWMProtocols(&display, window, &protocols, &count))
        return false;
    const std::set<Atom> known(protocols, protocols + count);
    XFree(protocols);
    return known.count(XInternAtom(&display, "WM_DELETE_WINDOW", False)) > 0;
}

/// The window that a person sees: mapped, and one that a window manager may close.
Window findMainWindow(Display& display)
{
    Window root = 0, parent = 0, found = 0;
    Window* children = nullptr;
    unsigned count = 0;
    if (!XQueryTree(&display, DefaultRootWindow(&display), &root, &parent, &children, &count))
        return 0;
    for (unsigned i = 0; i < count; ++i) {
        XWindowAttributes attributes;
        if (XGetWindowAttributes(&display, children[i], &attributes) && attributes.map_state == IsViewable &&
            wantsToBeAskedToClose(display, children[i]))
            found = children[i];
    }
    XFree(children);
    return found;
}

std::size_t countColours(Display& display, Window window)
{
    XWindowAttributes attributes;
    if (!window || !XGetWindowAttributes(&display, window, &attributes))
        return 0;
    // From the screen, where everything is that was drawn into windows inside the window.
    XImage* const shot = XGetImage(&display, DefaultRootWindow(&display), attributes.x, attributes.y,
                                   static_cast<unsigned>(attributes.width), static_cast<unsigned>(attributes.height),
                                   AllPlanes, ZPixmap);
    if (!shot)
        return 0;
    std::set<unsigned long> colours;
    for (int y = 0; y < shot->height; y += 2)
        for (int x = 0; x < shot->width; x += 2)
            colours.insert(XGetPixel(shot, x, y));
    XDestroyImage(shot);
    return colours.size();
}

void askToClose(Display& display, Window window)
{
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(&display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(&display, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(&display, window, False, NoEventMask, &event);
    XSync(&display, False);
}

int watch(Display& display, Child& host)
{
    std::size_t colours = 0;
    const bool plotted = waitUntil([&] {
        colours = countColours(display, findMainWindow(display));
        return colours >= ColoursOfAPlot || host.hasEnded();
    });
    if (host.hasEnded()) {
        std::fprintf(stderr, "watch_host: the program ended with %d before it showed a plot\n", host.exitCode());
        return host.exitCode() != 0 ? host.exitCode() : EndedTooEarly;
    }
    if (!plotted) {
        std::fprintf(stderr, "watch_host: no plot to be seen, only %zu colours\n", colours);
        return NoPlot;
    }
    askToClose(display, findMainWindow(display));
    if (!waitUntil([&] { return host.hasEnded(); })) {
        std::fprintf(stderr, "watch_host: the program did not end after its window was closed\n");
        return DidNotEnd;
    }
    std::printf("watch_host: a plot of %zu colours; closed; ended with %d\n", colours, host.exitCode());
    return host.exitCode();
}

} // namespace

int main(int argc, char** argv)
{
    Display* const display = argc > 1 ? XOpenDisplay(nullptr) : nullptr;
    if (!display) {
        std::fprintf(stderr,
                     argc > 1 ? "watch_host: there is no display\n" : "usage: watch_host PROGRAM [ARGUMENT …]\n");
        return WrongUsage;
    }
    // A window may go between two questions about it; the questions then fail, and that is an answer.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    Child host(argv + 1);
    const int result = watch(*display, host);
    XCloseDisplay(display);
    return result;
}
