#pragma once

#include "engine/core/Checkpoint.h"
#include "engine/plot/Plot.h"

#include <chrono>
#include <cstddef>

namespace velmora::engine {

struct GLFunctions;

/// The checkpoint of one frame of several: its share of the whole, the point in the middle of the drawing where a test
/// may make it fail, and how long the content kept the application waiting.
class FrameCheckpoint final : public Checkpoint {
public:
    using Clock = std::chrono::steady_clock;

    FrameCheckpoint(Checkpoint& whole, std::size_t index, std::size_t count);

    bool goOn(double fraction) override;
    void passMiddle();
    /// From now on it says to stop when this time is over.
    void stopAfter(Clock::duration time) { m_end = Clock::now() + time; }
    bool isOver() const { return m_isOver; }
    /// The longest time between two questions, also that after the last.
    Clock::duration longestPortion();

private:
    void endPortion();

    Checkpoint& m_whole;
    std::size_t m_index;
    std::size_t m_count;
    Clock::time_point m_portion = Clock::now(); ///< when the one that is under way began
    Clock::duration m_longest{0};
    Clock::time_point m_end = Clock::time_point::max();
    bool m_isOver = false;
    bool m_passed = false;
};

/// Draws one content; false when the checkpoint said to stop and the picture is not to be shown as it is. With
/// "Interface/PrintDebug" it prints when the content kept the application waiting for long.
bool drawContent(Content& content, const Drawing& drawing, const GLFunctions& gl, FrameCheckpoint& checkpoint);

} // namespace velmora::engine
