#include "engine/core/Engine.h"

#include "engine/VelEng.h"
#include "engine/core/Busy.h"
#include "engine/core/LastError.h"
#include "engine/page/Pages.h"
#include "engine/style/StyleTree.h"

namespace velmora::engine {
namespace {

bool running = false;

} // namespace

bool isRunning()
{
    return running;
}

bool requireRunning()
{
    if (!isRunning())
        setLastError("The engine is not running. Start it through the manager first.");
    return isRunning();
}

} // namespace velmora::engine

using namespace velmora::engine;

int VelEngStart(const char*, const char*)
{
    if (isRunning()) {
        setLastError("The engine runs already. Stop it before starting it again.");
        return 0;
    }
    running = true;
    clearLastError();
    setLoadNotes("");
    turnHasCome();
    style::tree().reset();
    pages().begin();
    return 1;
}

void VelEngStop()
{
    if (!isRunning())
        return;
    pages().end();
    style::tree().reset();
    running = false;
}

int VelEngIsRunning()
{
    return isRunning() ? 1 : 0;
}
