#include "engine/plot/surface/SurfaceData.h"

namespace velmora::engine {

namespace {

std::uint64_t nextNumber()
{
    static std::uint64_t last = 0;
    return ++last;
}

} // namespace

SurfaceData::SurfaceData(std::shared_ptr<const Grid> grid, Checkpoint& checkpoint)
    : number(nextNumber()), shape(*grid), sharedLevels(std::make_shared<SurfaceLevels>(std::move(grid), checkpoint))
{}

SurfaceData::SurfaceData(const SurfaceData& other, const SurfaceLook& look)
    : number(nextNumber()), shape(other.grid(), look), sharedLevels(other.sharedLevels)
{}

} // namespace velmora::engine
