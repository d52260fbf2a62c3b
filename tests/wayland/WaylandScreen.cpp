#include "tests/wayland/WaylandScreen.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QRect>
#include <QTemporaryDir>

namespace velmora::test {

namespace {

constexpr int PanelHeight = 40; // with room to spare
constexpr int MostLooks = 100;

} // namespace

QImage waylandScreen()
{
    const QTemporaryDir folder;
    QProcess shooter;
    shooter.setWorkingDirectory(folder.path());
    shooter.start(QLatin1String("weston-screenshooter"), QStringList());
    if (!shooter.waitForFinished(30000))
        return QImage();
    const QStringList pictures = QDir(folder.path()).entryList({QLatin1String("*.png")});
    return pictures.isEmpty() ? QImage()
                              : QImage(folder.filePath(pictures.front())).convertToFormat(QImage::Format_RGB32);
}

QImage stillWaylandScreen()
{
    QImage last = waylandScreen();
    for (int look = 0; look < MostLooks; ++look) {
        QCoreApplication::processEvents();
        const QImage now = waylandScreen();
        if (!now.isNull() && difference(last, now).pixels == 0)
            return now;
        last = now;
    }
    return QImage();
}

Difference difference(const QImage& a, const QImage& b)
{
    Difference result;
    const QRect common = a.rect() & b.rect();
    for (int y = PanelHeight; y < common.height(); ++y)
        for (int x = 0; x < common.width(); ++x)
            if (a.pixel(x, y) != b.pixel(x, y)) {
                result.extent |= QRect(x, y, 1, 1);
                ++result.pixels;
            }
    return result;
}

QRect extentOnScreen(QRgb color)
{
    const QImage screen = waylandScreen();
    QRect extent;
    for (int y = 0; y < screen.height(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(screen.constScanLine(y));
        for (int x = 0; x < screen.width(); ++x)
            if (row[x] == color)
                extent |= QRect(x, y, 1, 1);
    }
    return extent;
}

} // namespace velmora::test
