// What one event costs through the installed monitor, against an application filter that does
// nothing and against none, all in one run; and how many allocations lie on its way. Build it as
// Release and run it under scripts/with-display.

#include "benchmarks/events/PressLatency.h"
#include "benchmarks/support/Median.h"
#include "benchmarks/support/Report.h"
#include "integration/Manager.h"
#include "integration/glarea/GLDrawArea.h"
#include "integrationmanager/ApplicationEventMonitorAbstract.h"
#include "interfaces/MouseEventListenerInterface.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTimerEvent>
#include <cstdlib>
#include <functional>
#include <new>

// The name that the toolkit lets send an event as from the window system.
bool qt_sendSpontaneousEvent(QObject* receiver, QEvent* event)
{
    return QCoreApplication::sendSpontaneousEvent(receiver, event);
}

namespace {

long g_allocations = 0;

} // namespace

void* operator new(std::size_t size)
{
    ++g_allocations;
    if (void* const block = std::malloc(size ? size : 1))
        return block;
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept
{
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}

namespace velmora::benchmark {

namespace {

using namespace velmora::sdk::integration;
using intern::ApplicationEventMonitorAbstract;

class NoOpFilter : public QObject {
public:
    bool eventFilter(QObject*, QEvent*) override { return false; }
};

/// Takes every event at once, so that the way to it is what is measured.
template <typename Base>
class Sink : public Base {
public:
    bool event(QEvent*) override { return true; }
};

using Delivery = std::function<void()>;
constexpr int EventsARound = 20000;
constexpr int Rounds = 41;

double nanosecondsOfOne(const Delivery& deliver)
{
    return 1e6 * millisecondsOf([&] {
               for (int i = 0; i < EventsARound; ++i)
                   deliver();
           }) /
           EventsARound;
}

struct Costs {
    double none = 0;
    double noOp = 0;
    double monitor = 0;
    double allocations = 0;
};

/// The three in turn, round after round, so that whatever else the machine does hits all of them.
Costs measure(const Delivery& deliver, ApplicationEventMonitorAbstract& monitor)
{
    NoOpFilter noOp;
    std::vector<double> none, withNoOp, withMonitor;
    long allocations = 0;
    for (int round = 0; round < Rounds; ++round) {
        none.push_back(nanosecondsOfOne(deliver));
        qApp->installEventFilter(&noOp);
        const long toolkitsBefore = g_allocations;
        withNoOp.push_back(nanosecondsOfOne(deliver));
        // Some events cost the toolkit itself an allocation.
        allocations -= g_allocations - toolkitsBefore;
        qApp->removeEventFilter(&noOp);
        monitor.start();
        deliver(); // starts the idle timer, which allocates
        const long before = g_allocations;
        withMonitor.push_back(nanosecondsOfOne(deliver));
        allocations += g_allocations - before;
        monitor.stop();
    }
    return {median(none), median(withNoOp), median(withMonitor),
            static_cast<double>(allocations) / (double(Rounds) * EventsARound)};
}

void reportCosts(const std::string& what, const Costs& costs, double limit)
{
    report({what + ", monitor / no-op filter", costs.monitor / costs.noOp, "×", limit,
            rounded(costs.monitor, "ns") + " / " + rounded(costs.noOp, "ns") + "; without a filter " +
                rounded(costs.none, "ns")});
    report({what + ", allocations of the monitor", costs.allocations, "an event"});
}

class Hearing : public MouseEventListenerInterface {
public:
    void mouseMoved(MouseEventInterface& event, MouseEventObservableInterface&) override { sum += event.x(); }
    void buttonPressed(MouseEventInterface&, MouseEventObservableInterface&) override {}
    void buttonReleased(MouseEventInterface&, MouseEventObservableInterface&) override {}
    void buttonDoublePressed(MouseEventInterface&, MouseEventObservableInterface&) override {}
    long sum = 0;
};

void measureArea(QMouseEvent& move)
{
    Sink<QWidget> bare;
    bare.setMouseTracking(true);
    GLDrawArea area;
    Hearing listener;
    area.addMouseListener(&listener);
    long heard = 0;
    const boost::signals2::scoped_connection connection =
        area.connectMouseMoved([&](MouseEventInterface& event) { heard += event.y(); });
    std::vector<double> toBare, toArea;
    long allocations = 0;
    for (int round = 0; round < Rounds; ++round) {
        toBare.push_back(nanosecondsOfOne([&] { QCoreApplication::sendEvent(&bare, &move); }));
        const long before = g_allocations;
        toArea.push_back(nanosecondsOfOne([&] { QCoreApplication::sendEvent(&area, &move); }));
        allocations += g_allocations - before;
    }
    area.removeMouseListener(&listener);
    report({"mouse move through a GLDrawArea to one listener and one slot / bare widget",
            median(toArea) / median(toBare), "×", 5.0,
            rounded(median(toArea), "ns") + " / " + rounded(median(toBare), "ns")});
    report({"mouse move through a GLDrawArea, allocations",
            static_cast<double>(allocations) / (double(Rounds) * EventsARound), "an event"});
}

void measureEvents()
{
    auto& monitor = dynamic_cast<ApplicationEventMonitorAbstract&>(Manager::getInstance().getApplicationEventMonitor());
    Sink<QObject> object;
    Sink<QWidget> widget;
    widget.setMouseTracking(true);
    // As whatever gets mouse events; without it Qt 6 looks for the widget's screen at every one of them.
    widget.winId();
    QEvent user(QEvent::User);
    QTimerEvent timer(1 << 30);
    QMouseEvent move(QEvent::MouseMove, QPoint(1, 2), QPoint(3, 4), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    reportCosts("QEvent::User to a plain object",
                measure([&] { QCoreApplication::sendEvent(&object, &user); }, monitor), 1.3);
    reportCosts("timer to a plain object", measure([&] { QCoreApplication::sendEvent(&object, &timer); }, monitor),
                1.3);
    reportCosts("mouse move nobody listens to, sent",
                measure([&] { QCoreApplication::sendEvent(&widget, &move); }, monitor), 2.0);
    reportCosts("mouse move nobody listens to, spontaneous",
                measure([&] { qt_sendSpontaneousEvent(&widget, &move); }, monitor), 3.0);
    measureArea(move);
}

} // namespace
} // namespace velmora::benchmark

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    velmora::benchmark::measureEvents();
    velmora::benchmark::measurePressToUnwound();
    return 0;
}
