#pragma once

namespace velmora::sdk::integration {

class GLDrawAreaInterface;
class PageManagerInterface;

namespace intern {

/// The area has lost its page because the manager took it away; its tracker must not use the manager again.
void tellPageTrackersOfDetachedArea(const PageManagerInterface& manager, const GLDrawAreaInterface& area);
/// The manager is being destroyed. Touches no area.
void forgetPageManager(const PageManagerInterface& manager);
/// Gives every tracker this state, or its own back for -1.
void overridePageTrackerStates(int state);

} // namespace intern
} // namespace velmora::sdk::integration
