#pragma once

#include "engine/VelExport.h"

#include <memory>

namespace velmora {
namespace sdk {
namespace integration {

class GLDrawAreaInterface;
class PageManagerInterface;

namespace intern {

/// Links a drawing area to the page that the engine shows in it: exposures, focus and the end of
/// the area go to the page manager.
class VELMORA_PLATFORM_EXPORT GLDrawAreaPageTracker {
public:
    /// For an area that has no page yet; the area owns it.
    explicit GLDrawAreaPageTracker(GLDrawAreaInterface& area);
    ~GLDrawAreaPageTracker();
    GLDrawAreaPageTracker(const GLDrawAreaPageTracker&) = delete;
    GLDrawAreaPageTracker& operator=(const GLDrawAreaPageTracker&) = delete;

    /// Shows a page of this manager from now on, in place of one of another manager. The manager must
    /// outlive the area, or the engine must be stopped first, which ends the link; after the next
    /// start the host sets the manager again. Throws velmora::ExceptionBase when there is no page to
    /// be had; the area is then the toolkit's.
    void setPageManager(PageManagerInterface& manager);
    /// Non-zero while the engine owns the area's picture, so that the toolkit must leave resizing
    /// and painting to it.
    int state() const;

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace intern
} // namespace integration
} // namespace sdk
} // namespace velmora
