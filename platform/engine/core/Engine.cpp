#include "engine/core/Engine.h"

#include "engine/core/LastError.h"

namespace velmora::engine {
namespace {

bool g_running = false;

} // namespace

bool isRunning()
{
    return g_running;
}

void setRunning(bool running)
{
    g_running = running;
}

bool requireRunning()
{
    if (!isRunning())
        setLastError("The engine is not running. Start it through the manager first.");
    return isRunning();
}

} // namespace velmora::engine
