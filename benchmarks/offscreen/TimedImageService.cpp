#include "benchmarks/offscreen/TimedImageService.h"

#include "engine/VelEng.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/OffscreenImageInterface.h"

#include <algorithm>
#include <memory>
#include <numeric>

namespace velmora::benchmark {

using namespace sdk::integration;

class TimedImageService::Image : public virtual OffscreenImageInterface {
public:
    Image(TimedImageService& owner, OffscreenImageInterface* real) : m_owner(owner), m_real(real) {}

    bool render(ExportRegion_e region) override
    {
        m_owner.enter(ExportPhase::Drawing);
        const bool rendered = m_real->render(region);
        m_owner.enter(ExportPhase::Rows);
        return rendered;
    }
    GLContextInterface& getGLContext() override { return m_real->getGLContext(); }
    int width() const override { return m_real->width(); }
    int height() const override { return m_real->height(); }
    OffscreenImageInterface* real() const { return m_real; }

private:
    TimedImageService& m_owner;
    OffscreenImageInterface* m_real; ///< the service's
};

double ExportTimes::total() const
{
    return std::accumulate(milliseconds.begin(), milliseconds.end(), 0.0);
}

TimedImageService::TimedImageService()
{
    const VelEngOffscreenImageCallbacks callbacks = {create, readRow, destroy};
    VelEngOffscreenImageRegisterCallbacks(&callbacks, reinterpret_cast<long>(this));
}

TimedImageService::~TimedImageService()
{
    VelEngOffscreenImageRegisterCallbacks(nullptr, 0);
}

void TimedImageService::start()
{
    m_times = ExportTimes();
    m_phase = ExportPhase::Png;
    m_entered = Clock::now();
}

ExportTimes TimedImageService::stop()
{
    enter(ExportPhase::Png);
    return m_times;
}

void TimedImageService::enter(ExportPhase phase)
{
    const Clock::time_point now = Clock::now();
    m_times.milliseconds[static_cast<std::size_t>(m_phase)] +=
        std::chrono::duration<double, std::milli>(now - m_entered).count();
    m_phase = phase;
    m_entered = now;
}

OffscreenImageInterface* TimedImageService::create(int width, int height, int strategy, long client)
{
    auto& self = *reinterpret_cast<TimedImageService*>(client);
    self.enter(ExportPhase::Images);
    self.m_isReadBack = false;
    ++self.m_times.images;
    self.m_times.pixelsOfLargestImage = std::max(self.m_times.pixelsOfLargestImage, static_cast<long>(width) * height);
    OffscreenImageInterface* const real =
        self.m_service.imageCreate(width, height, static_cast<ImageRenderingStrategy_e>(strategy));
    return std::make_unique<Image>(self, real).release();
}

int TimedImageService::readRow(AnyImage* image, int row, unsigned char* red, unsigned char* green, unsigned char* blue,
                               long client)
{
    auto& self = *reinterpret_cast<TimedImageService*>(client);
    if (!self.m_isReadBack)
        self.enter(ExportPhase::ReadBack);
    const bool done = self.m_service.imageGetRGBRow(dynamic_cast<Image&>(*image).real(), row, red, green, blue);
    if (!self.m_isReadBack)
        self.enter(ExportPhase::Rows);
    self.m_isReadBack = true;
    if (row == image->height() - 1)
        self.enter(ExportPhase::Png); // the image may be drawn again
    return done ? 1 : 0;
}

void TimedImageService::destroy(AnyImage* image, long client)
{
    auto& self = *reinterpret_cast<TimedImageService*>(client);
    self.enter(ExportPhase::Images);
    self.m_isReadBack = false;
    const std::unique_ptr<Image> timed(dynamic_cast<Image*>(image));
    self.m_service.imageDestroy(timed ? timed->real() : nullptr);
    self.enter(ExportPhase::Png);
}

} // namespace velmora::benchmark
