#include "tests/soak/OutermostLoop.h"

#include "integration/toolkit/EventLoopLevel.h"

namespace velmora::test {

bool isInOutermostLoop()
{
    return sdk::integration::toolkit::eventLoopLevel() <= 1;
}

} // namespace velmora::test
