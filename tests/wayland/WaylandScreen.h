#pragma once

#include <QImage>
#include <QRect>

namespace velmora::test {

/// What the compositor shows; null when it takes no picture.
QImage waylandScreen();

/// What differs between two pictures of the screen.
struct Difference {
    QRect extent;   ///< empty when nothing does
    int pixels = 0; ///< how many do
};
Difference difference(const QImage& a, const QImage& b, const QRect& within);

/// The part of the compositor's screen that has the colour; empty when there is none.
QRect extentOnScreen(QRgb color);

} // namespace velmora::test
