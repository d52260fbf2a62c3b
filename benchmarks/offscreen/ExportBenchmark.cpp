// Where the time and the memory of an image export go: the sample grid at several sizes, by each
// strategy. Build as Release and run on an X server:
// scripts/with-display bin/benchmark_export [side in pixels] ...  Ends with 1 when a limit is exceeded.
//
// Each line is measured in a process of its own, so that its memory is its own: how far the process
// grew at its peak beyond what it held after a small export. That is set against the bytes of a
// drawing buffer and of its image, four a pixel each: of the whole picture, and of the largest part
// of it that was drawn at once.

#include "benchmarks/offscreen/TimedImageService.h"
#include "engine/VelUtil.h"
#include "integration/Manager.h"

#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace velmora::sdk::integration;
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

class ExportLine {
public:
    ExportLine(int side, ImageRenderingStrategy_e strategy)
        : m_side(side), m_strategy(strategy),
          m_file((std::filesystem::temp_directory_path() / ("export-" + std::to_string(getpid()) + ".png")).string())
    {}
    ~ExportLine() { unlink(m_file.c_str()); }
    ExportLine(const ExportLine&) = delete;
    ExportLine& operator=(const ExportLine&) = delete;

    /// False when the memory exceeds its limit.
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
        return print(best, grown);
    }

private:
    void write(int side) const
    {
        VelExportImageOptions options = VelExportImageOptions();
        options.width = side;
        options.height = side;
        options.supersample = 1;
        options.region = ExportRegion_CurrentFrame;
        options.strategy = m_strategy;
        if (!VelUtilExportImage(m_file.c_str(), &options))
            giveUp(VelUtilLastErrorMessage());
    }

    ExportTimes timed(TimedImageService& service) const
    {
        service.start();
        write(m_side);
        return service.stop();
    }

    bool print(const ExportTimes& times, double grown) const
    {
        const double ofPicture = grown / (BufferAndImage * m_side * m_side);
        const double ofPart = grown / (BufferAndImage * static_cast<double>(times.pixelsOfLargestImage));
        std::printf("| %d × %d, %s | %.0f ms |", m_side, m_side,
                    m_strategy == ImageRenderingStrategy_Hardware ? "hardware" : "software", times.total());
        for (const ExportPhase phase : Columns)
            std::printf(" %.1f %% |", 100 * times.of(phase) / times.total());
        const bool tooMuch = ofPart > MostOfDrawnPart;
        std::printf(" %d | %.0f MB | %.2f × | %.2f ×%s |\n", times.images, grown / BytesInMegabyte, ofPicture, ofPart,
                    tooMuch ? " EXCEEDED" : "");
        return !tooMuch;
    }

    int m_side;
    ImageRenderingStrategy_e m_strategy;
    std::string m_file;
};

/// In the process of one line.
int runLine(int argc, char** argv, int side, ImageRenderingStrategy_e strategy)
{
    QApplication application(argc, argv);
    Manager& manager = Manager::getInstance();
    manager.init(argc, argv, std::string(), "benchmark");
    manager.start();
    if (!VelUtilDataLoad(SAMPLE_GRID))
        giveUp(VelUtilLastErrorMessage());
    const bool withinLimit = ExportLine(side, strategy).measure();
    manager.stop();
    return withinLimit ? 0 : 1;
}

/// Runs this program again for one line; its exit code.
int spawnLine(const char* side, const char* strategy)
{
    const char* const arguments[] = {"benchmark_export", LineOption, side, strategy, nullptr};
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
        "\nExport of the sample grid as PNG, best of %d. Peak memory against the bytes of a drawing buffer and its "
        "image: of the whole picture, and of the largest image drawn at once (at most %.0f ×).\n\n",
        Rounds, MostOfDrawnPart);
    std::printf("| picture | time | drawing | read-back | rows | PNG and file | making images | images | peak "
                "| / picture | / largest image |\n|---|---|---|---|---|---|---|---|---|---|---|\n");
    std::fflush(stdout);
    int worst = 0;
    for (const std::string& side : sides)
        for (const ImageRenderingStrategy_e strategy :
             {ImageRenderingStrategy_Hardware, ImageRenderingStrategy_Software})
            worst = std::max(worst, spawnLine(side.c_str(), std::to_string(strategy).c_str()));
    return worst;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 4 && std::strcmp(argv[1], LineOption) == 0)
        return runLine(argc, argv, std::atoi(argv[2]), static_cast<ImageRenderingStrategy_e>(std::atoi(argv[3])));
    return runLines(argc > 1 ? std::vector<std::string>(argv + 1, argv + argc)
                             : std::vector<std::string>{"1024", "4096", "8192"});
}
