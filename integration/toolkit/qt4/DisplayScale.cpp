#include "integration/toolkit/DisplayScale.h"

#include <QWidget>

namespace velmora::sdk::integration::toolkit {

double screenPixelsPerPixel(const QWidget&)
{
    return 1;
}

QSize screenSize(const QWidget& widget)
{
    return widget.size();
}

void followScreenScale(QWidget&) {}

} // namespace velmora::sdk::integration::toolkit
