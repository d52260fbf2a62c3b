#pragma once

#include "interfaces/EngineEnumerations.h"
#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {

class PageInterface;

namespace services {

/// Sets the mouse cursor that the engine asks for. GUI thread only.
class VELMORA_INTERFACE CursorShapeServiceInterface {
public:
    /// Pushes the wait cursor for the whole application, or pops one cursor.
    virtual void activateWaitCursor(bool on) = 0;
    /// The cursor over the page's drawing area.
    virtual void setBaseCursorStyle(PageInterface* page, CursorStyle_e style) = 0;
    virtual ~CursorShapeServiceInterface() = default;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
