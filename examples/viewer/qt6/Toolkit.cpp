#include "../Toolkit.h"

#include <QGuiApplication>
#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <QScreen>
#include <QWheelEvent>

namespace viewer {

bool hasPlatforms()
{
    return true;
}

QSize desktopSize()
{
    return QGuiApplication::primaryScreen()->virtualSize();
}

bool hasCustomPaper(const QPrinter& printer)
{
    return printer.pageLayout().pageSize().id() == QPageSize::Custom;
}

// In a PDF file a photograph's way of compressing leaves shadows around lines and letters.
void showAsItLies(QPageSetupDialog&, const QPrinter&) {}

void keepImagesExact(QPainter& painter)
{
    painter.setRenderHint(QPainter::LosslessImageRendering);
}

WheelTurn turnOf(const QWheelEvent& event)
{
    return {event.position().toPoint(), event.angleDelta().y()};
}

} // namespace viewer
