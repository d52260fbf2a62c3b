#pragma once

namespace velmora::sdk::integration::toolkit {

/// How many event loops (`QEventLoop::exec`) run inside one another on this thread. Qt 4 does not tell: it
/// is always 0 there.
int eventLoopLevel();

} // namespace velmora::sdk::integration::toolkit
