// Where the time and the memory of an image export go: the sample data at several sizes, by each
// kind of image. Build as Release and run on an X server:
// scripts/with-display bin/benchmark_export [side in pixels] ...  Ends with 1 when a limit is exceeded.
//
// Each line is measured in a process of its own, so that its memory is its own: how far the process
// grew at its peak beyond what it held after a small export. That is set against the bytes of a
// drawing buffer and of its image, four a pixel each: of the whole picture, and of the largest part
// of it that was drawn at once.

#include "benchmarks/offscreen/TimedImageService.h"
#include "engine/VelUtil.h"
#include "engine/export/PngRows.h"
#include "engine/export/TargetFile.h"
#include "integration/Manager.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace velmora::sdk::integration;
namespace engine = velmora::engine;
using velmora::benchmark::ExportPhase;
using velmora::benchmark::ExportTimes;
using velmora::benchmark::TimedImageService;

namespace {

constexpr int Rounds = 5;
constexpr char LineOption[] = "--line";
constexpr int SmallSide = 64;
constexpr double BytesInMegabyte = 1024.0 * 1024.0;
constexpr double BufferAndImage = 8; ///< bytes a pixel
constexpr double MostOfDrawnPart = 4;
constexpr double DriversOwn = 16 * BytesInMegabyte; ///< what it keeps for an image of any size
constexpr ExportPhase Columns[] = {ExportPhase::Drawing, ExportPhase::ReadBack, ExportPhase::Rows, ExportPhase::Png,
                                   ExportPhase::Images};

[[noreturn]] void giveUp(const std::string& why)
{
    std::fprintf(stderr, "%s\n", why.c_str());
    std::exit(2);
}

/// The most memory that this process has held, in bytes, since that was last forgotten.
double peakOfMemory()
{
    std::ifstream status("/proc/self/status");
    double kilobytes = 0;
    for (std::string word; status >> word;)
        if (word == "VmHWM:" && status >> kilobytes)
            return kilobytes * 1024;
    giveUp("The system does not tell how much memory this process takes.");
}

void forgetPeakOfMemory()
{
    if (!(std::ofstream("/proc/self/clear_refs") << "5" << std::flush))
        giveUp("The system does not forget how much memory this process took.");
}

/// A kind of image, and what in the environment makes the export take it.
struct Way {
    const char* name;
    ImageRenderingStrategy_e strategy;
    bool onDisplay;
    bool withOSMesa;
};
const Way Ways[] = {
    {"pixel buffer", ImageRenderingStrategy_Hardware, true, true},
    {"EGL", ImageRenderingStrategy_Hardware, false, true},
    {"OSMesa", ImageRenderingStrategy_Software, true, true},
    {"EGL by software", ImageRenderingStrategy_Software, true, false},
};

struct Scene {
    const char* name;
    const char* data;
    double mostOfLongerPart; ///< 0: no limit
};
const Scene Scenes[] = {{"grid", SAMPLE_GRID, 0}, {"table", SAMPLE_TABLE, 1.3}};
constexpr int SideOfTheLimit = 8192;

class ExportLine {
public:
    ExportLine(int side, const Way& way, const Scene& scene)
        : m_side(side), m_way(way), m_scene(scene),
          m_file((std::filesystem::temp_directory_path() / ("export-" + std::to_string(getpid()) + ".png")).string())
    {}
    ~ExportLine() { unlink(m_file.c_str()); }
    ExportLine(const ExportLine&) = delete;
    ExportLine& operator=(const ExportLine&) = delete;

    /// False when a limit is exceeded.
    bool measure()
    {
        TimedImageService service;
        write(SmallSide); // the driver gets ready for what is drawn
        forgetPeakOfMemory();
        const double before = peakOfMemory();
        ExportTimes best = timed(service);
        const double grown = peakOfMemory() - before;
        for (int round = 1; round < Rounds; ++round) {
            const ExportTimes next = timed(service);
            best = next.total() < best.total() ? next : best;
        }
        return print(best, grown, compressionAlone());
    }

private:
    void write(int side) const
    {
        VelExportImageOptions options = VelExportImageOptions();
        options.width = side;
        options.height = side;
        options.supersample = 1;
        options.region = ExportRegion_CurrentFrame;
        options.strategy = m_way.strategy;
        if (!VelUtilExportImage(m_file.c_str(), &options))
            giveUp(VelUtilLastErrorMessage());
    }

    ExportTimes timed(TimedImageService& service) const
    {
        service.start();
        write(m_side);
        return service.stop();
    }

