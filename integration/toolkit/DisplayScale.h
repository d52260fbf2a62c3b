#pragma once

#include <QPoint>
#include <QSize>
#include <memory>

class QDesktopWidget;
class QMouseEvent;
class QObject;
class QWheelEvent;
class QWidget;

namespace velmora::sdk::integration::toolkit {

// The engine counts in pixels of the screen, as OpenGL and the X server do. Those of Qt 4 are the same.
// Where Qt 5 scales its windows (QT_SCALE_FACTOR, QT_SCREEN_SCALE_FACTORS, Qt::AA_EnableHighDpiScaling),
// each of its pixels covers several of the screen, and not always a whole number of them.

/// How many pixels of the screen are one of the widget's, in each direction; 1 on Qt 4 and wherever
/// nothing is scaled. It changes when the widget moves to a screen that is scaled differently. Asked for
/// every mouse event: neither allocates nor locks.
double screenPixelsPerPixel(const QWidget& widget);

/// The widget's size in pixels of the screen, rounded as the toolkit rounds that of its window.
QSize screenSize(const QWidget& widget);

/// The size of all screens together in their own pixels. With a scale that is not whole it may be one
/// pixel off: the toolkit keeps nothing more exact.
QSize screenSize(const QDesktopWidget& desktop);

/// @{
/// Where in its receiver the event happened, in pixels of the screen. For a mouse event it is the very
/// pixel; for a wheel event the toolkit tells no more than its own, larger one. Of a receiver that is no
/// widget nothing is known: the event's position as it is.
QPoint screenPosition(const QMouseEvent& event, const QObject& receiver);
QPoint screenPosition(const QWheelEvent& event, const QObject& receiver);
/// @}

/// A new event of the same type, position, buttons and modifiers; its position is as exact. Not
/// spontaneous.
std::unique_ptr<QMouseEvent> copyOf(const QMouseEvent& event);

} // namespace velmora::sdk::integration::toolkit
