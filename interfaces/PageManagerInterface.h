#pragma once

#include "interfaces/Visibility.h"

namespace velmora {
namespace sdk {
namespace integration {

class GLDrawAreaInterface;
class PageInterface;

/// The engine's pages and the drawing areas that show them. GUI thread only.
class VELMORA_INTERFACE PageManagerInterface {
public:
    /// Gives the area a page: the first page that no area shows, else a new one. An area that has a
    /// page already keeps it.
    virtual PageInterface& attachDrawArea(GLDrawAreaInterface& area) = 0;
    /// Takes the area's page away; what the page holds stays. The area's context must still work.
    virtual void detachDrawArea(GLDrawAreaInterface& area) = 0;
    /// The area must show its page. Shows what there is and leaves longer work for the engine's
    /// next turn, so that nothing is processed from inside a paint event.
    virtual void exposeDrawArea(GLDrawAreaInterface& area, bool sizeChanged) = 0;
    /// Makes the area's page the one that commands without a page apply to.
    virtual void activateDrawArea(GLDrawAreaInterface& area) = 0;
    /// The page shown in the area, or null.
    virtual PageInterface* pageOf(const GLDrawAreaInterface& area) const = 0;
    virtual ~PageManagerInterface() = default;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
