#include "engine/plot/Plot.h"

#include "engine/plot/SurfacePlot.h"
#include "engine/plot/XYPlot.h"

namespace velmora::engine {

std::unique_ptr<Plot> makePlot(const DataSet& data, Checkpoint& checkpoint)
{
    if (const auto* table = std::get_if<std::shared_ptr<const Table>>(&data))
        return std::make_unique<XYPlot>(*table, checkpoint);
    return std::make_unique<SurfacePlot>(std::get<std::shared_ptr<const Grid>>(data), checkpoint);
}

} // namespace velmora::engine
