// The library as a native Wayland client: there is no X server, and nobody can move the pointer.
#include "integration/StyleSettings.h"
#include "integration/glarea/GoodVisualChooserQGLContext.h"
#include "integration/glarea/VisualList.h"
#include "integration/services/CursorShapeService.h"
#include "integration/services/ManagerMiscService.h"
#include "integration/services/MessageBoxService.h"
#include "integration/toolkit/Exposure.h"
#include "integration/toolkit/XDisplay.h"
#include "interfaces/PageInterface.h"
#include "tests/glarea/DrawAreaFixture.h"
#include "tests/support/DisplayScale.h"
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"
#include "tests/wayland/WaylandScreen.h"
#include "toolbox/StyleValue.h"

#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QWindow>

using namespace velmora::sdk::integration;
using namespace velmora::test;
using velmora::toolbox::StyleValue;

namespace {

/// The page that the area shows.
class Page : public PageInterface {
public:
    explicit Page(GLDrawAreaInterface& area) : m_area(area) {}
    GLDrawAreaInterface* getDrawArea() const override { return &m_area; }
    int pageNumber() const override { return 1; }

private:
    GLDrawAreaInterface& m_area;
};

/// A window with an area that is painted green on every exposure.
class Wayland : public DrawArea {
protected:
    void SetUp() override
    {
        DrawArea::SetUp();
        ASSERT_EQ(QGuiApplication::platformName(), QLatin1String("wayland"));
        window.resize(400, 300);
    }

    /// Whether the compositor comes to show the whole widget, and nothing but it, in the colour. Where it is scaled by
    /// a fraction, its edge may be rounded otherwise.
    static bool comesToBeSeen(const QWidget& shown, QRgb color = Green)
    {
        const QSize size = inScreenPixels(shown, shown.size());
        return waitUntil(
            [&] {
                const QSize off = extentOnScreen(color).size() - size;
                return qAbs(off.width()) <= 1 && qAbs(off.height()) <= 1;
            },
            20000);
    }

    QMainWindow window;
    GLDrawArea& area = *new GLDrawArea(&window); // the window's child
    Painter painter{area, Green};
};

} // namespace

TEST_F(Wayland, AnAreaInAMainWindowShowsWhatIsDrawnInIt)
{
    window.setCentralWidget(&area);
    ASSERT_TRUE(showAndWait(window));
    EXPECT_TRUE(comesToBeSeen(area));
}

TEST_F(Wayland, AnAreaThatIsMadeLargerIsDrawnAnew)
{
    window.setCentralWidget(&area);
    // The compositor places the window so that its first size is on the screen.
    window.resize(500, 380);
    ASSERT_TRUE(showAndWait(window));
    window.resize(400, 300);
    ASSERT_TRUE(waitUntil([&] { return area.width() == 400; }));
    ASSERT_TRUE(comesToBeSeen(area));
    window.resize(500, 380);
    ASSERT_TRUE(waitUntil([&] { return area.width() == 500; }));
    EXPECT_TRUE(comesToBeSeen(area));
}

TEST_F(Wayland, AnAreaInADockShowsToo)
{
    QDockWidget dock;
    dock.setWidget(&area);
    window.addDockWidget(Qt::LeftDockWidgetArea, &dock);
    ASSERT_TRUE(showAndWait(window));
    EXPECT_TRUE(comesToBeSeen(area));
    dock.hide();
    ASSERT_TRUE(waitUntil([&] { return extentOnScreen(Green).isEmpty(); }, 20000));
    dock.show();
    EXPECT_TRUE(comesToBeSeen(area));
    dock.setWidget(nullptr);
    area.setParent(&window);
}

TEST_F(Wayland, WhatIsSwappedOutsideOfAPaintEventShows)
{
    window.setCentralWidget(&area);
    ASSERT_TRUE(showAndWait(window));
    ASSERT_TRUE(comesToBeSeen(area));
    area.getGLContext().setCurrentGL();
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    area.getGLContext().swapBuffers();
    EXPECT_TRUE(comesToBeSeen(area, qRgb(0, 0, 255)));
}

TEST_F(Wayland, AHiddenAreaHasAContextAndSwappingItDoesNotBlock)
{
    ASSERT_TRUE(area.isValidWidget());
    area.getGLContext().setCurrentGL();
    EXPECT_NE(glGetString(GL_VERSION), nullptr);
    EXPECT_FALSE(toolkit::isReadyToSwap(area));
    area.getGLContext().swapBuffers();
}

TEST_F(Wayland, TheToolkitChoosesTheVisualAndNoneIsWrittenDown)
{
    const StyleValue section("Interface", "OpenGLConfig");
    writeStyleInteger(section, "UseAdvancedVisualChooser", 1);
    EXPECT_EQ(toolkit::xDisplay(), nullptr);
    EXPECT_TRUE(VisualList().isEmpty());
    EXPECT_EQ(GoodVisualChooserQGLContext().chooseVisual(), nullptr);
    EXPECT_TRUE(GLDrawArea().isValidWidget());
    EXPECT_EQ(readStyleInteger(section, "VisualID", -1), 0);
    writeStyleInteger(section, "UseAdvancedVisualChooser", 0);
}

TEST_F(Wayland, TheMiscServiceKnowsTheScreenAndOpenGL)
{
    const services::ManagerMiscService service;
    int width = 0;
    int height = 0;
    service.getScreenSizeInPixels(&width, &height);
    const QSize screen = waylandScreen().size();
    EXPECT_NEAR(width, screen.width(), 1);
    EXPECT_NEAR(height, screen.height(), 1);
    EXPECT_EQ(service.keyboardModifiers(), 0);
    EXPECT_FALSE(service.mouseButtonState(MouseEventInterface::MouseButton_Left));
    EXPECT_FALSE(service.openGLVersionString().empty());
}

TEST_F(Wayland, EveryCursorShapeCanBeSetAndTakenBack)
{
    window.setCentralWidget(&area);
    ASSERT_TRUE(showAndWait(window));
    services::CursorShapeService service;
    Page page(area);
    for (int style = 0; style < 32; ++style)
        service.setBaseCursorStyle(&page, static_cast<CursorStyle_e>(style));
    processPending();
    EXPECT_TRUE(window.isVisible());
}

TEST_F(Wayland, AMessageBoxIsShownAndAnswered)
{
    ASSERT_TRUE(showAndWait(window));
    QTimer clicker;
    bool wasShown = false;
    QObject::connect(&clicker, &QTimer::timeout, [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || !box->windowHandle() || !box->windowHandle()->isExposed())
            return;
        wasShown = true;
        box->button(QMessageBox::Yes)->click();
    });
    clicker.start(20);
    services::MessageBoxService service;
    EXPECT_EQ(service.displayMessageBox("Shall it?", static_cast<MessageBoxType_e>(4)), 0u);
    EXPECT_TRUE(wasShown);
}
