#pragma once

#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {
namespace services {

/// Selects what lies in a rectangle. GUI thread only.
class VELMORA_INTERFACE SelectRegionServiceInterface {
public:
    /// Selects every pickable object in the rectangle, in the engine's own frame units (those of the
    /// reference platform: paper inches from the lower left corner); corners in any
    /// order. Without `addToSelection` the selection before it is given up.
    virtual void selectItems(double x1, double y1, double x2, double y2, bool addToSelection) = 0;
    virtual ~SelectRegionServiceInterface() = default;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
