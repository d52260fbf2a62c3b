#include "tests/support/Pixels.h"

#include "tests/support/DisplayScale.h"

#include <QPoint>
#include <QWidget>
#include <cstdlib>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace velmora::test {

QImage grabFromScreen(const QWidget& widget)
{
    Display* const display = toolkitDisplay();
    XSync(display, False);
    const QPoint origin = placeOnScreen(widget, QPoint(0, 0));
    const QSize size = inScreenPixels(widget, widget.size());
    XImage* const shot =
        XGetImage(display, DefaultRootWindow(display), origin.x(), origin.y(), static_cast<unsigned>(size.width()),
                  static_cast<unsigned>(size.height()), AllPlanes, ZPixmap);
    if (!shot)
        return QImage();
    QImage image(shot->width, shot->height, QImage::Format_RGB32);
    for (int y = 0; y < shot->height; ++y)
        for (int x = 0; x < shot->width; ++x)
            image.setPixel(x, y, 0xff000000u | static_cast<QRgb>(XGetPixel(shot, x, y)));
    XDestroyImage(shot);
    return image;
}

namespace {

bool isNear(QRgb a, QRgb b, int tolerance)
{
    return std::abs(qRed(a) - qRed(b)) <= tolerance && std::abs(qGreen(a) - qGreen(b)) <= tolerance &&
           std::abs(qBlue(a) - qBlue(b)) <= tolerance;
}

} // namespace

double differingFraction(const QImage& a, const QImage& b, int tolerance)
{
    if (a.size() != b.size() || a.isNull())
        return 1.0;
    long differing = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            differing += isNear(a.pixel(x, y), b.pixel(x, y), tolerance) ? 0 : 1;
    return static_cast<double>(differing) / (static_cast<double>(a.width()) * a.height());
}

int countColor(const QImage& image, QRgb color, int tolerance)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += isNear(image.pixel(x, y), color, tolerance) ? 1 : 0;
    return count;
}

} // namespace velmora::test
