// What a GLDrawArea costs against the bare widget that it is, in one run, as ratios: creating the
// first and a later one, and repainting one with an empty page.

#include "benchmarks/support/Median.h"
#include "benchmarks/support/Report.h"
#include "integration/Manager.h"
#include "integration/glarea/GLDrawArea.h"

#include <GL/gl.h>
#include <QApplication>
#include <QElapsedTimer>
#include <memory>

using namespace velmora::benchmark;
using namespace velmora::sdk::integration;

namespace {

constexpr int Creations = 30;
constexpr int Repaints = 200;
constexpr int Side = 400;

class PlainWidget : public toolkit::GLWidget {
protected:
    void paintEvent(QPaintEvent*) override
    {
        makeCurrent();
        glClearColor(1, 1, 1, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        swapBuffers();
    }
};

template <typename Widget>
double creation()
{
    std::unique_ptr<Widget> widget;
    return millisecondsOf([&] { widget = std::make_unique<Widget>(); });
}

template <typename Widget>
double medianCreation()
{
    std::vector<double> times;
    for (int i = 0; i < Creations; ++i)
        times.push_back(creation<Widget>());
    return median(times);
}

void showAndSettle(QWidget& widget)
{
    widget.resize(Side, Side);
    widget.show();
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 500)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
}

double repaint(toolkit::GLWidget& widget)
{
    return millisecondsOf([&] {
        widget.repaint();
        widget.makeCurrent();
        glFinish();
    });
}

void print(const char* what, double ours, double toolkits)
{
    report({what, ours / toolkits, "×", 0.0, rounded(ours, "ms") + " / " + rounded(toolkits, "ms")});
}

void measureCreation()
{
    // The very first context of a process pays for loading the driver.
    creation<PlainWidget>();
    const double first = creation<GLDrawArea>();
    const double second = creation<GLDrawArea>();
    const double later = medianCreation<GLDrawArea>();
    const double plain = medianCreation<PlainWidget>();
    print("first GLDrawArea (ranks the visuals) / plain widget", first, plain);
    print("second GLDrawArea (takes the chosen visual) / plain widget", second, plain);
    print("later GLDrawArea (median) / plain widget", later, plain);
}

void measureRepaint()
{
    PlainWidget plain;
    GLDrawArea area;
    area.setPageManager(Manager::getInstance().getPageManager());
    showAndSettle(plain);
    showAndSettle(area);
    area.move(Side + 50, 0);
    std::vector<double> areaTimes;
    std::vector<double> plainTimes;
    for (int i = 0; i < Repaints; ++i) {
        areaTimes.push_back(repaint(area));
        plainTimes.push_back(repaint(plain));
    }
    print("repaint of an area with an empty page / plain widget", median(areaTimes), median(plainTimes));
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    Manager& manager = Manager::getInstance();
    manager.init(argc, argv, std::string(), "benchmark");
    manager.start();
    measureCreation();
    measureRepaint();
    manager.stop();
}
