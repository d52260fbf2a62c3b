#include "Snapshot.h"

#include "Display.h"
#include "EndSignals.h"
#include "FileOutput.h"
#include "NewFile.h"
#include "Options.h"
#include "ScreenPixels.h"
#include "Toolkit.h"
#include "engine/VelUtil.h"
#include "integration/Manager.h"
#include "integration/glarea/GLDrawArea.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <cmath>
#include <qmath.h>

namespace viewer {

using namespace velmora::sdk::integration;

namespace {

constexpr int MillisecondsUntilExposed = 10000;

// The area has been exposed once its page has a size to draw for.
bool waitUntilExposed(GLDrawArea& area)
{
    bool exposed = false;
    const boost::signals2::scoped_connection connection = area.connectDrawAreaExposed([&](bool) { exposed = true; });
    QElapsedTimer clock;
    clock.start();
    area.show();
    area.raise();
    while (!exposed && !endWasAsked() && clock.elapsed() < MillisecondsUntilExposed)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    return exposed;
}

// At least that many pixels of the screen. The toolkit's own may be larger, and where they are not a whole
// number of them it rounds down what it reads back: one more is enough for both.
QSize sizeToGrab(const QSize& size, const GLDrawArea& area)
{
    const double scale = screenPixelsPerPixel(area);
    const int more = scale > std::floor(scale) ? 1 : 0;
    return QSize(qCeil(size.width() / scale) + more, qCeil(size.height() / scale) + more);
}

// A little more where the toolkit's pixels do not make a whole number of the screen's.
QSize sizeOfScreen(const GLDrawArea& area)
{
    const double scale = screenPixelsPerPixel(area);
    const QSize size = desktopSize();
    return QSize(qCeil(size.width() * scale), qCeil(size.height() * scale));
}

bool fits(const QSize& size, const QSize& into)
{
    return size.width() <= into.width() && size.height() <= into.height();
}

int failAsTooLarge(const QSize& largest)
{
    return fail(QString::fromLatin1("A snapshot is of what the screen shows, and cannot be larger than %1x%2 here; "
                                    "--export draws larger images.")
                    .arg(largest.width())
                    .arg(largest.height())
                    .toUtf8()
                    .constData());
}

// After a swap the back buffer, which is what can be read, may hold an older picture; showing the
// finished one this often puts it into every buffer there is.
QImage grabShown(GLDrawArea& area)
{
    constexpr int MostBuffers = 3;
    for (int i = 0; i < MostBuffers; ++i)
        area.repaint();
    return area.grabFrameBuffer();
}

int save(const QImage& picture, const QString& name)
{
    NewFile file(name);
    if (picture.save(file.writtenName(), "PNG") && file.keep())
        return 0;
    return endWasAsked() ? failWithLastMessage() : fail(couldNotBeWritten(name).constData());
}

} // namespace

int takeSnapshot(const Options& options)
{
    GLDrawArea area;
    requireOpenGL(area);
    const QSize screen = sizeOfScreen(area);
    const QSize size = options.size.isValid() ? options.size : options.pictureSize().boundedTo(screen);
    if (!fits(size, screen))
        return failAsTooLarge(screen);
    area.setWindowFlags(Qt::FramelessWindowHint);
    area.resize(sizeToGrab(size, area));
    area.setPageManager(Manager::getInstance().getPageManager());
    if (!waitUntilExposed(area) && !endWasAsked())
        return fail("The window did not appear; is the display usable?");
    if (!loadFirst(options) || !VelUtilWorkFinish())
        return failWithLastMessage();
    const QImage shown = grabShown(area);
    if (!fits(size, shown.size())) // a window manager may know better
        return failAsTooLarge(shown.size());
    return save(shown.copy(QRect(QPoint(0, 0), size)), options.output);
}

} // namespace viewer
