#include "engine/export/PictureRequest.h"

#include "engine/export/ExportFailure.h"

#include <string>

namespace velmora::engine {
namespace {

std::string sizeText(const PictureRequest& request)
{
    return "The image size " + std::to_string(request.width) + "x" + std::to_string(request.height);
}

} // namespace

velmora::sdk::integration::ExportRegion_e regionOfNumber(int number)
{
    using namespace velmora::sdk::integration;
    if (number < ExportRegion_CurrentFrame || number > ExportRegion_WorkArea)
        throw ExportFailure("There is no region " + std::to_string(number) +
                            " of a page. Choose the current frame (0), the page (1) or the work area (2).");
    return static_cast<ExportRegion_e>(number);
}

void checkPictureRequest(const PictureRequest& request)
{
    if (request.width < 1 || request.height < 1)
        throw ExportFailure(sizeText(request) + " is not a size. Width and height must be at least one pixel.");
    if (request.supersample < 1 || request.supersample > LargestSupersample)
        throw ExportFailure("A supersampling of " + std::to_string(request.supersample) +
                            " is not possible. Choose one from 1 to " + std::to_string(LargestSupersample) + ".");
    const int largest = LargestSide / request.supersample;
    if (request.width > largest || request.height > largest)
        throw ExportFailure(sizeText(request) + " is too large: with a supersampling of " +
                            std::to_string(request.supersample) + " no side may have more than " +
                            std::to_string(largest) + " pixels. Reduce the image size or the supersampling.");
}

} // namespace velmora::engine
