#pragma once

#include "interfaces/EngineEnumerations.h"
#include "interfaces/Visibility.h"

namespace velmora::sdk::integration::services {

/// Shows the engine's messages.
class VELMORA_INTERFACE MessageBoxServiceInterface {
public:
    /// Shows a modal box with the UTF-8 text and returns a MessageBoxReply_e value.
    virtual unsigned displayMessageBox(const char* message, MessageBoxType_e type) = 0;
    virtual ~MessageBoxServiceInterface() = default;
};

} // namespace velmora::sdk::integration::services
