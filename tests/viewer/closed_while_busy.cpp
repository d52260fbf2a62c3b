// The viewer whose window is closed by the window manager while it reads a file slowly. The reading
// must be interrupted, the window closed once, after the reading has unwound, and the event
// loop must end by itself with exit code 0. Any other end is an error and tells why.

#include "EngineSession.h"
#include "MainWindow.h"
#include "engine/VelUtil.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "tests/viewer/Onlooker.h"
#include "tests/viewer/TempFolder.h"

#include <QApplication>
#include <QProgressBar>
#include <QSettings>
#include <cstdio>

using namespace velmora::test;

namespace {

constexpr int PatienceMilliseconds = 30000;
enum { TooLate = 4, NeverShown = 3, WrongClosing = 1 };

/// Counts how often the window closes, and how often in the middle of work.
class CloseCounter : public QObject {
public:
    int closings = 0;
    int whileBusy = 0;

    int tell() const
    {
        std::fprintf(stderr, "The window was closed %d times, of these %d in the middle of the reading.\n", closings,
                     whileBusy);
        return WrongClosing;
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Close) {
            ++closings;
            whileBusy += VelUtilIsBusy();
        }
        return false;
    }
};

int fail(int code, const char* why)
{
    std::fprintf(stderr, "%s\n", why);
    return code;
}

int closeWhileBusy(viewer::EngineSession& session, const TempFolder& folder)
{
    viewer::MainWindow window;
    if (!showAndWait(window))
        return fail(NeverShown, "The window did not appear.");
    session.makeDrawingSlow();
    CloseCounter counter;
    window.installEventFilter(&counter);
    const QProgressBar& bar = *window.findChild<QProgressBar*>();
    Onlooker onlooker([&] { return VelUtilIsBusy() && bar.isVisible(); }, [&] { closeByWindowManager(window); });
    window.openLater(QStringList() << folder.writeGrid(1000));
    const int result = QApplication::exec();
    if (result != 0)
        return fail(result, "Nothing ended the event loop.");
    if (!onlooker.hasActed() || !VelUtilWasInterrupted())
        return fail(WrongClosing, "The reading was not interrupted.");
    if (counter.closings != 1 || counter.whileBusy != 0)
        return counter.tell();
    return 0;
}

/// Ends the event loop when nothing else does.
class Patience : public QObject {
public:
    Patience() { startTimer(PatienceMilliseconds); }

protected:
    void timerEvent(QTimerEvent*) override { QApplication::exit(TooLate); }
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const TempFolder folder;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    viewer::EngineSession session(argc, argv);
    const Patience patience;
    return closeWhileBusy(session, folder);
}
