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

bool activatesBeforeMapping()
{
    return false;
}

const char* libraryForX11()
{
    return "libX11.so";
}

} // namespace velmora::test