    /// Compressing and writing the picture once more, with nothing else to do; the best of some rounds.
    double compressionAlone() const
    {
        const QImage picture = QImage(QString::fromStdString(m_file)).convertToFormat(QImage::Format_RGB888);
        double best = 1e30;
        for (int round = 0; round < Rounds; ++round) {
            QElapsedTimer clock;
            clock.start();
            engine::TargetFile file(m_file);
            engine::PngRows png(file, m_side, m_side, 0);
            for (int row = 0; row < m_side; ++row)
                png.takeRow(row, picture.constScanLine(row));
            png.finish();
            file.commit();
            best = std::min(best, static_cast<double>(clock.nsecsElapsed()) / 1e6);
        }
        return best;
    }

    bool print(const ExportTimes& times, double grown, double compression) const
    {
        const double ofPicture = grown / (BufferAndImage * m_side * m_side);
        const double ofPart = (grown - DriversOwn) / (BufferAndImage * static_cast<double>(times.pixelsOfLargestImage));
        const double ofLonger = times.total() / std::max(times.of(ExportPhase::Drawing), compression);
        std::printf("| %s, %d × %d, %s | %.0f ms |", m_scene.name, m_side, m_side, m_way.name, times.total());
        for (const ExportPhase phase : Columns)
            std::printf(" %.1f %% |", 100 * times.of(phase) / times.total());
        const bool tooMuch = ofPart > MostOfDrawnPart;
        const bool tooSlow =
            m_side == SideOfTheLimit && m_scene.mostOfLongerPart > 0 && ofLonger > m_scene.mostOfLongerPart;
        std::printf(" %.0f ms | %.2f ×%s | %d | %.0f MB | %.2f × | %.2f ×%s |\n", compression, ofLonger,
                    tooSlow ? " EXCEEDED" : "", times.images, grown / BytesInMegabyte, ofPicture, ofPart,
                    tooMuch ? " EXCEEDED" : "");
        return !tooMuch && !tooSlow;
    }

    int m_side;
    const Way& m_way;
    const Scene& m_scene;
    std::string m_file;
};

/// In the process of one line, before there is an application object.
void setEnvironment(const Way& way)
{
    if (!way.withOSMesa)
        qputenv("VELMORA_OSMESA_LIBRARY", "/there/is/none");
    if (way.onDisplay)
        return;
    qunsetenv("DISPLAY");
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

int runLine(int argc, char** argv)
{
    const Way& way = Ways[std::atoi(argv[3])];
    const Scene& scene = Scenes[std::atoi(argv[4])];
    setEnvironment(way);
    QApplication application(argc, argv);
    Manager& manager = Manager::getInstance();
    manager.init(argc, argv, std::string(), "benchmark");
    manager.start();
    if (!VelUtilDataLoad(scene.data))
        giveUp(VelUtilLastErrorMessage());
    const bool withinLimit = ExportLine(std::atoi(argv[2]), way, scene).measure();
    manager.stop();
    return withinLimit ? 0 : 1;
}

/// Runs this program again for one line; its exit code.
int spawnLine(const std::string& side, std::size_t way, std::size_t scene)
{
    const std::string wayText = std::to_string(way);
    const std::string sceneText = std::to_string(scene);
    const char* const arguments[] = {"benchmark_export", LineOption,        side.c_str(),
                                     wayText.c_str(),    sceneText.c_str(), nullptr};
    pid_t process = -1;
    if (posix_spawn(&process, "/proc/self/exe", nullptr, nullptr, const_cast<char* const*>(arguments), environ) != 0)
        giveUp("This program cannot be started again.");
    int status = 0;
    waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 2;
}

int runLines(const std::vector<std::string>& sides)
{
    std::printf(
        "\nExport of the sample data as PNG, best of %d, by every kind of image. Pictures are compressed on another "
        "thread while they are drawn; \"PNG alone\" is the time for that with nothing else to do, and the whole "
        "export is set against the longer of drawing and PNG alone. Peak memory against the bytes of a drawing "
        "buffer and its image: of the whole picture, and, less %.0f MB that a driver keeps for any image, of the "
        "largest "
        "image drawn at once (at most %.0f ×).\n\n",
        Rounds, DriversOwn / BytesInMegabyte, MostOfDrawnPart);
    std::printf("| picture | time | drawing | read-back | rows | handing over, waiting | making images | PNG alone "
                "| / longer part | images | peak | / picture | / largest image "
                "|\n|---|---|---|---|---|---|---|---|---|---|---|---|---|\n");
    std::fflush(stdout);
    int worst = 0;
    for (std::size_t scene = 0; scene < std::size(Scenes); ++scene)
        for (const std::string& side : sides)
            for (std::size_t way = 0; way < std::size(Ways); ++way)
                worst = std::max(worst, spawnLine(side, way, scene));
    return worst;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 5 && std::strcmp(argv[1], LineOption) == 0)
        return runLine(argc, argv);
    return runLines(argc > 1 ? std::vector<std::string>(argv + 1, argv + argc)
                             : std::vector<std::string>{"1024", "4096", "8192"});
}
