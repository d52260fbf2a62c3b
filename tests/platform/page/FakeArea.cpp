#include "tests/platform/page/FakeArea.h"

#include "engine/VelEng.h"

namespace velmora::test {

FakeArea::~FakeArea()
{
    detach();
}

void FakeArea::detach()
{
    if (page != 0)
        VelEngPageDetachDrawArea(page);
    page = 0;
}

bool FakeImage::render(sdk::integration::ExportRegion_e region)
{
    return VelEngRenderOffscreenImage(region, this) == 1;
}

} // namespace velmora::test
