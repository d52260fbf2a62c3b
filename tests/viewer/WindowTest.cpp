// The viewer's window in a person's hands: real keys, clicks and drags, and what the screen shows.

#include "tests/viewer/OpenViewer.h"

#include "engine/VelUtil.h"
#include "tests/services/ModalDriver.h"
#include "tests/support/DisplayScale.h"
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "tests/viewer/Onlooker.h"
#include "tests/viewer/PictureColours.h"

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QFile>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QUrl>
#include <string>

using namespace velmora::test;

namespace {

class Window : public OpenViewer {
protected:
    QList<QAction*> recentFiles() const
    {
        const QList<QMenu*> menus = window->findChildren<QMenu*>();
        for (const QMenu* const menu : menus)
            if (menu->title() == QLatin1String("Open &Recent"))
                return menu->actions();
        return QList<QAction*>();
    }

    void drop(const QMimeData& data)
    {
        const QPoint where(100, 100);
        QDragEnterEvent enter(where, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &enter);
        if (!enter.isAccepted())
            return;
        QDropEvent event(where, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &event);
        processPending();
    }
};

// The fixture's window with a surface in it.
class Surface : public Window {
protected:
    Surface()
    {
        open(folder.writeGrid());
        first = picture();
    }

    /// It turns no more, and nothing of the picture is missing.
    void expectStanding()
    {
        EXPECT_TRUE(waitUntil([&] { return action("&Turn the Surface")->isEnabled(); }));
        EXPECT_FALSE(action("Stop Turnin&g")->isEnabled());
        EXPECT_TRUE(waitUntil([] { return VelUtilPageIsComplete() == 1; }));
        const QImage stopped = picture();
        EXPECT_FALSE(waitUntil([&] { return differ(stopped, shown()); }, 200));
    }

    QImage first;
};

} // namespace

TEST_F(Window, AnOpenedFileShows)
{
    open(folder.writeTable());
    expectLines(picture());
    EXPECT_EQ(window->windowTitle().toStdString(), "lines.csv - Viewer");
    open(folder.writeGrid());
    expectSurface(picture());
    EXPECT_EQ(window->windowTitle().toStdString(), "hill.asc - Viewer");
    EXPECT_TRUE(statusBarSays("hill.asc: 24 x 24 grid, no gaps"));
}

TEST_F(Window, ADroppedFileIsOpened)
{
    QMimeData data;
    data.setUrls(QList<QUrl>() << QUrl::fromLocalFile(folder.writeTable()));
    drop(data);
    expectLines(picture());
}

TEST_F(Window, WhatIsNoFileOfThisMachineIsNotTakenWhenDropped)
{
    QMimeData data;
    data.setUrls(QList<QUrl>() << QUrl("http://example.org/lines.csv"));
    drop(data);
    EXPECT_EQ(window->windowTitle().toStdString(), "Viewer");
    data.setText("lines.csv");
    drop(data);
    EXPECT_EQ(window->windowTitle().toStdString(), "Viewer");
}

TEST_F(Surface, ABadFileIsNamedInAMessageAndThePictureStays)
{
    QString message;
    ModalDriver driver([&](QWidget& box) {
        if (const QMessageBox* const messageBox = qobject_cast<QMessageBox*>(&box))
            message = messageBox->text();
        typeKey(XK_Return);
    });
    window->openFile(folder.file("missing.csv"));
    EXPECT_TRUE(driver.hasActed());
    EXPECT_FALSE(driver.hadToClose());
    EXPECT_TRUE(message.contains(folder.file("missing.csv"))) << message.toStdString();
    // A window manager takes the message's frame away when it comes to it.
    EXPECT_TRUE(waitUntil([&] { return !differ(first, picture()); }));
    EXPECT_EQ(window->windowTitle().toStdString(), "hill.asc - Viewer");
}

TEST_F(Window, RecentFilesAreOfferedNewestFirstAndOpenAgain)
{
    EXPECT_TRUE(recentFiles().isEmpty());
    open(folder.writeTable());
    open(folder.writeGrid());
    ASSERT_EQ(recentFiles().size(), 2);
    EXPECT_EQ(recentFiles()[0]->text().toStdString(), "hill.asc");
    EXPECT_EQ(recentFiles()[1]->text().toStdString(), "lines.csv");
    recentFiles()[1]->trigger();
    expectLines(picture());
    ASSERT_EQ(recentFiles().size(), 2);
    EXPECT_EQ(recentFiles()[0]->text().toStdString(), "lines.csv");
}

TEST_F(Window, RecentFilesAreKeptForTheNextRun)
{
    open(folder.writeTable());
    window.reset();
    window = std::make_unique<viewer::MainWindow>();
    ASSERT_EQ(recentFiles().size(), 1);
    EXPECT_EQ(recentFiles()[0]->text().toStdString(), "lines.csv");
}

TEST_F(Window, ARecentFileThatIsGoneIsNotOfferedAgain)
{
    const QString table = folder.writeTable();
    open(table);
    open(folder.writeGrid());
    ASSERT_TRUE(QFile::remove(table));
    ModalDriver driver([](QWidget&) { typeKey(XK_Return); });
    recentFiles()[1]->trigger();
    EXPECT_FALSE(driver.hadToClose());
    ASSERT_EQ(recentFiles().size(), 1);
    EXPECT_EQ(recentFiles()[0]->text().toStdString(), "hill.asc");
}

TEST_F(Surface, DraggingTurnsIt)
{
    drag(QPoint(80, 0));
    EXPECT_TRUE(differ(first, picture()));
}

