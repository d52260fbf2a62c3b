#include "Display.h"

#include "Toolkit.h"
#include "engine/VelEng.h"
#include "exception/ExceptionBase.h"
#include "integration/glarea/GLDrawArea.h"

#include <QByteArray>
#include <QString>
#include <cstdio>
#include <cstdlib>

#include <unistd.h>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <X11/Xlib.h>

namespace viewer {

namespace {

constexpr int NotWatching = -1;
int exitCodeWhenLost = NotWatching;

bool isOnX11()
{
    if (!hasPlatforms())
        return true;
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    return platform.isEmpty() ? qgetenv("WAYLAND_DISPLAY").isEmpty() : platform.startsWith("xcb");
}

bool isDisplayNamed()
{
    return !qgetenv("DISPLAY").isEmpty();
}

bool canConnect()
{
    Display* const display = XOpenDisplay(nullptr);
    if (display)
        XCloseDisplay(display);
    return display != nullptr;
}

void tellDisplayLost()
{
    if (exitCodeWhenLost == NotWatching)
        return;
    std::fputs("viewer: The connection to the display was lost. Files that were being written were left as they "
               "were; start the viewer again once the display is back.\n",
               stderr);
    std::fflush(nullptr);
    ::_exit(exitCodeWhenLost);
}

} // namespace

void doWithoutDisplay()
{
    if (isOnX11() && !isDisplayNamed() && qgetenv("QT_QPA_PLATFORM").isEmpty())
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

QString displayProblem()
{
    if (!isOnX11() || canConnect())
        return QString();
    const QString problem =
        isDisplayNamed()
            ? QString::fromLatin1("The display \"%1\" cannot be opened.").arg(qgetenv("DISPLAY").constData())
            : QString::fromLatin1("There is no display: DISPLAY is not set.");
    const QLatin1String without(
        hasPlatforms() ? " To --print and to --export none is needed: unset DISPLAY and QT_QPA_PLATFORM." : "");
    return problem + QLatin1String(" Set DISPLAY to an X server that lets you in, or run the viewer under xvfb-run.") +
           without;
}

// An X server that does the drawing itself may offer contexts that do not work.
void requireOpenGL(velmora::sdk::integration::GLDrawArea& area)
{
    area.makeCurrent();
    if (!*VelEngOpenGLVersion())
        throw velmora::ExceptionBase("The display's OpenGL does not work: it tells no version.", false);
}

QString openGLRemedy()
{
    return QString::fromLatin1("See with glxinfo which OpenGL the display offers; on a remote display, unset "
                               "LIBGL_ALWAYS_INDIRECT or use a server that draws itself. --print and --export with "
                               "--strategy software need none.");
}

DisplayWatch::DisplayWatch(int exitCode)
{
    static const bool registered = std::atexit(&tellDisplayLost) == 0;
    static_cast<void>(registered);
    exitCodeWhenLost = exitCode;
}

DisplayWatch::~DisplayWatch()
{
    exitCodeWhenLost = NotWatching;
}

} // namespace viewer
