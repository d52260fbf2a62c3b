#include "../Toolkit.h"

#include <QApplication>
#include <QDesktopWidget>
#include <QDoubleSpinBox>
#include <QPageSetupDialog>
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

void showAsItLies(QPageSetupDialog& dialog, const QPrinter& printer)
{
    QDoubleSpinBox* const width = dialog.findChild<QDoubleSpinBox*>(QLatin1String("paperWidth"));
    QDoubleSpinBox* const height = dialog.findChild<QDoubleSpinBox*>(QLatin1String("paperHeight"));
    if (!width || !height || printer.orientation() == QPrinter::Portrait)
        return;
    const double upright = width->value();
    width->setValue(height->value());
    height->setValue(upright);
}

void keepImagesExact(QPainter&) {}

WheelTurn turnOf(const QWheelEvent& event)
{
    return {event.pos(), event.delta()};
}

} // namespace viewer
