#include "base/AppLock.h"

#include "testing/EngineProbe.h"

#include <string>

namespace velmora::sdk {
namespace {

int heldLocks = 0;

} // namespace

AppLock::AppLock(ImplicitMacroRecording recording)
{
    testing::EngineProbe::passPoint("AppLock");
    if (testing::EngineProbe::isLogging())
        testing::EngineProbe::note("AppLock " + std::to_string(static_cast<int>(recording)));
    ++heldLocks;
}

AppLock::~AppLock()
{
    --heldLocks;
    if (testing::EngineProbe::isLogging())
        testing::EngineProbe::note("~AppLock");
}

int AppLock::depth()
{
    return heldLocks;
}

} // namespace velmora::sdk
