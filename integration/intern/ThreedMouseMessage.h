#pragma once

#include "interfaces/MouseEventObservableInterface.h"

#include <cstdint>

namespace velmora {
namespace sdk {
namespace integration {
namespace intern {

/// What the daemon of the 3D mice tells in one message: eight whole numbers of 32 bits.
struct ThreedMouseMessage {
    using MotionData = MouseEventObservableInterface::MotionData;

    enum Kind {
        Motion,
        Rest, ///< the device came to rest
        Press,
        Release,
        Gone,     ///< a device was unplugged
        Other,    ///< nothing that matters here
        OutOfStep ///< no message: the numbers begin in the middle of one
    };

    static constexpr int WordCount = 8;
    static constexpr int Size = WordCount * int(sizeof(std::int32_t));

    /// @{
    /// What the devices of the daemon tell at full deflection, as far as they agree, and the longest time that one
    /// sample stands for: the daemon counts the pause before a motion, too.
    static constexpr double FullDeflection = 350.0;
    static constexpr int LongestMilliseconds = 40;
    /// @}
    /// Higher numbers of buttons no device has.
    static constexpr int ButtonCount = 128;

    Kind kind = Other;
    MotionData motion; ///< of a motion, in right-handed axes: to the right, upwards, towards the person
    int button = 0;    ///< of a press or release, below ButtonCount
};

/// `words` are ThreedMouseMessage::WordCount.
ThreedMouseMessage decode(const std::int32_t* words);

/// Adds the motion that follows: deflection times time stays what it was of both together.
void addMotion(ThreedMouseMessage::MotionData& sum, const ThreedMouseMessage::MotionData& next);

} // namespace intern
} // namespace integration
} // namespace sdk
} // namespace velmora
