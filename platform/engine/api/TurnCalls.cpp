// When the engine draws what waits.

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "engine/core/Busy.h"
#include "engine/core/Engine.h"
#include "engine/core/LastError.h"
#include "engine/page/Turn.h"

using namespace velmora::engine;

int VelEngTurn()
{
    return takeTurn() ? 1 : 0;
}

int VelUtilWorkFinish()
{
    if (!requireRunning())
        return 0;
    if (isBusy()) {
        setLastError("The engine is busy already. Wait until it is not.");
        return 0;
    }
    return finishAll() ? 1 : 0;
}
