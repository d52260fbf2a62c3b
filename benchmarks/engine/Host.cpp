#include "benchmarks/engine/Host.h"

#include "engine/VelUtil.h"
#include "integration/Manager.h"
#include "tests/support/Wait.h"

namespace velmora::benchmark {

using namespace sdk::integration;

namespace {

GLDrawArea& newArea(QMainWindow& window, int argc, char** argv)
{
    Manager& manager = Manager::getInstance();
    manager.init(argc, argv, std::string(), "benchmark");
    manager.start();
    auto* const area = new GLDrawArea(&window); // the window's
    area->setPageManager(manager.getPageManager());
    window.setCentralWidget(area);
    return *area;
}

} // namespace

Host::Host(int argc, char** argv) : m_area(newArea(m_window, argc, argv))
{
    m_window.resize(1000, 700);
    test::showAndWait(m_window);
}

Host::~Host()
{
    delete m_window.takeCentralWidget();
    Manager::getInstance().stop();
}

void Host::open(const QString& fileName)
{
    if (!VelUtilDataLoad(fileName.toUtf8().constData()))
        qFatal("%s", VelUtilLastErrorMessage());
    VelUtilWorkFinish();
    test::processPending();
}

} // namespace velmora::benchmark
