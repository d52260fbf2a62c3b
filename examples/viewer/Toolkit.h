#pragma once

#include <QPointF>
#include <QSize>

class QPageSetupDialog;
class QPainter;
class QPrinter;
class QWheelEvent;

namespace viewer {

// What the toolkits that the viewer is built with do differently; the folders qt4/, qt5/ and qt6/ have the answers.

/// Whether the toolkit runs elsewhere than on X11, as QT_QPA_PLATFORM tells it, one of them without a display.
bool hasPlatforms();

/// The size of all screens together, in the toolkit's pixels.
QSize desktopSize();

/// Whether the printer's paper is known by its size alone.
bool hasCustomPaper(const QPrinter& printer);

/// Has the dialog show the printer's custom paper as it lies, which it takes what is shown for.
void showAsItLies(QPageSetupDialog& dialog, const QPrinter& printer);

/// Has images painted as they are, where the toolkit would compress them as photographs are.
void keepImagesExact(QPainter& painter);

/// A turn of the wheel: where in the widget, and how far up in eighths of a degree.
struct WheelTurn {
    QPointF position;
    int delta;
};
WheelTurn turnOf(const QWheelEvent& event);

} // namespace viewer
