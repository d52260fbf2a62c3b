#include "../Toolkit.h"

#include <QApplication>
#include <QDesktopWidget>
#include <QPainter>
#include <QPrinter>
#include <QWheelEvent>

namespace viewer {

bool hasPlatforms()
{
    return true;
}

QSize desktopSize()
{
    return QApplication::desktop()->size();
}

bool hasCustomPaper(const QPrinter& printer)
{
    return printer.pageSize() == QPrinter::Custom;
}

// In a PDF file a photograph's way of compressing leaves shadows around lines and letters.
void showAsItLies(QPageSetupDialog&, const QPrinter&) {}

void keepImagesExact(QPainter& painter)
{
    painter.setRenderHint(QPainter::LosslessImageRendering);
}

WheelTurn turnOf(const QWheelEvent& event)
{
    return {event.pos(), event.angleDelta().y()};
}

} // namespace viewer
