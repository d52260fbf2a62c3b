#pragma once

#include <QImage>
#include <QRect>

namespace velmora::test {

/// What the compositor shows; null when it takes no picture.
QImage waylandScreen();

/// The same once it stands still; null when it never does.
QImage stillWaylandScreen();

/// What differs between two pictures of the screen.
struct Difference {
    QRect extent;   ///< empty when nothing does
    int pixels = 0; ///< how many do
};
/// Below the compositor's panel, which shows the time.
Difference difference(const QImage& a, const QImage& b);

/// The part of the compositor's screen that has the colour; empty when there is none.
QRect extentOnScreen(QRgb color);

} // namespace velmora::test
