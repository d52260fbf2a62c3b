#pragma once

#include "interfaces/EngineEnumerations.h"

namespace velmora::engine {

/// A picture of a page, as rows of pixels.
struct PictureRequest {
    int width = 0; ///< pixels of the finished picture
    int height = 0;
    int supersample = 1; ///< drawn that many times larger in each direction, and averaged
    velmora::sdk::integration::ExportRegion_e region = velmora::sdk::integration::ExportRegion_CurrentFrame;
    int strategy = 0;
    bool transparent = false;  ///< without the ground: rows have alpha
    double pixelsPerPoint = 0; ///< of text and lines, in finished pixels; 0: as the region has it

    int bytesPerPixel() const { return transparent ? 4 : 3; }
    int drawnWidth() const { return width * supersample; }
    int drawnHeight() const { return height * supersample; }
};

/// The least and the largest of what can be asked for.
constexpr int LargestSupersample = 8;
/// Pixels in one direction, as drawn. Beyond it the single precision of OpenGL shows.
constexpr int LargestSide = 1000000;

/// Throws ExportFailure when there is no such region.
velmora::sdk::integration::ExportRegion_e regionOfNumber(int number);
/// Throws ExportFailure for a size or a factor that no picture can have.
void checkPictureRequest(const PictureRequest& request);

} // namespace velmora::engine
