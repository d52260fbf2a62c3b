#pragma once

#include "interfaces/EngineEnumerations.h"
#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {
namespace services {

/// Shows the engine's messages. GUI thread only.
class VELMORA_INTERFACE MessageBoxServiceInterface {
public:
    /// Shows a modal box with the UTF-8 text and returns a MessageBoxReply_e value.
    virtual unsigned displayMessageBox(const char* message, MessageBoxType_e type) = 0;
    virtual ~MessageBoxServiceInterface() = default;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
