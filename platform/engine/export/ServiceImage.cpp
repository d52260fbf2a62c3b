#include "engine/export/ServiceImage.h"

#include "engine/VelUtil.h"
#include "engine/core/Callbacks.h"
#include "engine/core/LastError.h"
#include "engine/export/ExportFailure.h"
#include "engine/page/ExportRequest.h"
#include "interfaces/OffscreenImageInterface.h"

#include <exception>
#include <string>

namespace velmora::engine {
namespace {

using velmora::sdk::integration::OffscreenImageInterface;

constexpr const char* NoService =
    "There is no off-screen image service. Start the engine through the manager, which registers one.";
constexpr const char* NoImage = "There is no off-screen image to draw into. Try another image size or strategy.";
constexpr const char* NotDrawn =
    "The off-screen image could not be drawn into. Try a smaller image or the other strategy.";
constexpr const char* NotRead =
    "The off-screen image could not be read back. Try a smaller image or the other strategy.";

// The service may be taken away in the application's turn, so it is asked for each time.
const VelEngOffscreenImageCallbacks& service()
{
    const VelEngOffscreenImageCallbacks& found = callbacks().offscreenImage;
    if (!found.imageCreate || !found.imageGetRGBRow || !found.imageDestroy)
        throw ExportFailure(NoService);
    return found;
}

long clientData()
{
    return callbacks().offscreenImageClientData;
}

OffscreenImageInterface* create(int width, int height, int strategy)
{
    const VelEngOffscreenImageCallbacks& from = service();
    try {
        return from.imageCreate(width, height, strategy, clientData());
    } catch (const std::exception& error) {
        throw ImageRefused(error.what());
    }
}

// A service that the process is about to lose cannot be asked to take its image back.
void giveBack(OffscreenImageInterface* image) noexcept
{
    try {
        if (callbacks().offscreenImage.imageDestroy)
            callbacks().offscreenImage.imageDestroy(image, clientData());
    } catch (...) {
        setLastErrorFromException("The off-screen image could not be given back");
    }
}

std::string lastErrorOr(const char* otherwise)
{
    const std::string told = VelUtilLastErrorMessage();
    return told.empty() ? otherwise : told;
}

} // namespace

ServiceImage::ServiceImage(int width, int height, int strategy) : m_image(create(width, height, strategy))
{
    if (!m_image)
        throw ImageRefused(NoImage);
    if (m_image->width() == width && m_image->height() == height)
        return;
    giveBack(m_image);
    throw ImageRefused(NoImage);
}

ServiceImage::~ServiceImage()
{
    giveBack(m_image);
}

int ServiceImage::width() const
{
    return m_image->width();
}

int ServiceImage::height() const
{
    return m_image->height();
}

// Whether the image was drawn is known from the drawing itself: an image of the binding may answer
// for no more than its pixels being there, even if the drawing was interrupted.
void ServiceImage::draw(velmora::sdk::integration::ExportRegion_e region)
{
    clearLastError();
    // The service forgets the rows of the drawing before when it is given an image back, also none.
    giveBack(nullptr);
    noteImageDrawing(ImageDrawing::NotBegun);
    const bool rendered = m_image->render(region);
    const ImageDrawing drawing = lastImageDrawing();
    if (drawing == ImageDrawing::Interrupted)
        throw ExportInterrupted();
    if (drawing == ImageDrawing::Failed)
        throw ExportFailure(lastErrorOr(NotDrawn));
    if (!rendered || drawing == ImageDrawing::NotBegun)
        throw ImageRefused(lastErrorOr(NotDrawn));
}

void ServiceImage::readRow(int row, unsigned char* red, unsigned char* green, unsigned char* blue)
{
    if (!service().imageGetRGBRow(m_image, row, red, green, blue, clientData()))
        throw ImageRefused(NotRead);
}

} // namespace velmora::engine
