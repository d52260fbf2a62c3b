#pragma once

#include "interfaces/EventInterface.h"

namespace velmora {
namespace sdk {
namespace integration {

/// A key press or release. `key()` is the windowing toolkit's key code; the misc service turns the
/// codes of non-printable keys into the engine's control characters.
class VELMORA_INTERFACE KeyEventInterface : public virtual EventInterface {
public:
    /// The toolkit's key code (a Qt::Key value); for a shortcut with the toolkit's modifier bits in it.
    virtual int key() const = 0;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
