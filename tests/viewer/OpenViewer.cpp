#include "tests/viewer/OpenViewer.h"

#include "ScreenPixels.h"
#include "engine/VelUtil.h"
#include "testing/EngineProbe.h"
#include "tests/support/DisplayScale.h"
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "tests/viewer/EventWatch.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QStatusBar>
#include <QToolBar>

namespace velmora::test {

namespace {

constexpr int LongestDrawingMilliseconds = 60000;
constexpr int ColourTolerance = 8;
constexpr double FewPixels = 0.0005;

} // namespace

OpenViewer::OpenViewer()
{
    velmora::testing::EngineProbe::reset();
    QApplication::setOrganizationName("Velmora");
    QApplication::setApplicationName("ViewerTest");
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    static char programName[] = "viewer";
    char* arguments[] = {programName, nullptr};
    session = std::make_unique<viewer::EngineSession>(1, arguments);
    EXPECT_EQ(session->error().toStdString(), "");
    window = std::make_unique<viewer::MainWindow>();
    window->setGeometry(40, 40, 700, 560);
    EXPECT_TRUE(showAndWait(*window));
    focusWindow(*window);
    EXPECT_TRUE(waitUntil([&] { return QApplication::activeWindow() == window.get(); }));
}

OpenViewer::~OpenViewer()
{
    velmora::testing::EngineProbe::reset();
    window.reset();
}

bool OpenViewer::settle()
{
    const auto settled = [] { return !VelUtilIsBusy() && (VelUtilPageIsComplete() || VelUtilPageIsInterrupted()); };
    // A second time, because what was posted may ask for the picture again.
    for (int round = 0; round < 2; ++round) {
        if (!waitUntil(settled, LongestDrawingMilliseconds))
            return false;
        processPending();
    }
    return settled();
}

void OpenViewer::open(const QString& fileName)
{
    window->openFile(fileName);
    EXPECT_TRUE(settle());
    EXPECT_TRUE(VelUtilPageIsComplete());
}

QImage OpenViewer::shown() const
{
    return grabFromScreen(window->drawArea());
}

QImage OpenViewer::picture()
{
    EXPECT_TRUE(settle());
    VelUtilViewUnmark(); // until the next idle time
    return shown();
}

QImage OpenViewer::part(const QImage& picture, const QRect& rect)
{
    return picture.copy(inScreenPixels(area(), rect));
}

QPoint OpenViewer::placeOf(const QString& value)
{
    const double scale = viewer::screenPixelsPerPixel(window->drawArea());
    double xShown = 0.0;
    double yShown = 0.0;
    for (int y = 0; y < area().height(); y += 4)
        for (int x = 0; x < area().width(); x += 4)
            if (value == VelUtilViewValueAt(x * scale, y * scale, &xShown, &yShown))
                return QPointF(xShown / scale, yShown / scale).toPoint();
    return QPoint();
}

QPoint OpenViewer::legendEntry(int line)
{
    const double scale = viewer::screenPixelsPerPixel(window->drawArea());
    for (int y = 0; y < area().height(); y += 3)
        for (int x = 0; x < area().width(); x += 3)
            if (VelUtilLegendLineAt(x * scale, y * scale) == line)
                return QPoint(x + 3, y + 3);
    ADD_FAILURE() << "no entry of line " << line;
    return QPoint();
}

void OpenViewer::press(const QPoint& position, int button)
{
    movePointer(area(), position);
    // Soon after another one at the same place, of another window even, it may be a double click's.
    const int interval = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(0);
    const EventWatch pressed(QEvent::MouseButtonPress);
    pressButton(button);
    pressed.wait();
    QApplication::setDoubleClickInterval(interval);
}

void OpenViewer::release(int button)
{
    const EventWatch released(QEvent::MouseButtonRelease);
    releaseButton(button);
    released.wait();
}

void OpenViewer::drag(const QPoint& way, int button)
{
    EXPECT_TRUE(settle());
    press(centre(), button);
    movePointer(area(), centre() + way / 2);
    processPending();
    movePointer(area(), centre() + way);
    release(button);
}

void OpenViewer::wheel(bool up)
{
    const EventWatch turned(QEvent::Wheel);
    turnWheel(up);
    turned.wait();
}

void OpenViewer::type(unsigned long keySymbol)
{
    focusWindow(*window);
    const EventWatch released(QEvent::KeyRelease);
    typeKey(keySymbol);
    released.wait();
}

void OpenViewer::typeWith(unsigned long modifier, unsigned long keySymbol)
{
    pressKey(modifier);
    type(keySymbol);
    releaseKey(modifier);
}

QWidget* OpenViewer::tool(const char* text) const
{
    return window->findChild<QToolBar*>()->widgetForAction(action(text));
}

void OpenViewer::clickTool(const char* text)
{
    settle(); // not for long while the surface turns by itself
    const QWidget& button = *tool(text);
    const EventWatch released(QEvent::MouseButtonRelease);
    click(button, button.rect().center());
    released.wait();
}

QPushButton* OpenViewer::button(const char* text) const
{
    const QList<QPushButton*> buttons = window->findChildren<QPushButton*>();
    for (QPushButton* const button : buttons)
        if (button->text() == QLatin1String(text))
            return button;
    throw std::runtime_error(std::string("There is no button ") + text);
}

QAction* OpenViewer::action(const char* text) const
{
    const QList<QAction*> actions = window->findChildren<QAction*>();
    for (QAction* const action : actions)
        if (action->text() == QLatin1String(text))
            return action;
    throw std::runtime_error(std::string("There is no action ") + text);
}

QProgressBar* OpenViewer::progressBar() const
{
    return window->findChild<QProgressBar*>();
}

bool OpenViewer::statusBarSays(const QString& text) const
{
    const QList<QLabel*> labels = window->statusBar()->findChildren<QLabel*>();
    for (const QLabel* const label : labels)
        if (label->isVisible() && label->text() == text)
            return true;
    return false;
}

std::string OpenViewer::note() const
{
    return window->statusBar()->currentMessage().toStdString();
}

bool differ(const QImage& a, const QImage& b)
{
    return differingFraction(a, b, ColourTolerance) > FewPixels;
}

} // namespace velmora::test
