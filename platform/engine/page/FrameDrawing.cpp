#include "engine/page/FrameDrawing.h"

#include "engine/VelUtil.h"
#include "engine/core/Trace.h"
#include "engine/plot/DrawingMeans.h"
#include "engine/style/StyleTree.h"

#include <algorithm>
#include <cstdio>

namespace velmora::engine {
namespace {

// A person notices that something is late after this.
constexpr std::chrono::milliseconds Noticeable{50};
// Of a coarse picture by a content that draws none; a dragged view still follows.
constexpr std::chrono::milliseconds CoarseTime{20};

void tellOfLongPortion(const Content& content, FrameCheckpoint::Clock::duration longest)
{
    if (longest < Noticeable || !VelUtilInternalIsPrintDebugOn())
        return;
    std::fprintf(stderr,
                 "The content \"%s\" held the application for %.0f ms. Let it ask its checkpoint after each "
                 "millisecond of drawing.\n",
                 content.description().c_str(), std::chrono::duration<double, std::milli>(longest).count());
}

} // namespace

FrameCheckpoint::FrameCheckpoint(Checkpoint& whole, std::size_t index, std::size_t count)
    : m_whole(whole), m_index(index), m_count(count)
{}

bool FrameCheckpoint::goOn(double fraction)
{
    const double done = (static_cast<double>(m_index) + fraction) / static_cast<double>(m_count);
    if (done >= 0.5)
        passMiddle();
    endPortion();
    m_isOver = m_isOver || m_portion >= m_end;
    if (m_isOver)
        return false;
    const bool goesOn = m_whole.goOn(done);
    m_portion = Clock::now();
    return goesOn;
}

void FrameCheckpoint::passMiddle()
{
    const bool isMiddleFrame = m_index == m_count / 2;
    if (isMiddleFrame && !m_passed) {
        m_passed = true;
        tracePoint("drawing");
    }
}

FrameCheckpoint::Clock::duration FrameCheckpoint::longestPortion()
{
    endPortion();
    return m_longest;
}

void FrameCheckpoint::endPortion()
{
    const Clock::time_point now = Clock::now();
    m_longest = std::max(m_longest, now - m_portion);
    m_portion = now;
}

bool drawContent(Content& content, const Drawing& drawing, const GLFunctions& gl, FrameCheckpoint& checkpoint)
{
    const DrawingMeansScope means({&gl, style::lookupInt("Interface/DrawingDelay") > 0});
    if (drawing.detail == Detail::Coarse && !content.drawsCoarsely())
        checkpoint.stopAfter(CoarseTime);
    const bool isWhole = content.draw(drawing, checkpoint);
    tellOfLongPortion(content, checkpoint.longestPortion());
    return isWhole || checkpoint.isOver();
}

} // namespace velmora::engine
