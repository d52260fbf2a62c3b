#pragma once

#include "integration/Export.h"
#include "interfaces/MouseEventObservableInterface.h"

#include <functional>
#include <string>

class QWidget;

/// \namespace velmora::sdk::threedmouse
/// The seam between the driver of a 3D mouse (a six-axis controller) and its listeners.
///
/// This build opens no device: it keeps the callbacks and never calls them. A driver would call them
/// on the GUI thread, motion repeatedly, the end of motion once when the device comes to rest, and
/// would answer true to `isProcessingThreedMouseEvents` in between.
namespace velmora {
namespace sdk {
namespace threedmouse {

/// Hears of each sample of a motion.
using MotionCallback = std::function<void(const integration::MouseEventObservableInterface::MotionData&)>;
/// Hears that the device has come to rest.
using EndOfMotionCallback = std::function<void()>;
/// Hears of each button that goes down or up.
using ButtonActionCallback = std::function<void(const integration::MouseEventObservableInterface::ButtonActions&)>;

/// Replaces the callbacks set before. They are kept until the program ends, so what
/// they refer to must live as long.
VELMORA_INTEGRATION_EXPORT void startListeningForEvents(const std::string& deviceName, const QWidget& widget,
                                                        const MotionCallback& motion,
                                                        const EndOfMotionCallback& endOfMotion,
                                                        const ButtonActionCallback& buttonAction);

/// Whether a motion is in progress, which holds idle announcements back. Always false here.
VELMORA_INTEGRATION_EXPORT bool isProcessingThreedMouseEvents();

} // namespace threedmouse
} // namespace sdk
} // namespace velmora
