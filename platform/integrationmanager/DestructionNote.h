#pragma once

#include "testing/EngineProbe.h"

#include <string>

namespace velmora::sdk::integration::intern {

/// Logs "~<name>" while a test logs. Safe in a destructor at the end of the process too: whatever
/// passed its point in the probe when it was built dies before the probe.
inline void noteDestruction(const char* name)
{
    if (velmora::testing::EngineProbe::isLogging())
        velmora::testing::EngineProbe::note(std::string("~") + name);
}

} // namespace velmora::sdk::integration::intern
