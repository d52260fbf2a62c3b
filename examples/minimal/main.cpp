// The least that a host does: start the engine, give it a window to draw in, stop it.
//   minimal FILE      shows a delimited table or an ESRI ASCII grid

#include "engine/VelUtil.h"
#include "integration/Manager.h"
#include "integration/glarea/GLDrawArea.h"

#include <QApplication>
#include <QMainWindow>
#include <cstdio>

using namespace velmora::sdk::integration;

namespace {

int showWindow(Manager& manager, const char* file)
{
    QMainWindow window;
    GLDrawArea* area = new GLDrawArea(&window);
    area->setPageManager(manager.getPageManager()); // from now on the engine paints it
    window.setCentralWidget(area);
    window.resize(900, 700);
    window.show();
    if (!VelUtilDataLoad(file)) {
        std::fprintf(stderr, "minimal: %s\n", VelUtilLastErrorMessage());
        return 1;
    }
    // The application had its turns while the engine worked; the window may be closed already.
    return window.isVisible() ? QApplication::exec() : 0;
} // drawing areas go before the engine stops

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: minimal FILE\n");
        return 2;
    }
    Manager& manager = Manager::getInstance();
    ManagerStartReturnCode_e code = manager.init(argc, argv, "", "minimal");
    if (code == ManagerStartReturnCode_Ok)
        code = manager.start();
    if (code != ManagerStartReturnCode_Ok) {
        std::fprintf(stderr, "minimal: %s\n", manager.returnCodeString(code).c_str());
        return 1;
    }
    const int result = showWindow(manager, argv[1]);
    manager.stop();
    return result;
}
