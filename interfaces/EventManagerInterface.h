#pragma once

#include "interfaces/Visibility.h"

#include <boost/shared_ptr.hpp>

namespace velmora {
namespace sdk {
namespace integration {

class StopButtonInterface;

/// The manager's side of input handling: which stop buttons are in force. GUI thread only.
class VELMORA_INTERFACE EventManagerInterface {
public:
    /// The button takes part in interrupting from now on. Registering the same pointer twice has no
    /// further effect; the manager shares it until it is unregistered.
    virtual void registerStopButton(const boost::shared_ptr<const StopButtonInterface>& button) = 0;
    /// The button takes no part any more. A pointer that is not registered is ignored.
    virtual void unRegisterStopButton(const boost::shared_ptr<const StopButtonInterface>& button) = 0;
    virtual ~EventManagerInterface() = default;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
