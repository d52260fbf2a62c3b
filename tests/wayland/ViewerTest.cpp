// The viewer as a native Wayland client. Nobody can move the pointer there, so that the toolkit's own mouse events
// stand for a person.
#include "EngineSession.h"
#include "MainWindow.h"
#include "engine/VelUtil.h"
#include "integration/glarea/GLDrawArea.h"
#include "tests/support/DisplayScale.h"
#include "tests/support/Wait.h"
#include "tests/viewer/TempFolder.h"
#include "tests/wayland/WaylandScreen.h"

#include <QAction>
#include <QApplication>
#include <QMouseEvent>
#include <QSettings>
#include <gtest/gtest.h>

using namespace velmora::test;

namespace {

class ViewerOnWayland : public ::testing::Test {
protected:
    ViewerOnWayland()
    {
        QApplication::setOrganizationName("Velmora");
        QApplication::setApplicationName("ViewerTest");
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
        static char programName[] = "viewer";
        char* arguments[] = {programName, nullptr};
        session = std::make_unique<viewer::EngineSession>(1, arguments);
        window = std::make_unique<viewer::MainWindow>();
        window->resize(560, 440);
        EXPECT_TRUE(showAndWait(*window));
        window->openFile(folder.writeTable());
        EXPECT_TRUE(waitUntil([] { return !VelUtilIsBusy() && VelUtilPageIsComplete(); }));
        const QList<QAction*> actions = window->findChildren<QAction*>();
        for (QAction* const action : actions)
            if (action->text() == QLatin1String("&Select"))
                action->trigger();
    }

    QWidget& area() { return window->drawArea(); }

    void send(QEvent::Type type, const QPoint& place, Qt::MouseButton button = Qt::LeftButton)
    {
        const QPointF inWindow = area().mapTo(window.get(), place);
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, place, inWindow, area().mapToGlobal(QPointF(place)), button, held, Qt::NoModifier);
        QApplication::sendEvent(&area(), &event);
    }

    TempFolder folder;
    std::unique_ptr<viewer::EngineSession> session;
    std::unique_ptr<viewer::MainWindow> window;
};

} // namespace

TEST_F(ViewerOnWayland, SelectsWhatTheRubberBandEnclosesAndShowsTheBandAtThePointer)
{
    send(QEvent::MouseButtonPress, QPoint(100, 60));
    send(QEvent::MouseMove, QPoint(300, 180), Qt::NoButton);
    const QImage before = stillWaylandScreen();
    send(QEvent::MouseMove, QPoint(400, 260), Qt::NoButton);
    // The parts of the two frames that are not of both.
    const QSize wanted = inScreenPixels(area(), QSize(301, 201));
    Difference shown;
    EXPECT_TRUE(waitUntil(
        [&] {
            shown = difference(before, waylandScreen());
            const QSize off = shown.extent.size() - wanted;
            return qAbs(off.width()) <= 1 && qAbs(off.height()) <= 1;
        },
        20000))
        << shown.extent.width() << " x " << shown.extent.height();
    EXPECT_LT(shown.pixels, wanted.width() * wanted.height() / 10) << "the plot shows through it";
    send(QEvent::MouseButtonRelease, QPoint(400, 260));
    EXPECT_GE(VelUtilPickGetCount(), 1);
}
