#include "tests/support/ToolkitFacts.h"

namespace velmora::test {

bool hasPlatforms()
{
    return true;
}

bool countsEventLoops()
{
    return true;
}

bool deliversPostedEventsBeforeWaking()
{
    return false;
}

bool activatesBeforeMapping()
{
    return true;
}

const char* libraryForX11()
{
    return "libqxcb.so";
}

} // namespace velmora::test
