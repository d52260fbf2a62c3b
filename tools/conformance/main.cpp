// Tells which promises a content, or an engine, keeps.

#include "Checks.h"
#include "EngineChecks.h"

#include "exception/ExceptionBase.h"
#include "integration/Manager.h"
#include "integration/glarea/GLDrawArea.h"

#include <QApplication>
#include <QMainWindow>
#include <dlfcn.h>

#include <cstdio>

using namespace velmora::sdk::integration;

namespace {

enum ExitCode { Kept, Broken, WrongUsage, NotStarted };

int fail(ExitCode code, const std::string& message)
{
    std::fprintf(stderr, "velmora-conformance: %s\n", message.c_str());
    return code;
}

using LoadFunction = int (*)(const char* fileName);

int checkFiles(GLDrawArea& area, const conformance::Options& options)
{
    const auto load = reinterpret_cast<LoadFunction>(dlsym(RTLD_DEFAULT, options.load.c_str()));
    if (!load)
        return fail(WrongUsage, "There is no function " + options.load + ". Name one of the engine with --load.");
    conformance::Report report;
    for (const std::string& file : options.files) {
        if (load(file.c_str()) == 0)
            return fail(Broken, file + " could not be shown by " + options.load + ".");
        std::printf("%s\n", file.c_str());
        if (!options.engineOnly)
            conformance::checkShownContent(area, options, report);
        conformance::checkEngine(ImageRenderingStrategy_Hardware, "engine", options.longest, report);
        conformance::checkEngine(ImageRenderingStrategy_Software, "engine, software", options.longest, report);
    }
    report.printSum();
    return report.isKept() && report.hasAny() ? Kept : Broken;
}

int check(Manager& manager, const conformance::Options& options)
{
    try {
        conformance::loadModules(options);
        QMainWindow window;
        GLDrawArea* const area = new GLDrawArea(&window);
        area->setPageManager(manager.getPageManager());
        window.setCentralWidget(area);
        window.resize(640, 480);
        window.show();
        QApplication::processEvents();
        return checkFiles(*area, options);
    } catch (const velmora::ExceptionBase& error) {
        return fail(Broken, error.what());
    }
}

} // namespace

int main(int argc, char** argv)
{
    const conformance::Options options = conformance::parseOptions(argc, argv);
    if (!options.error.empty())
        return fail(WrongUsage, options.error + "\nTry velmora-conformance --help.");
    if (options.isHelp) {
        std::printf("%s", conformance::helpText());
        return Kept;
    }
    QApplication application(argc, argv);
    Manager& manager = Manager::getInstance();
    ManagerStartReturnCode_e code = manager.init(argc, argv, "", "conformance");
    if (code == ManagerStartReturnCode_Ok)
        code = manager.start();
    if (code != ManagerStartReturnCode_Ok)
        return fail(NotStarted, manager.returnCodeString(code));
    const int result = check(manager, options);
    manager.stop();
    return result;
}
