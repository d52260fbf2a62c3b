#pragma once

#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {

/// A button whose press interrupts the busy engine. Held as `boost::shared_ptr<const …>`, by which
/// it is also registered and unregistered. GUI thread only.
class VELMORA_INTERFACE StopButtonInterface {
public:
    /// Whether the stop button is in force. While one is, it is the only way to interrupt.
    virtual bool isActive() const = 0;
    /// Whether `object` is the widget behind this stop button.
    virtual bool isEqual(const void* object) const = 0;
    virtual ~StopButtonInterface() = default;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
