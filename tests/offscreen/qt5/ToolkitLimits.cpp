#include "tests/offscreen/ToolkitLimits.h"

namespace velmora::test {

bool pixelBuffersAreOfTheWindowSystem()
{
    return false;
}

const char* whyNoPixmapsAreDrawn()
{
    return nullptr;
}

const char* whyLimitsNeedNoContext()
{
    return nullptr;
}

} // namespace velmora::test
