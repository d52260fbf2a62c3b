#include "engine/VelUtil.h"
#include "engine/style/StyleTree.h"

#include <cstdlib>
#include <cstring>

namespace {

bool environmentAsksForIt()
{
    const char* value = std::getenv("VELMORA_PRINT_DEBUG");
    return value && *value && std::strcmp(value, "0") != 0;
}

} // namespace

bool VelUtilInternalIsPrintDebugOn()
{
    return environmentAsksForIt() || velmora::engine::style::lookupBool("Interface/PrintDebug");
}
