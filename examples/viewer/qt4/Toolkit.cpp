#include "../Toolkit.h"

#include <QApplication>
#include <QDesktopWidget>
#include <QPrinter>
#include <QWheelEvent>

namespace viewer {

bool hasPlatforms()
{
    return false;
}

QSize desktopSize()
{
    return QApplication::desktop()->size();
}

bool hasCustomPaper(const QPrinter& printer)
{
    return printer.pageSize() == QPrinter::Custom;
}

void keepImagesExact(QPainter&) {}

WheelTurn turnOf(const QWheelEvent& event)
{
    return {event.pos(), event.delta()};
}

} // namespace viewer
