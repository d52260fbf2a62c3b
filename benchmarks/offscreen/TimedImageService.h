#pragma once

#include "integration/services/OffscreenImageService.h"

#include <array>
#include <chrono>

namespace velmora::benchmark {

enum class ExportPhase {
    Images,   ///< making and giving back the images
    Drawing,  ///< until the driver is done
    ReadBack, ///< the first row, with which an image is read back as a whole
    Rows,     ///< the other rows, as planes and again as RGB
    Png       ///< all the rest: handing rows over to be compressed on another thread, and waiting for that
};
constexpr std::size_t ExportPhases = 5;

/// Of one export.
struct ExportTimes {
    /// In milliseconds.
    double of(ExportPhase phase) const { return milliseconds[static_cast<std::size_t>(phase)]; }
    double total() const;

    std::array<double, ExportPhases> milliseconds = {};
    int images = 0;
    long pixelsOfLargestImage = 0;
};

/// Stands between the engine and the off-screen image service, and takes the time of each phase of an
/// export. Every moment from `start` to `stop` belongs to one phase. Registered with the engine for
/// its own life.
class TimedImageService {
public:
    TimedImageService();
    ~TimedImageService();
    TimedImageService(const TimedImageService&) = delete;
    TimedImageService& operator=(const TimedImageService&) = delete;

    void start();
    ExportTimes stop();

private:
    class Image;
    using Clock = std::chrono::steady_clock;
    using AnyImage = sdk::integration::OffscreenImageInterface;

    static AnyImage* create(int width, int height, int strategy, long self);
    static int readRow(AnyImage* image, int row, unsigned char* red, unsigned char* green, unsigned char* blue,
                       long self);
    static void destroy(AnyImage* image, long self);

    void enter(ExportPhase phase);

    sdk::integration::services::OffscreenImageService m_service;
    ExportTimes m_times;
    ExportPhase m_phase = ExportPhase::Png;
    Clock::time_point m_entered;
    bool m_isReadBack = false;
};

} // namespace velmora::benchmark
