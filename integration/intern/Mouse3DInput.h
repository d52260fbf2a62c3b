#pragma once

#include "integration/Export.h"
#include "interfaces/MouseEventObservableInterface.h"

#include <functional>
#include <string>

class QWidget;

/// \namespace velmora::sdk::threedmouse
/// The seam between the driver of a 3D mouse (a six-axis controller) and its listeners.
///
/// The driver is the free daemon spacenavd, reached through libspnav (libspnav.so.0; VELMORA_SPNAV_LIBRARY in the
/// environment names another file). Neither need be there. The callbacks are called on the GUI thread, from the event
/// loop: motion again and again, the end of motion once when the device comes to rest. While the engine is busy, and
/// while the person works with another application, motions and presses are dropped; an end, of a motion or of a press,
/// that the callbacks have not heard of yet is told afterwards.
namespace velmora {
namespace sdk {
namespace threedmouse {

/// Hears of each sample of a motion. Samples that waited together come as one: deflection times time is what it was
/// of all of them.
using MotionCallback = std::function<void(const integration::MouseEventObservableInterface::MotionData&)>;
/// Hears that the device has come to rest: it said so, was unplugged, was silent for half a second, or its daemon
/// ended.
using EndOfMotionCallback = std::function<void()>;
/// Hears of each button that goes down or up.
using ButtonActionCallback = std::function<void(const integration::MouseEventObservableInterface::ButtonActions&)>;

/// Whether there is a 3D mouse to hear of.
enum DeviceState_e {
    DeviceState_Connected = 0,  ///< to the daemon, which has a device or waits for one to be plugged in
    DeviceState_NotStarted = 1, ///< nobody listens yet, or there is no application object
    DeviceState_NoLibrary = 2,  ///< libspnav is not installed
    DeviceState_NoDaemon = 3,   ///< none runs that this version understands, or the host has a connection of its own
    DeviceState_Lost = 4        ///< the daemon ended; it is looked for again after 1 second, 2, 4 … up to a minute
};

/// Replaces the callbacks set before, and connects to the daemon unless that is done already. The callbacks are kept
/// until the program ends, so what they refer to must live as long. Nothing comes when `widget` is no more. The name of
/// the device has no effect: the daemon makes one device of all that are plugged in. `deviceState()` tells how it went;
/// a daemon that is not there now is looked for again when this is called again. Connecting takes 0.3 seconds where the
/// daemon is older than version 1.0.
VELMORA_INTEGRATION_EXPORT void startListeningForEvents(const std::string& deviceName, const QWidget& widget,
                                                        const MotionCallback& motion,
                                                        const EndOfMotionCallback& endOfMotion,
                                                        const ButtonActionCallback& buttonAction);

/// Whether a motion is in progress, which holds idle announcements back: from the first motion that the callback hears
/// of to the end.
VELMORA_INTEGRATION_EXPORT bool isProcessingThreedMouseEvents();

/// How it is now.
VELMORA_INTEGRATION_EXPORT DeviceState_e deviceState();

} // namespace threedmouse
} // namespace sdk
} // namespace velmora
