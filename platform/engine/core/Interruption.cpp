#include "engine/core/Interruption.h"

#include "engine/VelUtil.h"

namespace velmora::engine {
namespace {

bool g_interrupted = false;

} // namespace

void noteInterruption(bool interrupted)
{
    g_interrupted = interrupted;
}

} // namespace velmora::engine

int VelUtilWasInterrupted()
{
    return velmora::engine::g_interrupted ? 1 : 0;
}
