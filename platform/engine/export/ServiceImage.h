#pragma once

#include "engine/export/PictureRequest.h"

namespace velmora::sdk::integration {
class OffscreenImageInterface;
}

namespace velmora::engine {

/// An off-screen image of the binding's service, given back at the end of its life. All pixels must
/// be drawn before the first row is read, and only one of these may live at a time: the service
/// reads an image back as a whole and keeps that for the rows that follow. It may be drawn and read again.
class ServiceImage {
public:
    /// Throws ImageRefused when there is none of that size, ExportFailure when there is no service.
    ServiceImage(int width, int height, int strategy);
    ~ServiceImage();
    ServiceImage(const ServiceImage&) = delete;
    ServiceImage& operator=(const ServiceImage&) = delete;

    int width() const;
    int height() const;

    /// Draws the part of the picture that the current ExportRequest describes. Throws ImageRefused,
    /// ExportFailure or ExportInterrupted.
    void draw(velmora::sdk::integration::ExportRegion_e region);
    /// Reads a row, 0 at the top; each plane has room for the image's width. Throws ImageRefused.
    void readRow(int row, unsigned char* red, unsigned char* green, unsigned char* blue);

private:
    velmora::sdk::integration::OffscreenImageInterface* m_image;
};

} // namespace velmora::engine
