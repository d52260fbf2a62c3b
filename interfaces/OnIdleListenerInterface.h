#pragma once

#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {

class OnIdleObservableInterface;

/// Hears once per stretch of activity that the application has nothing left to do. Called on the
/// GUI thread from inside event processing; a listener may start engine work.
class VELMORA_INTERFACE OnIdleListenerInterface {
public:
    /// The application's event queue is empty and the engine is not busy.
    virtual void onIdle(OnIdleObservableInterface& source) = 0;
    virtual ~OnIdleListenerInterface() = default;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
