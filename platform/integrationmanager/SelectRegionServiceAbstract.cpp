#include "integrationmanager/SelectRegionServiceAbstract.h"

#include "engine/VelEng.h"
#include "integrationmanager/CurrentService.h"
#include "integrationmanager/DestructionNote.h"
#include "testing/EngineProbe.h"

namespace velmora::sdk::integration::services {

namespace {

intern::CurrentService<SelectRegionServiceAbstract> current("region selection");

void onSelectItems(double x1, double y1, double x2, double y2, int addToSelection, long /*clientData*/)
{
    current.call(
        [=](SelectRegionServiceAbstract& service) { service.selectItems(x1, y1, x2, y2, addToSelection != 0); });
}

} // namespace

SelectRegionServiceAbstract::SelectRegionServiceAbstract()
{
    velmora::testing::EngineProbe::passPoint("SelectRegionServiceAbstract");
}

SelectRegionServiceAbstract::~SelectRegionServiceAbstract()
{
    current.forget(*this);
    intern::noteDestruction("SelectRegionServiceAbstract");
}

void SelectRegionServiceAbstract::registerCallbacks()
{
    VelEngSelectRegionRegisterCallback(&onSelectItems, 0);
}

void SelectRegionServiceAbstract::makeCurrent()
{
    current.set(*this);
}

} // namespace velmora::sdk::integration::services
