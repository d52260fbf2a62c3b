#include "benchmarks/events/PressLatency.h"

#include "benchmarks/support/Median.h"
#include "benchmarks/support/Report.h"
#include "integration/Manager.h"
#include "integrationmanager/ApplicationEventMonitorAbstract.h"
#include "testing/EngineProbe.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <QWidget>
#include <atomic>
#include <thread>

namespace velmora::benchmark {

namespace {

using sdk::integration::Manager;
using sdk::integration::intern::ApplicationEventMonitorAbstract;
using testing::EngineProbe;

constexpr unsigned long Escape = 0xff1b; // XK_Escape
constexpr std::chrono::milliseconds Slice{5};

/// One slice of engine work.
void workForASlice()
{
    const Clock::time_point end = Clock::now() + Slice;
    while (Clock::now() < end) {
    }
}

/// Works until it is interrupted; how long that took from the press, in milliseconds. The press
/// comes from another thread at another place of the slice each time.
double interruptOnce(ApplicationEventMonitorAbstract& monitor, int number)
{
    Clock::time_point pressed;
    std::atomic<bool> working{false};
    std::thread person([&] {
        while (!working)
            std::this_thread::yield();
        std::this_thread::sleep_for(std::chrono::microseconds(5000 + (number * 137) % 5000));
        pressed = Clock::now();
        test::pressKey(Escape);
    });
    EngineProbe::setBusy(true);
    working = true;
    do
        workForASlice();
    while (!monitor.processWhileBusy());
    EngineProbe::setBusy(false);
    const Clock::time_point unwound = Clock::now();
    person.join();
    test::releaseKey(Escape);
    test::processPending();
    return std::chrono::duration<double, std::milli>(unwound - pressed).count();
}

} // namespace

void measurePressToUnwound()
{
    auto& monitor = dynamic_cast<ApplicationEventMonitorAbstract&>(Manager::getInstance().getApplicationEventMonitor());
    monitor.start();
    QWidget window;
    window.setFocusPolicy(Qt::StrongFocus);
    test::showAndWait(window);
    test::focusWindow(window);
    test::waitUntil([&] { return QApplication::activeWindow() == &window; });
    std::vector<double> times;
    for (int number = 0; number < 500; ++number)
        times.push_back(interruptOnce(monitor, number));
    std::sort(times.begin(), times.end());
    const char* const what = "press of a real key to the busy engine unwound, 500 presses, slices of 5 ms: ";
    report({what + std::string("p50"), times[250], "ms"});
    report({what + std::string("p99"), times[495], "ms", 10.0});
    report({what + std::string("longest"), times.back(), "ms"});
    monitor.stop();
}

} // namespace velmora::benchmark
