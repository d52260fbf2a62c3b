#pragma once

#include "tests/support/ToolkitWindows.h"

#include <QPoint>
#include <QRect>
#include <QSize>

class QWidget;

namespace velmora::test {

// What the toolkit's pixels are on the screen. They are the same unless the toolkit scales what it shows;
// what these tests expect holds then as well.

/// @{
/// A measure of the widget in pixels of the screen.
QPoint inScreenPixels(const QWidget& widget, const QPoint& position);
QSize inScreenPixels(const QWidget& widget, const QSize& size);
QRect inScreenPixels(const QWidget& widget, const QRect& rect);
/// @}

/// Where a position of the widget is on the screen, as the X server counts.
QPoint placeOnScreen(const QWidget& widget, const QPoint& position);

} // namespace velmora::test
