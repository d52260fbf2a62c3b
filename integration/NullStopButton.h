#pragma once

#include "integration/Export.h"
#include "interfaces/StopButtonInterface.h"

namespace velmora {
namespace sdk {
namespace integration {

/// A stop button without a button: always in force and never what is pressed. Registered, it keeps
/// Escape and the buttons that were registered before it from interrupting the engine.
class VELMORA_INTEGRATION_EXPORT NullStopButton : public virtual StopButtonInterface {
public:
    NullStopButton();
    ~NullStopButton() override;

    bool isActive() const override;
    bool isEqual(const void* object) const override;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
