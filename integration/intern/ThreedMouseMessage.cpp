#include "integration/intern/ThreedMouseMessage.h"

#include <algorithm>

namespace velmora::sdk::integration::intern {

namespace {

// The first number of a message.
enum Type : std::int32_t {
    MotionType = 0,
    PressType = 1,
    ReleaseType = 2,
    DeviceType = 3, // the second number: 0 plugged in, 1 unplugged
    LastType = 6
};

constexpr std::int32_t Unplugged = 1;

double deflection(std::int32_t value)
{
    return std::clamp(value / ThreedMouseMessage::FullDeflection, -1.0, 1.0);
}

// The daemon's third axis points away from the person.
ThreedMouseMessage decodeMotion(const std::int32_t* words)
{
    ThreedMouseMessage message;
    const bool isRest = std::all_of(words + 1, words + 7, [](std::int32_t value) { return value == 0; });
    message.kind = isRest ? ThreedMouseMessage::Rest : ThreedMouseMessage::Motion;
    for (int axis = 0; axis < 3; ++axis) {
        const double sign = axis == 2 ? -1.0 : 1.0;
        message.motion.translation[axis] = sign * deflection(words[1 + axis]);
        message.motion.rotation[axis] = sign * deflection(words[4 + axis]);
    }
    message.motion.elapsedMilliseconds = std::clamp<std::int32_t>(words[7], 1, ThreedMouseMessage::LongestMilliseconds);
    return message;
}

ThreedMouseMessage decodeButton(const std::int32_t* words)
{
    ThreedMouseMessage message;
    if (words[1] < 0 || words[1] >= ThreedMouseMessage::ButtonCount)
        return message;
    message.kind = words[0] == PressType ? ThreedMouseMessage::Press : ThreedMouseMessage::Release;
    message.button = words[1];
    return message;
}

} // namespace

ThreedMouseMessage decode(const std::int32_t* words)
{
    ThreedMouseMessage message;
    switch (words[0]) {
    case MotionType:
        return decodeMotion(words);
    case PressType:
    case ReleaseType:
        return decodeButton(words);
    case DeviceType:
        message.kind = words[1] == Unplugged ? ThreedMouseMessage::Gone : ThreedMouseMessage::Other;
        break;
    default:
        if (words[0] < 0 || words[0] > LastType)
            message.kind = ThreedMouseMessage::OutOfStep;
    }
    return message;
}

void addMotion(ThreedMouseMessage::MotionData& sum, const ThreedMouseMessage::MotionData& next)
{
    const double before = double(sum.elapsedMilliseconds);
    const double more = double(next.elapsedMilliseconds);
    const auto add = [&](double& value, double other) { value = (value * before + other * more) / (before + more); };
    for (int axis = 0; axis < 3; ++axis) {
        add(sum.translation[axis], next.translation[axis]);
        add(sum.rotation[axis], next.rotation[axis]);
    }
    sum.elapsedMilliseconds += next.elapsedMilliseconds;
}

} // namespace velmora::sdk::integration::intern
