// What happens to an area whose window the toolkit scales, with events and screens as only such a toolkit has them.
#include "integration/toolkit/InputEvents.h"
#include "tests/glarea/DisplayScaleFixture.h"
#include "tests/intern/MonitorHarness.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <memory>

using namespace velmora::sdk::integration;
using namespace velmora::test;
TEST_F(DisplayScale, AnEventThatIsSentAgainKeepsItsPixelOfTheScreen)
{
    const QPoint place(41, 33);
    const QPointF position = QPointF(place) / displayScale(area);
    // As the toolkit makes them: exact in the window alone.
    const QMouseEvent press(QEvent::MouseButtonPress, position.toPoint(), position, position, Qt::LeftButton,
                            Qt::LeftButton, Qt::NoModifier);
    ASSERT_EQ(toolkit::screenPosition(press, area), place);
    Probe::EventCloner cloner;
    Monitor::eventAnalyzer(press, area, cloner);
    const std::unique_ptr<QEvent> copy(cloner.clonedEvent());
    ASSERT_TRUE(copy);
    EXPECT_EQ(toolkit::screenPosition(static_cast<const QMouseEvent&>(*copy), area), place);
}

// As when the window is moved to a screen that is scaled differently.
TEST_F(DisplayScale, AnotherScaleIsAnotherSizeThoughTheWidgetKeepsIts)
{
    if (qgetenv("QT_SCREEN_SCALE_FACTORS").isEmpty())
        GTEST_SKIP() << "The toolkit scales no screen by itself.";
    const QSize before = toldSize(area);
    area.repaint();
    ASSERT_FALSE(painter.exposures.back());
    QScreen* const screen = QGuiApplication::primaryScreen();
    screen->setProperty("_q_scaleFactor", displayScale(area) * 2);
    area.repaint();
    EXPECT_NEAR(toldSize(area).width(), before.width() * 2, 1);
    EXPECT_TRUE(painter.exposures.back());
    area.repaint();
    EXPECT_FALSE(painter.exposures.back());
    screen->setProperty("_q_scaleFactor", QVariant());
}
