// Starting and stopping the engine, and what it is doing.

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "engine/core/Busy.h"
#include "engine/core/Engine.h"
#include "engine/core/Interruption.h"
#include "engine/core/LastError.h"
#include "engine/page/Pages.h"
#include "engine/style/StyleTree.h"

#include <cstdlib>
#include <cstring>

using namespace velmora::engine;

namespace {

bool environmentAsksForPrintDebug()
{
    const char* value = std::getenv("VELMORA_PRINT_DEBUG");
    return value && *value && std::strcmp(value, "0") != 0;
}

} // namespace

int VelEngStart(const char*, const char*)
{
    if (isRunning()) {
        setLastError("The engine runs already. Stop it before starting it again.");
        return 0;
    }
    setRunning(true);
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
    setRunning(false);
}

int VelEngIsRunning()
{
    return isRunning() ? 1 : 0;
}

int VelUtilIsBusy()
{
    return isBusy() ? 1 : 0;
}

double VelUtilWorkProgress()
{
    return workProgress();
}

int VelUtilWasInterrupted()
{
    return wasInterrupted() ? 1 : 0;
}

bool VelUtilInternalIsPrintDebugOn()
{
    return environmentAsksForPrintDebug() || style::lookupBool("Interface/PrintDebug");
}
