#include "tests/wayland/WaylandScreen.h"

#include <QDir>
#include <QProcess>
#include <QRect>
#include <QTemporaryDir>

namespace velmora::test {

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

Difference difference(const QImage& a, const QImage& b, const QRect& within)
{
    Difference result;
    const QRect common = a.rect() & b.rect() & within;
    for (int y = common.top(); y <= common.bottom(); ++y)
        for (int x = common.left(); x <= common.right(); ++x)
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
