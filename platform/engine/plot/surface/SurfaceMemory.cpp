#include "engine/plot/surface/SurfaceMemory.h"

namespace velmora::engine {

KeptGeometry* SurfaceMemory::geometryOf(unsigned long number)
{
    if (number != 0)
        context = number;
    return number != 0 ? &geometry : nullptr;
}

void SurfaceMemory::leaveContext(unsigned long number, bool isCurrent)
{
    if (number != context)
        return;
    if (isCurrent)
        geometry.release(currentGL());
    geometry.forget();
}

} // namespace velmora::engine
