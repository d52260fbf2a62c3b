#include "Display.h"
#include "EndSignals.h"
#include "EngineSession.h"
#include "FileOutput.h"
#include "MainWindow.h"
#include "Options.h"
#include "Snapshot.h"
#include "Toolkit.h"
#include "WindowPlace.h"
#include "exception/ExceptionBase.h"
#include "integration/HeldBackEvents.h"
#include "integration/glarea/GLDrawArea.h"

#include <QApplication>
#include <clocale>
#include <cstdio>

namespace {

enum ExitCode { AllWell = 0, Failed = 1, WrongUsage = 2, NoDisplay = 3 };

int tell(ExitCode code, const QString& problem)
{
    std::fprintf(stderr, "viewer: %s\n", problem.toUtf8().constData());
    return code;
}

int showWindow(const viewer::Options& options)
{
    viewer::MainWindow window;
    viewer::requireOpenGL(window.drawArea());
    new viewer::WindowPlace(window); // the window's
    if (options.size.isValid())
        window.resize(options.size.boundedTo(viewer::desktopSize()));
    window.show();
    window.openLater(options.files);
    return QApplication::exec();
}

int carryOut(const viewer::Options& options)
{
    if (!options.writes())
        return showWindow(options);
    const viewer::EndSignals endSignals;
    switch (options.task) {
    case viewer::Options::TakeSnapshot:
        return viewer::takeSnapshot(options);
    case viewer::Options::ExportImage:
        return viewer::exportFile(options);
    default:
        return viewer::printFile(options);
    }
}

// The toolkit and the engine have options of their own, by which they would take files that follow --;
// they get the program's name only.
int run(const viewer::Options& options, char** argv)
{
    int argc = 1;
    QApplication application(argc, argv);
    application.setOrganizationName(QLatin1String("Velmora"));
    application.setApplicationName(QLatin1String("Viewer"));
    application.setApplicationVersion(QLatin1String(VIEWER_VERSION));
    // Its own timers and paint handlers call the engine only through commands, which are off while it works;
    // so they may go on while the engine unwinds, and nothing in the window stops or stays blank.
    velmora::sdk::integration::setHeldBackEvents(velmora::sdk::integration::HeldBackEvents_Input);
    viewer::EngineSession session(argc, argv);
    if (!session.error().isEmpty())
        return tell(Failed, session.error());
    if (options.slow)
        session.makeDrawingSlow();
    // Before a file is loaded, which then fills the paper.
    session.setPaper(options.paper, options.landscape);
    const QString refusal = viewer::EngineSession::loadModules(options.modules);
    if (!refusal.isEmpty())
        return tell(Failed, refusal);
    const viewer::DisplayWatch watch(NoDisplay);
    try {
        return carryOut(options);
    } catch (const velmora::ExceptionBase& error) {
        return tell(NoDisplay, QString::fromUtf8(error.what()) + QLatin1Char(' ') + viewer::openGLRemedy());
    }
}

// In the letters of the environment's locale, which the toolkit may take up as late as with the application object.
QStringList words(int argc, char** argv)
{
    std::setlocale(LC_CTYPE, "");
    QStringList list;
    for (int i = 1; i < argc; ++i)
        list.append(QString::fromLocal8Bit(argv[i]));
    return list;
}

} // namespace

int main(int argc, char** argv)
{
    // Before the application object: help must not need a display.
    const viewer::Options options = viewer::parseOptions(words(argc, argv));
    if (!options.error.isEmpty()) {
        std::fprintf(stderr, "viewer: %s\nTry viewer --help.\n", options.error.toUtf8().constData());
        return WrongUsage;
    }
    if (options.task == viewer::Options::PrintHelp || options.task == viewer::Options::PrintVersion) {
        const bool help = options.task == viewer::Options::PrintHelp;
        std::printf("%s", help ? viewer::helpText().toUtf8().constData() : "");
        if (!help)
            std::printf("viewer %s\n", VIEWER_VERSION);
        return AllWell;
    }
    if (!options.showsWindow())
        viewer::doWithoutDisplay();
    const QString problem = viewer::displayProblem();
    if (!problem.isEmpty())
        return tell(NoDisplay, problem);
    const int code = run(options, argv);
    viewer::endAsAsked();
    return code;
}