TEST_F(Surface, DraggingWithTheMiddleButtonMovesItWhole)
{
    drag(QPoint(0, 40), 2);
    const QImage moved = picture();
    EXPECT_TRUE(differ(first, moved));
    EXPECT_FALSE(differ(part(first, QRect(200, 100, 300, 200)), part(moved, QRect(200, 140, 300, 200))));
}

TEST_F(Surface, DraggingWithTheRightButtonZooms)
{
    const int before = plotPixels(first);
    drag(QPoint(0, -60), 3);
    EXPECT_GT(plotPixels(picture()), before * 5 / 4) << "upwards is nearer";
}

TEST_F(Surface, TheWheelZoomsNearerAndFarther)
{
    movePointer(area(), centre());
    wheel(true);
    const int nearer = plotPixels(picture());
    EXPECT_GT(nearer, plotPixels(first) * 5 / 4);
    wheel(false);
    wheel(false);
    EXPECT_LT(plotPixels(picture()), plotPixels(first));
}

TEST_F(Surface, FFitsItAgain)
{
    drag(QPoint(50, 20), 2);
    ASSERT_TRUE(differ(first, picture()));
    type(XK_f);
    EXPECT_FALSE(differ(first, picture()));
}

TEST_F(Surface, ADoubleClickFitsItAgain)
{
    drag(QPoint(30, 30), 2);
    ASSERT_TRUE(differ(first, picture()));
    doubleClick(area(), centre());
    EXPECT_TRUE(waitUntil([&] { return !differ(first, picture()); }));
}

TEST_F(Surface, KeysChooseWhatDraggingDoes)
{
    const QPoint way(0, -50);
    type(XK_z);
    EXPECT_TRUE(action("&Zoom")->isChecked());
    drag(way);
    EXPECT_GT(plotPixels(picture()), plotPixels(first) * 5 / 4);
    type(XK_f);
    type(XK_m);
    EXPECT_TRUE(action("&Move")->isChecked());
    drag(way);
    EXPECT_FALSE(differ(part(first, QRect(200, 150, 300, 200)), part(picture(), QRect(200, 100, 300, 200))));
    type(XK_f);
    type(XK_r);
    EXPECT_TRUE(action("&Rotate")->isChecked());
    drag(way);
    const QImage turned = picture();
    EXPECT_TRUE(differ(first, turned));
    EXPECT_TRUE(differ(part(first, QRect(200, 150, 300, 200)), part(turned, QRect(200, 100, 300, 200))));
}

TEST_F(Surface, ResizingDrawsItAnewAtTheNewSize)
{
    const QSize before = area().size();
    window->resize(500, 420);
    EXPECT_TRUE(waitUntil([&] { return area().width() < before.width(); }));
    const QImage smaller = picture();
    EXPECT_EQ(smaller.size(), inScreenPixels(area(), area().size()));
    expectSurface(smaller);
    EXPECT_LT(plotPixels(smaller), plotPixels(first) * 3 / 4);
    window->resize(700, 560);
    EXPECT_TRUE(waitUntil([&] { return area().size() == before; }));
    EXPECT_FALSE(differ(first, picture()));
}

TEST_F(Surface, SteppingTurnsItThereAndBack)
{
    clickTool("Turn One St&ep On");
    EXPECT_TRUE(differ(first, picture()));
    clickTool("Turn One Step &Back");
    EXPECT_FALSE(differ(first, picture()));
}

TEST_F(Surface, PlayingTurnsItUntilThePause)
{
    clickTool("&Turn the Surface");
    EXPECT_FALSE(action("&Turn the Surface")->isEnabled());
    EXPECT_TRUE(waitUntil([&] { return differ(first, shown()); }));
    const QImage second = shown();
    EXPECT_TRUE(waitUntil([&] { return differ(second, shown()); })) << "it goes on turning";
    clickTool("Stop Turnin&g");
    expectStanding();
}

TEST_F(Surface, ThePauseIsHeardInTheMiddleOfADrawing)
{
    session->makeDrawingSlow();
    clickTool("&Turn the Surface");
    Onlooker onlooker([] { return VelUtilPageIsComplete() == 0; },
                      [this] { click(*tool("Stop Turnin&g"), QPoint(8, 8)); });
    EXPECT_TRUE(waitUntil([&] { return onlooker.hasActed() && action("&Turn the Surface")->isEnabled(); }));
    expectStanding();
}

TEST_F(Surface, TheSpaceBarPlaysAndPauses)
{
    type(XK_space);
    EXPECT_TRUE(waitUntil([&] { return differ(first, shown()); }));
    type(XK_space);
    expectStanding();
}

TEST_F(Surface, TheStatusBarSaysWhenThereIsNothingToDo)
{
    EXPECT_TRUE(waitUntil([&] { return statusBarSays("Idle"); }));
}

TEST_F(Window, TheAboutBoxTellsTheVersionsOfTheViewerOfOpenGLAndOfTheToolkit)
{
    QApplication::setApplicationVersion("7.8.9");
    QString message;
    ModalDriver driver([&](QWidget& box) {
        if (const QMessageBox* const messageBox = qobject_cast<QMessageBox*>(&box))
            message = messageBox->text();
        typeKey(XK_Return);
    });
    action("&About Viewer")->trigger();
    EXPECT_FALSE(driver.hadToClose());
    QApplication::setApplicationVersion(QString());
    EXPECT_TRUE(message.startsWith("Viewer 7.8.9\n")) << message.toStdString();
    EXPECT_TRUE(message.contains(QLatin1String(qVersion()))) << message.toStdString();
    const int version = message.indexOf("OpenGL ") + int(sizeof "OpenGL ") - 1;
    EXPECT_TRUE(version < message.size() && message.at(version).isDigit()) << message.toStdString();
}
