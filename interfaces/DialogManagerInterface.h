#pragma once

#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {

/// The engine's view of the dialogs that it asked the host for. GUI thread only.
class VELMORA_INTERFACE DialogManagerInterface {
public:
    /// How many message boxes and file dialogs of the engine are open now.
    virtual int openDialogCount() const = 0;
    virtual ~DialogManagerInterface() = default;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
