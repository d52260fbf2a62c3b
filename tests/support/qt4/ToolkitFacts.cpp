#include "tests/support/ToolkitFacts.h"

namespace velmora::test {

bool hasPlatforms()
{
    return false;
}

bool countsEventLoops()
{
    return false;
}

bool deliversPostedEventsBeforeWaking()
{
    return true;
}

const char* libraryForX11()
{
    return "libX11.so";
}

} // namespace velmora::test
