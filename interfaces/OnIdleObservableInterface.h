#pragma once

#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {

class OnIdleListenerInterface;

/// Announces idle time. Listeners are borrowed: remove one before it is destroyed. GUI
/// thread only.
class VELMORA_INTERFACE OnIdleObservableInterface {
public:
    /// Adding a listener twice has no further effect; null is ignored.
    virtual void addOnIdleListener(OnIdleListenerInterface* listener) = 0;
    /// A listener that was not added is ignored.
    virtual void removeOnIdleListener(OnIdleListenerInterface* listener) = 0;
    virtual ~OnIdleObservableInterface() = default;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
