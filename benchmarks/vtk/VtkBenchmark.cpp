// A model of two million triangles: how long VTK's contents take to draw it in a drawing area, against VTK's own Qt
// widget in the same process, and how soon the application hears of a press meanwhile. Build as Release and run
// under scripts/with-display.

#include "benchmarks/engine/Host.h"
#include "benchmarks/engine/Swaps.h"
#include "benchmarks/support/Median.h"
#include "benchmarks/support/Report.h"
#include "benchmarks/vtk/VtkWidget.h"
#include "engine/VelContent.h"
#include "engine/VelUtil.h"
#include "interfaces/MouseEventListenerInterface.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <QTemporaryDir>
#include <algorithm>
#include <sys/resource.h>
#include <thread>

namespace velmora::benchmark {
namespace {

using namespace sdk::integration;

constexpr int Side = 1001; // points; two million triangles
constexpr int Drawings = 9;
constexpr int Presses = 50;

/// When the last press was heard of, and whether the picture was being drawn then.
class PressWatch : public MouseEventListenerInterface {
public:
    explicit PressWatch(GLDrawArea& area) : m_area(area) { m_area.addMouseListener(this); }
    ~PressWatch() override { m_area.removeMouseListener(this); }
    void buttonPressed(MouseEventInterface&, MouseEventObservableInterface&) override
    {
        heardAt = Clock::now();
        ++heard;
        whileDrawing += VelUtilPageIsComplete() ? 0 : 1;
    }
    void mouseMoved(MouseEventInterface&, MouseEventObservableInterface&) override {}
    void buttonReleased(MouseEventInterface&, MouseEventObservableInterface&) override {}
    void buttonDoublePressed(MouseEventInterface& event, MouseEventObservableInterface& subject) override
    {
        buttonPressed(event, subject);
    }

    int heard = 0;
    int whileDrawing = 0;
    Clock::time_point heardAt;

private:
    GLDrawArea& m_area;
};

/// Of all threads of the process.
double processMilliseconds()
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return 1e3 * static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           1e-3 * static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec);
}

/// How long drawings last, and what they take of all processors.
struct Times {
    std::vector<double> lasting;
    std::vector<double> processors;

    template <typename Draw>
    void add(Draw&& draw)
    {
        const double before = processMilliseconds();
        lasting.push_back(millisecondsOf(draw));
        processors.push_back(processMilliseconds() - before);
    }
};

bool reportRatio(const std::string& what, double ours, double theirs, double limit)
{
    return report({"two million triangles in a drawing area / in VTK's own Qt widget, " + what, ours / theirs, "×",
                   limit, rounded(ours, "ms") + " / " + rounded(theirs, "ms")});
}

void drawOurs()
{
    VelUtilPageRedraw();
    VelUtilWorkFinish();
}

/// From a real press, `delay` milliseconds after the drawing began, to the host's handler.
double millisecondsToHandler(PressWatch& watch, double delay)
{
    Clock::time_point pressed;
    const int before = watch.heard;
    VelUtilPageRedraw();
    std::thread person([&] {
        std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(delay));
        pressed = Clock::now();
        test::pressButton(1);
    });
    test::waitUntil([&] { return watch.heard > before && VelUtilPageIsComplete(); });
    person.join();
    test::releaseButton(1);
    test::processPending();
    return std::chrono::duration<double, std::milli>(watch.heardAt - pressed).count();
}

/// From a turn of the view to the coarse picture of it, which comes before the full one.
double millisecondsToCoarse()
{
    const std::size_t before = swaps().size();
    const Clock::time_point start = Clock::now();
    VelUtilViewRotate(5, 0);
    VelUtilWorkFinish();
    return std::chrono::duration<double, std::milli>(swaps().at(before) - start).count();
}

bool measurePresses(Host& host, double drawing)
{
    PressWatch watch(host.area());
    test::movePointer(host.area(), QPoint(400, 300));
    test::processPending();
    std::vector<double> times;
    for (int number = 0; number < Presses; ++number)
        times.push_back(millisecondsToHandler(watch, drawing * (0.1 + 0.6 * number / Presses)));
    std::sort(times.begin(), times.end());
    const std::string what = "VTK's contents, presses while two million triangles are drawn: ";
    report({what + "taken meanwhile", double(watch.whileDrawing), ("of " + std::to_string(Presses)).c_str()});
    report({what + "press to handler, p50", times[Presses / 2], "ms"});
    const bool kept = report({what + "press to handler, p99", times[Presses * 99 / 100], "ms", 20.0});
    return kept && watch.whileDrawing == Presses;
}

bool measure(int argc, char** argv)
{
    const QTemporaryDir folder;
    const QString file = folder.path() + QLatin1String("/model.vtp");
    writeModel(file, Side);
    content::loadModule(VELMORA_VTK_MODULE);
    Host host(argc, argv);
    report({"VTK's contents, two million triangles: reading", millisecondsOf([&] { host.open(file); }), "ms"});
    VtkWidget theirs(file);
    test::showAndWait(theirs.window());
    theirs.draw();
    drawOurs();
    Times ours, others;
    for (int drawing = 0; drawing < Drawings; ++drawing) {
        others.add([&] { theirs.draw(); });
        ours.add(drawOurs);
    }
    theirs.window().hide();
    test::processPending();
    // The least: the other processes of a machine only add to it.
    const double drawing = *std::min_element(ours.lasting.begin(), ours.lasting.end());
    bool kept =
        reportRatio("shortest time", drawing, *std::min_element(others.lasting.begin(), others.lasting.end()), 1.1);
    kept = reportRatio("processor time", median(ours.processors), median(others.processors), 1.1) && kept;
    std::vector<double> coarseTimes;
    for (int turn = 0; turn < Drawings; ++turn)
        coarseTimes.push_back(millisecondsToCoarse());
    kept = report({"VTK's contents, two million triangles: turned to shown coarsely (median)", median(coarseTimes),
                   "ms", 33.3}) &&
           kept;
    return measurePresses(host, drawing) && kept;
}

} // namespace
} // namespace velmora::benchmark

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    return velmora::benchmark::measure(argc, argv) ? 0 : 1;
}
