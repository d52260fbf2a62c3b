#pragma once

class QSize;
class QWidget;

namespace velmora::sdk::integration::toolkit {

// The engine counts in pixels of the screen, as OpenGL and the window system do. Those of Qt 4 are the same.
// Where the toolkit scales its windows (QT_SCALE_FACTOR, QT_SCREEN_SCALE_FACTORS, a screen of many pixels),
// each of its pixels covers several of the screen, and not always a whole number of them.

/// How many pixels of the screen are one of the widget's, in each direction; 1 on Qt 4 and wherever
/// nothing is scaled. It changes when the widget moves to a screen that is scaled differently. Asked for
/// every mouse event: neither allocates nor locks.
double screenPixelsPerPixel(const QWidget& widget);

/// The widget's size in pixels of the screen, rounded as the toolkit rounds that of its window.
QSize screenSize(const QWidget& widget);

/// For as long as the widget lives: when the window that it is in goes to a screen that is scaled differently, the
/// widget's own native window takes its place and size there. The toolkit leaves it as large as it was.
void followScreenScale(QWidget& widget);

} // namespace velmora::sdk::integration::toolkit
