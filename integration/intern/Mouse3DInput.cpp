#include "integration/intern/Mouse3DInput.h"

#include "integration/intern/ThreedMouseDevice.h"

namespace velmora::sdk::threedmouse {

namespace {

using integration::MouseEventObservableInterface;
using integration::intern::ThreedMouseDevice;

MotionCallback motionCallback;
EndOfMotionCallback endOfMotionCallback;
ButtonActionCallback buttonActionCallback;

// A callback may replace itself.
template <typename Callback, typename... Arguments>
void call(const Callback& slot, const Arguments&... arguments)
{
    const Callback callback = slot;
    if (callback)
        callback(arguments...);
}

ThreedMouseDevice* device()
{
    return ThreedMouseDevice::ofApplication(
        {[](const MouseEventObservableInterface::MotionData& motion) { call(motionCallback, motion); },
         [] { call(endOfMotionCallback); },
         [](const MouseEventObservableInterface::ButtonActions& action) { call(buttonActionCallback, action); }});
}

} // namespace

void startListeningForEvents(const std::string&, const QWidget& widget, const MotionCallback& motion,
                             const EndOfMotionCallback& endOfMotion, const ButtonActionCallback& buttonAction)
{
    motionCallback = motion;
    endOfMotionCallback = endOfMotion;
    buttonActionCallback = buttonAction;
    if (ThreedMouseDevice* const mouse = device())
        mouse->listenFor(widget);
}

bool isProcessingThreedMouseEvents()
{
    const ThreedMouseDevice* const mouse = ThreedMouseDevice::current();
    return mouse && mouse->isInMotion();
}

DeviceState_e deviceState()
{
    const ThreedMouseDevice* const mouse = ThreedMouseDevice::current();
    return mouse ? mouse->state() : DeviceState_NotStarted;
}

} // namespace velmora::sdk::threedmouse
