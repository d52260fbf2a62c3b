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

    /// Waits until the compositor shows the whole area on its white ground, below which nothing is white.
    bool areaShows()
    {
        const QSize size = inScreenPixels(area(), area().size());
        const bool shows = waitUntil(
            [&] {
                m_area = extentOnScreen(White);
                m_area.setTop(m_area.bottom() - size.height() + 1);
                return qAbs(m_area.width() - size.width()) <= 1;
            },
            Patience);
        m_screen = waylandScreen();
        return shows;
    }

    /// Waits until what has changed in the area since the last of these calls is the frame of a rectangle of that size,
    /// through which the plot shows.
    bool areaComesToDiffer(const QSize& size)
    {
        QImage now;
        const bool differs = waitUntil(
            [&] {
                now = waylandScreen();
                const Difference change = difference(m_screen, now, m_area);
                return isAbout(change.extent, size) && change.pixels < m_area.width() * m_area.height() / 10;
            },
            Patience);
        m_screen = now;
        return differs;
    }

    TempFolder folder;
    std::unique_ptr<viewer::EngineSession> session;
    std::unique_ptr<viewer::MainWindow> window;

private:
    static constexpr QRgb White = 0xffffffff;
    static constexpr int Patience = 30000;

    bool isAbout(const QRect& extent, const QSize& size)
    {
        const QSize off = extent.size() - inScreenPixels(area(), size);
        return qAbs(off.width()) <= 1 && qAbs(off.height()) <= 1;
    }

    QRect m_area;
    QImage m_screen;
};

} // namespace

TEST_F(ViewerOnWayland, SelectsWhatTheRubberBandEnclosesAndShowsTheBandAtThePointer)
{
    ASSERT_TRUE(areaShows());
    send(QEvent::MouseButtonPress, QPoint(100, 60));
    send(QEvent::MouseMove, QPoint(300, 180), Qt::NoButton);
    EXPECT_TRUE(areaComesToDiffer(QSize(201, 121)));
    // From then on, the parts of the two frames that are not of both.
    send(QEvent::MouseMove, QPoint(400, 260), Qt::NoButton);
    EXPECT_TRUE(areaComesToDiffer(QSize(301, 201)));
    send(QEvent::MouseButtonRelease, QPoint(400, 260));
    EXPECT_GE(VelUtilPickGetCount(), 1);
}
