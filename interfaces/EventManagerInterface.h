#pragma once

#include "interfaces/Visibility.h"

#include <boost/shared_ptr.hpp>

namespace velmora {
namespace sdk {
namespace integration {

class StopButtonInterface;

/// The manager's side of input handling: which stop buttons are in force.
class VELMORA_INTERFACE EventManagerInterface {
public:
    /// Registering the same pointer twice has no further effect.
    virtual void registerStopButton(const boost::shared_ptr<const StopButtonInterface>& button) = 0;
    virtual void unRegisterStopButton(const boost::shared_ptr<const StopButtonInterface>& button) = 0;
    virtual ~EventManagerInterface() = default;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
