#include "EngineSession.h"
#include "FileOutput.h"
#include "MainWindow.h"
#include "Options.h"
#include "Snapshot.h"

#include <QApplication>
#include <cstdio>

namespace {

enum ExitCode { AllWell = 0, Failed = 1, WrongUsage = 2 };

const char* const Version = "1.0.0";

int showWindow(const viewer::Options& options)
{
    viewer::MainWindow window;
    if (options.size.isValid())
        window.resize(options.size);
    window.show();
    window.openLater(options.files);
    return QApplication::exec();
}

int run(const viewer::Options& options, int argc, char** argv)
{
    viewer::EngineSession session(argc, argv);
    if (!session.error().isEmpty()) {
        std::fprintf(stderr, "viewer: %s\n", session.error().toUtf8().constData());
        return Failed;
    }
    if (options.slow)
        session.makeDrawingSlow();
    switch (options.task) {
    case viewer::Options::TakeSnapshot:
        return viewer::takeSnapshot(options);
    case viewer::Options::ExportImage:
        return viewer::exportFile(options);
    case viewer::Options::PrintPage:
        return viewer::printFile(session, options);
    default:
        return showWindow(options);
    }
}

QStringList words(int argc, char** argv)
{
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
            std::printf("viewer %s\n", Version);
        return AllWell;
    }
    QApplication application(argc, argv);
    application.setOrganizationName(QLatin1String("Velmora"));
    application.setApplicationName(QLatin1String("Viewer"));
    return run(options, argc, argv);
}
