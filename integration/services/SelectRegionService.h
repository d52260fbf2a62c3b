#pragma once

#include "integration/Export.h"
#include "integrationmanager/SelectRegionServiceAbstract.h"

namespace velmora {
namespace sdk {
namespace integration {
namespace services {

/// Selects what a rubber band encloses. The manager does not create this service: a host that
/// offers rubber bands makes one and adds it to the manager's service repository. Holds nothing of
/// its own. GUI thread only.
class VELMORA_INTEGRATION_EXPORT SelectRegionService : public SelectRegionServiceAbstract {
public:
    SelectRegionService();
    ~SelectRegionService() override;

    /// Selects every pickable object in the rectangle, under the application lock. The corners are
    /// handed on as they come, in the engine's frame units (those of the reference platform: paper inches
    /// from the lower left corner). Without `addToSelection` what was
    /// selected before is given up, even when the rectangle holds nothing. Errors of the engine
    /// are shown and cleared.
    void selectItems(double x1, double y1, double x2, double y2, bool addToSelection) override;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
