#include "integration/toolkit/EventLoopLevel.h"

namespace velmora::sdk::integration::toolkit {

int eventLoopLevel()
{
    return 0;
}

} // namespace velmora::sdk::integration::toolkit
