#pragma once

#include "integration/Export.h"
#include "integrationmanager/CursorShapeServiceAbstract.h"

namespace velmora {
namespace sdk {
namespace integration {
namespace services {

/// Sets the mouse cursor that the engine asks for. Holds nothing of its own. GUI thread only.
class VELMORA_INTEGRATION_EXPORT CursorShapeService : public CursorShapeServiceAbstract {
public:
    CursorShapeService();
    ~CursorShapeService() override;

    /// Pushes the wait cursor on the toolkit's stack of override cursors, or pops the topmost. The
    /// calls are not counted: two pushes need two pops.
    void activateWaitCursor(bool on) override;
    /// Sets the cursor over the page's drawing area; the arrow for a style without a cursor of its
    /// own. Does nothing when the page is not shown in a GLDrawArea. `page` must not be null.
    void setBaseCursorStyle(PageInterface* page, CursorStyle_e style) override;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
