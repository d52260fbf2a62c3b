// The same work by one contender: forwarding a mouse move, standing still, writing pictures, and
// letting go when a person presses Escape. Each contender is a program of its own; benchmarks/run
// runs those that were built, one after the other. Build as Release and run under scripts/with-display.

#include "benchmarks/peers/Contender.h"
#include "benchmarks/support/Median.h"
#include "benchmarks/support/Report.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <cstdio>
#include <sys/resource.h>
#include <thread>

namespace velmora::benchmark {

namespace {

constexpr int PictureSurface = 200;      // points a side: what pictures are written of
constexpr int DenseSurface = 800;        // what is drawn when Escape comes
constexpr unsigned long Escape = 0xff1b; // XK_Escape
constexpr int Presses = 50;
constexpr int Drawings = 7;

void reportOf(const Contender& contender, const std::string& what, double value, const char* unit)
{
    report({contender.name() + (": " + what), value, unit});
}

/// Takes every event at once: what the toolkit alone needs to deliver one.
class Sink : public QWidget {
    bool event(QEvent*) override { return true; }
};

double nanosecondsOfAMove(QWidget& receiver)
{
    constexpr int Moves = 20000;
    QMouseEvent here(QEvent::MouseMove, QPoint(100, 100), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QMouseEvent there(QEvent::MouseMove, QPoint(101, 100), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    return 1e6 / Moves * millisecondsOf([&] {
               for (int i = 0; i < Moves; ++i)
                   QCoreApplication::sendEvent(&receiver, i % 2 == 0 ? &here : &there);
           });
}

void measureMoves(Contender& contender)
{
    constexpr int Rounds = 15;
    Sink bare;
    bare.setMouseTracking(true);
    contender.inputWidget().setMouseTracking(true);
    const long before = contender.movesHeard();
    std::vector<double> times, bareTimes;
    for (int round = 0; round < Rounds; ++round) {
        bareTimes.push_back(nanosecondsOfAMove(bare));
        times.push_back(nanosecondsOfAMove(contender.inputWidget()));
    }
    if (contender.movesHeard() == before)
        qFatal("%s: the listener heard nothing", contender.name());
    reportOf(contender, "mouse move to one listener", median(times), "ns");
    reportOf(contender, "mouse move to one listener / bare widget", median(times) / median(bareTimes), "×");
}

double processMilliseconds()
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return 1e3 * static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           1e-3 * static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec);
}

void waitFor(int milliseconds)
{
    test::waitUntil([] { return false; }, milliseconds);
}

void measureStandingStill(Contender& contender)
{
    constexpr int Milliseconds = 10000;
    waitFor(1000);
    QEventLoop loop;
    QTimer::singleShot(Milliseconds, &loop, SLOT(quit()));
    const double before = processMilliseconds();
    loop.exec();
    reportOf(contender, "processor time of a quiet window, of 10 s",
             100.0 * (processMilliseconds() - before) / Milliseconds, "%");
}

void measurePictures(Contender& contender, const QString& folder)
{
    const std::vector<std::string> kinds = contender.imageKinds();
    for (const int side : {1024, 4096, 8192})
        for (std::size_t kind = 0; kind < kinds.size(); ++kind) {
            const QString file = folder + QString::fromLatin1("/%1.png").arg(side);
            bool written = false;
            const double time = millisecondsOf([&] { written = contender.exportPng(side, file, kind); });
            const std::string size = std::to_string(side);
            reportOf(contender,
                     "PNG of " + size + " × " + size + " pixels through " + kinds[kind] +
                         (written ? "" : " (could not write it)"),
                     time, "ms");
        }
}

struct Press {
    bool inTime = false;     ///< it came while the contender drew
    bool ended = false;      ///< the drawing ended early
    double milliseconds = 0; ///< from the press to the return of the drawing
};

/// A real press of Escape, `delay` milliseconds after the drawing began.
Press pressWhileDrawing(Contender& contender, double delay)
{
    Clock::time_point pressed;
    std::thread person([&] {
        std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(delay));
        pressed = Clock::now();
        test::pressKey(Escape);
    });
    const bool whole = contender.draw();
    const Clock::time_point returned = Clock::now();
    person.join();
    test::releaseKey(Escape);
    test::processPending();
    return {pressed < returned, !whole, std::chrono::duration<double, std::milli>(returned - pressed).count()};
}

void measureInterruption(Contender& contender)
{
    std::vector<double> whole;
    for (int drawing = 0; drawing < Drawings; ++drawing)
        whole.push_back(millisecondsOf([&] { contender.draw(); }));
    std::sort(whole.begin(), whole.end());
    reportOf(contender, "drawing the dense surface, undisturbed (median)", whole[Drawings / 2], "ms");
    std::vector<double> times;
    int inTime = 0;
    for (int number = 0; number < Presses; ++number) {
        const Press press = pressWhileDrawing(contender, whole.front() * (0.1 + 0.5 * number / Presses));
        inTime += press.inTime ? 1 : 0;
        if (press.inTime && press.ended)
            times.push_back(press.milliseconds);
    }
    reportOf(contender, "presses of Escape while it drew that ended the drawing early", double(times.size()),
             ("of " + std::to_string(inTime)).c_str());
    if (times.empty())
        return;
    std::sort(times.begin(), times.end());
    reportOf(contender, "press to return, p50", times[times.size() / 2], "ms");
    reportOf(contender, "press to return, p99", times[times.size() * 99 / 100], "ms");
}

void measure(Contender& contender)
{
    const QTemporaryDir folder;
    contender.setSurface(islandOf(PictureSurface));
    contender.window().resize(900, 700);
    test::showAndWait(contender.window());
    contender.draw();
    measureMoves(contender);
    measureStandingStill(contender);
    measurePictures(contender, folder.path());
    contender.setSurface(islandOf(DenseSurface));
    test::focusWindow(contender.window());
    test::waitUntil([&] { return QApplication::activeWindow() == &contender.window(); });
    contender.inputWidget().setFocus();
    measureInterruption(contender);
}

} // namespace
} // namespace velmora::benchmark

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const auto contender = velmora::benchmark::makeContender(argc, argv);
    velmora::benchmark::measure(*contender);
    return 0;
}
