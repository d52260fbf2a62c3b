#pragma once

#include <QRect>
#include <vector>

class QWidget;

// Declared as Xlib does, so that its macros stay out of this header.
typedef struct _XDisplay Display; // NOLINT(bugprone-reserved-identifier)

namespace velmora::test {

/// How many pixels of the screen are one of the widget's, in each direction.
double displayScale(const QWidget& widget);

/// How many times the pixels that the X server says are an inch are one where the widget is.
double inchScale(const QWidget& widget);

/// Where the screens are, in the toolkit's pixels.
std::vector<QRect> screenGeometries();

/// The toolkit's own connection to the X server.
Display* toolkitDisplay();

/// Whether the toolkit has taken up all events that the X server has sent to it before a request was answered.
bool toolkitHasReadAll();

} // namespace velmora::test
