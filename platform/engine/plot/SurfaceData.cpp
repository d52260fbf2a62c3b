#include "engine/plot/SurfaceData.h"

namespace velmora::engine {

namespace {

std::uint64_t nextNumber()
{
    static std::uint64_t last = 0;
    return ++last;
}

} // namespace

SurfaceData::SurfaceData(std::shared_ptr<const Grid> grid, Breath& breath)
    : number(nextNumber()), shape(*grid), levels(std::move(grid), breath)
{}

} // namespace velmora::engine
