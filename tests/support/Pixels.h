#pragma once

#include <QImage>

class QWidget;

namespace velmora::test {

/// What the X server shows of the widget now, whatever drew it, in pixels of the screen.
QImage grabFromScreen(const QWidget& widget);

/// The fraction (0 to 1) of the pixels of two pictures of the same size that differ by more than
/// `tolerance` in any of the three channels; 1 when the sizes differ.
double differingFraction(const QImage& a, const QImage& b, int tolerance);

/// How many pixels are this colour, within `tolerance` in each channel.
int countColor(const QImage& image, QRgb color, int tolerance = 0);

} // namespace velmora::test
