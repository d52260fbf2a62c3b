#include "engine/core/Interruption.h"

namespace velmora::engine {
namespace {

bool g_interrupted = false;

} // namespace

void noteInterruption(bool interrupted)
{
    g_interrupted = interrupted;
}

bool wasInterrupted()
{
    return g_interrupted;
}

} // namespace velmora::engine
