#include "tests/offscreen/ToolkitLimits.h"

namespace velmora::test {

bool pixelBuffersAreOfTheWindowSystem()
{
    return true;
}

const char* whyNoPixmapsAreDrawn()
{
    return "Qt 4 draws into pixmaps by indirect rendering, which today's X servers refuse";
}

const char* whyLimitsNeedNoContext()
{
    return "Qt 4 takes the X protocol's limits";
}

} // namespace velmora::test
