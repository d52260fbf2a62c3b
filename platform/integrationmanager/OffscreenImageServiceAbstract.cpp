#include "integrationmanager/OffscreenImageServiceAbstract.h"

#include "engine/VelEng.h"
#include "exception/ExceptionBase.h"
#include "integrationmanager/CurrentService.h"
#include "integrationmanager/DestructionNote.h"
#include "testing/EngineProbe.h"

namespace velmora::sdk::integration::services {

namespace {

intern::CurrentService<OffscreenImageServiceAbstract> current("off-screen image");

/// The one callback that the engine takes an exception from, and only one of our own kind.
OffscreenImageInterface* onImageCreate(int width, int height, int strategy, long /*clientData*/)
{
    if (current.get() == nullptr)
        return nullptr;
    try {
        return current.get()->imageCreate(width, height, static_cast<ImageRenderingStrategy_e>(strategy));
    } catch (const ExceptionBase&) {
        throw;
    } catch (const std::exception& exception) {
        throw ExceptionBase(exception.what(), false);
    } catch (...) {
        throw ExceptionBase("The off-screen image service failed for an unknown reason.", false);
    }
}

int onImageGetRGBRow(OffscreenImageInterface* image, int row, unsigned char* red, unsigned char* green,
                     unsigned char* blue, long /*clientData*/)
{
    return current.ask(0, [=](OffscreenImageServiceAbstract& service) {
        return service.imageGetRGBRow(image, row, red, green, blue) ? 1 : 0;
    });
}

void onImageDestroy(OffscreenImageInterface* image, long /*clientData*/)
{
    current.call([image](OffscreenImageServiceAbstract& service) { service.imageDestroy(image); });
}

constexpr VelEngOffscreenImageCallbacks Callbacks = {&onImageCreate, &onImageGetRGBRow, &onImageDestroy};

} // namespace

OffscreenImageServiceAbstract::OffscreenImageServiceAbstract()
{
    velmora::testing::EngineProbe::passPoint("OffscreenImageServiceAbstract");
}

OffscreenImageServiceAbstract::~OffscreenImageServiceAbstract()
{
    current.forget(*this);
    intern::noteDestruction("OffscreenImageServiceAbstract");
}

void OffscreenImageServiceAbstract::registerCallbacks()
{
    VelEngOffscreenImageRegisterCallbacks(&Callbacks, 0);
}

void OffscreenImageServiceAbstract::makeCurrent()
{
    current.set(*this);
}

} // namespace velmora::sdk::integration::services
