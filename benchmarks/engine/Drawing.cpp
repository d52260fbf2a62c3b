#include "benchmarks/engine/Files.h"
#include "benchmarks/engine/Host.h"
#include "benchmarks/engine/Measures.h"
#include "benchmarks/engine/Swaps.h"
#include "benchmarks/support/Report.h"
#include "engine/VelUtil.h"
#include "interfaces/EngineEnumerations.h"
#include "interfaces/MouseEventListenerInterface.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"

#include <QElapsedTimer>
#include <QFile>
#include <atomic>
#include <fstream>
#include <thread>
#include <unistd.h>

namespace velmora::benchmark {

namespace {

using namespace sdk::integration;

constexpr double Megabyte = 1024.0 * 1024.0;
constexpr int Pictures = 5;
constexpr int Moves = 100;

double residentMegabytes()
{
    long pages = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return static_cast<double>(resident * sysconf(_SC_PAGESIZE)) / Megabyte;
}

/// Turns the surface with each move of the mouse, as a host's tool does.
class Turner : public MouseEventListenerInterface {
public:
    explicit Turner(GLDrawArea& area) : m_area(area) { m_area.addMouseListener(this); }
    ~Turner() override { m_area.removeMouseListener(this); }
    void mouseMoved(MouseEventInterface&, MouseEventObservableInterface&) override
    {
        ++moves;
        shownBefore = swaps().size();
        VelUtilViewRotate(0.5, 0);
    }
    void buttonPressed(MouseEventInterface&, MouseEventObservableInterface&) override {}
    void buttonReleased(MouseEventInterface&, MouseEventObservableInterface&) override {}
    void buttonDoublePressed(MouseEventInterface&, MouseEventObservableInterface&) override {}
    long moves = 0;
    std::size_t shownBefore = 0; ///< pictures before the last move

private:
    GLDrawArea& m_area;
};

/// From a real move of the mouse to the first picture that was made after the host has heard of it. The
/// full picture that follows may be shown before this loop has its turn again.
double millisecondsToShow(Host& host, const Turner& turner, int step)
{
    const long moves = turner.moves;
    const Clock::time_point start = Clock::now();
    test::movePointer(host.area(), QPoint(400 + step % 2, 300));
    test::waitUntil([&] { return turner.moves > moves && swaps().size() > turner.shownBefore; });
    return std::chrono::duration<double, std::milli>(swaps().at(turner.shownBefore) - start).count();
}

double p95(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() * 95 / 100];
}

/// While somebody moves the mouse 200 times a second.
double picturesPerSecond(Host& host)
{
    constexpr int Milliseconds = 3000;
    std::atomic<bool> over{false};
    std::thread person([&] {
        for (int step = 0; !over; ++step) {
            test::movePointer(host.area(), QPoint(400 + step % 50, 300));
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    });
    const std::size_t before = swaps().size();
    test::waitUntil([] { return false; }, Milliseconds);
    const std::size_t shown = swaps().size() - before;
    over = true;
    person.join();
    return 1e3 * static_cast<double>(shown) / Milliseconds;
}

bool measureDrag(Host& host, const std::string& of)
{
    const Turner turner(host.area());
    std::vector<double> times;
    for (int step = 0; step < Moves; ++step)
        times.push_back(millisecondsToShow(host, turner, step));
    bool kept = report({of + ", dragged: move to shown, p95", p95(times), "ms", 40.0});
    // The longest time a picture may take, so that a smaller figure is the better one here too.
    kept = report({of + ", dragged: milliseconds for each whole picture", 1e3 / picturesPerSecond(host), "ms",
                   1e3 / 30.0}) &&
           kept;
    return kept;
}

double millisecondsOfAPicture()
{
    std::vector<double> times;
    for (int picture = 0; picture < Pictures; ++picture)
        times.push_back(millisecondsOf([] {
            VelUtilPageRedraw();
            VelUtilWorkFinish();
        }));
    return median(times);
}

bool measureZooms(const std::string& of)
{
    bool kept = true;
    double zoom = 1;
    for (const double wanted : {1.0, 3.0, 10.0}) {
        VelUtilViewZoom(wanted / zoom, 500, 350);
        zoom = wanted;
        const std::string at = zoom == 1 ? "all of it" : "zoomed " + std::to_string(static_cast<int>(zoom)) + " times";
        kept = report({of + ", full picture, " + at, millisecondsOfAPicture(), "ms", 1000.0}) && kept;
    }
    VelUtilViewFit();
    VelUtilWorkFinish();
    return kept;
}

bool measureExport(const std::string& of, const QString& folder)
{
    const QString file = folder + QLatin1String("/picture.png");
    const VelExportImageOptions options = {8000, 6000, 1, ExportRegion_Page, ImageRenderingStrategy_Hardware, 0.0};
    const double time = millisecondsOf([&] {
        if (!VelUtilExportImage(file.toUtf8().constData(), &options))
            qFatal("%s", VelUtilLastErrorMessage());
    });
    QFile::remove(file);
    return report({of + ", PNG of 8000 × 6000 pixels", time, "ms", 3000.0});
}

} // namespace

bool measureGrid(Host& host, const QString& folder, int side)
{
    const std::string of = "grid of " + std::to_string(side) + " × " + std::to_string(side);
    const QString file = folder + QLatin1String("/grid.asc");
    writeGrid(file, side);
    const double before = residentMegabytes();
    host.open(file);
    bool kept = measureZooms(of);
    kept = measureDrag(host, of) && kept;
    const double gridMegabytes = static_cast<double>(side) * side * sizeof(float) / Megabyte;
    const double more = residentMegabytes() - before - gridMegabytes;
    kept = report({of + ", memory beyond the heights / (2 × their bytes + 64 MB)", more / (2 * gridMegabytes + 64), "×",
                   1.0, rounded(more, "MB") + " / " + rounded(2 * gridMegabytes + 64, "MB")}) &&
           kept;
    const QString nothing = folder + QLatin1String("/nothing.asc");
    writeGrid(nothing, 2);
    host.open(nothing);
    report({of + ", memory that stays when it is closed", residentMegabytes() - before, "MB"});
    host.open(file);
    return measureExport(of, folder) && kept;
}

} // namespace velmora::benchmark
