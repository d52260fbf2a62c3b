#pragma once

#include <QSize>
#include <QSizeF>

namespace velmora::sdk::integration::toolkit {

/// Whether there are screens to be asked about: there are none without an application object.
bool hasScreens();

/// How many pixels of the screen the toolkit takes for an inch, in each direction. There must be screens.
QSizeF screenPixelsPerInch();

/// The size of all screens together in their own pixels. With a scale that is not whole it may be one
/// pixel off: the toolkit keeps nothing more exact. There must be screens.
QSize sizeOfAllScreens();

} // namespace velmora::sdk::integration::toolkit
