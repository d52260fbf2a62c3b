#pragma once

#include "integration/toolkit/DisplayScale.h"

#include <QWidget>

namespace velmora::sdk::integration::toolkit {

/// How many pixels of the screen are one of the receiver's; 1 of a receiver that is no widget.
inline double scaleFor(const QObject& receiver)
{
    return receiver.isWidgetType() ? screenPixelsPerPixel(static_cast<const QWidget&>(receiver)) : 1;
}

} // namespace velmora::sdk::integration::toolkit
