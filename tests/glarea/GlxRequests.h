#pragma once

#include <map>
#include <vector>

namespace velmora::test {

/// What GLX is asked for: by attribute; one that is only named counts as 1.
using GlxRequest = std::map<int, int>;

/// All that glXChooseVisual was asked for since the last call of this, of which the first `refused` get no visual.
extern std::vector<GlxRequest> glxRequests;
void beginGlxRequests(int refused);

} // namespace velmora::test
