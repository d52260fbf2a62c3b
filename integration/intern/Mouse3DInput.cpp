#include "integration/intern/Mouse3DInput.h"

namespace velmora::sdk::threedmouse {

namespace {

MotionCallback motionCallback;
EndOfMotionCallback endOfMotionCallback;
ButtonActionCallback buttonActionCallback;

} // namespace

void startListeningForEvents(const std::string&, const QWidget&, const MotionCallback& motion,
                             const EndOfMotionCallback& endOfMotion, const ButtonActionCallback& buttonAction)
{
    motionCallback = motion;
    endOfMotionCallback = endOfMotion;
    buttonActionCallback = buttonAction;
}

bool isProcessingThreedMouseEvents()
{
    return false;
}

} // namespace velmora::sdk::threedmouse
