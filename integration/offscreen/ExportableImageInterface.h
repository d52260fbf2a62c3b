#pragma once

#include <QImage>

namespace velmora::sdk::integration::intern {

/// How the off-screen image service reads an image back.
class ExportableImageInterface {
public:
    /// The pixels drawn so far, the top row first; null when there is nothing to read. Expensive.
    virtual QImage toImage() = 0;
    virtual ~ExportableImageInterface() = default;
};

} // namespace velmora::sdk::integration::intern
