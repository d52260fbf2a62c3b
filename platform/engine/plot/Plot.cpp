#include "engine/plot/Plot.h"

#include "engine/plot/surface/SurfacePlot.h"
#include "engine/plot/xy/XYPlot.h"

namespace velmora::engine {

namespace {

struct PlotMaker {
    Checkpoint& checkpoint;

    std::unique_ptr<Content> operator()(const std::shared_ptr<const Table>& table) const
    {
        return std::make_unique<XYPlot>(table, checkpoint);
    }
    std::unique_ptr<Content> operator()(const std::shared_ptr<const Grid>& grid) const
    {
        return std::make_unique<SurfacePlot>(grid, checkpoint);
    }
};

} // namespace

std::unique_ptr<Content> makePlot(const DataSet& data, Checkpoint& checkpoint)
{
    return std::visit(PlotMaker{checkpoint}, data);
}

} // namespace velmora::engine
