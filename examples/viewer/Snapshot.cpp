#include "Snapshot.h"

#include "Display.h"
#include "FileOutput.h"
#include "NewFile.h"
#include "Options.h"
#include "engine/VelUtil.h"
#include "integration/Manager.h"
#include "integration/glarea/GLDrawArea.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>

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
    while (!exposed && clock.elapsed() < MillisecondsUntilExposed)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    return exposed;
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

} // namespace

int takeSnapshot(const Options& options)
{
    GLDrawArea area;
    requireOpenGL(area);
    area.setWindowFlags(Qt::FramelessWindowHint);
    area.resize(options.pictureSize());
    area.setPageManager(Manager::getInstance().getPageManager());
    if (!waitUntilExposed(area))
        return fail("The window did not appear; is the display usable?");
    if (!VelUtilDataLoad(options.files.first().toUtf8().constData()) || !VelUtilWorkFinish())
        return failWithLastMessage();
    NewFile file(options.output);
    if (grabShown(area).save(file.writtenName(), "PNG") && file.keep())
        return 0;
    return fail(couldNotBeWritten(options.output).constData());
}

} // namespace viewer
