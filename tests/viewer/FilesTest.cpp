// What the window says of files, and what it offers of them.

#include "tests/viewer/OpenViewer.h"

#include "engine/VelUtil.h"
#include "testing/EngineProbe.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "tests/viewer/DialogAnswer.h"
#include "tests/viewer/EventWatch.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>

using namespace velmora::test;
using velmora::testing::EngineProbe;

namespace {

const char* const WaitNote = "Wait until the drawing is complete, or stop it.";

class Files : public OpenViewer {
protected:
    /// Opens a file that takes long to read, and acts meanwhile.
    void openAndMeanwhile(const QString& file, const std::function<void()>& act)
    {
        session->makeDrawingSlow();
        Onlooker onlooker(
            [this] { return VelUtilIsBusy() && QApplication::overrideCursor() && button("Stop")->isVisible(); }, act);
        window->openFile(file);
        EXPECT_TRUE(onlooker.hasActed()) << "it was read too fast";
    }

    /// A file of that name in a folder within the test's.
    QString inFolder(const char* name, const char* fileName)
    {
        QDir(folder.path()).mkdir(name);
        const QString copy = folder.file(name) + '/' + fileName;
        EXPECT_TRUE(QFile::copy(folder.writeTable(), copy));
        return copy;
    }

    QStringList recentNames()
    {
        QStringList names;
        const QList<QMenu*> menus = window->findChildren<QMenu*>();
        for (const QMenu* const menu : menus)
            for (const QAction* const action : menu->actions())
                if (menu->title() == "Open &Recent")
                    names.append(action->text());
        return names;
    }

    /// The label of the status bar with that in its text.
    const QLabel* label(const QString& part)
    {
        const QList<QLabel*> labels = window->statusBar()->findChildren<QLabel*>();
        for (const QLabel* const label : labels)
            if (label->text().contains(part))
                return label;
        throw std::runtime_error("Nothing tells of the file.");
    }
};

QRect onScreen(const QWidget& widget)
{
    return QRect(widget.mapToGlobal(QPoint()), widget.size());
}

/// Markup would not be shown itself, and the text be shorter.
bool showsEveryLetter(const QLabel& label)
{
    return label.sizeHint().width() >= label.fontMetrics().size(Qt::TextSingleLine, label.text()).width();
}

} // namespace

TEST_F(Files, WhoStopsTheReadingIsNotToldOfAnError)
{
    const QString before = folder.writeTable();
    open(before);
    Answer<QMessageBox> noBox([](QMessageBox& box) { box.reject(); });
    openAndMeanwhile(folder.writeGrid(700), [this] {
        focusWindow(*window);
        typeKey(XK_Escape);
    });
    EXPECT_TRUE(VelUtilWasInterrupted());
    EXPECT_EQ(note(), "Stopped.");
    processPending();
    EXPECT_FALSE(noBox.hasActed());
    EXPECT_EQ(window->windowTitle().toStdString(), "lines.csv - Viewer");
    EXPECT_STREQ(VelUtilLastErrorMessage(), "");
}

TEST_F(Files, ASecondClickOnStopHitsNothingElse)
{
    open(folder.writeGrid());
    EngineProbe::throwAt("drawing"); // leaves a picture to finish
    VelUtilViewRotate(10, 0);
    window->drawArea().update();
    EXPECT_TRUE(waitUntil([] { return VelUtilPageIsInterrupted() != 0; }));
    QRect stop;
    openAndMeanwhile(folder.writeGrid(700), [&] {
        stop = onScreen(*button("Stop"));
        click(*button("Stop"), button("Stop")->rect().center());
    });
    EXPECT_TRUE(VelUtilWasInterrupted());
    EXPECT_TRUE(waitUntil([this] { return button("Finish")->isVisible(); }));
    EXPECT_FALSE(button("Stop")->isVisible());
    EXPECT_FALSE(onScreen(*button("Finish")).intersects(stop));
    const EventWatch released(QEvent::MouseButtonRelease);
    click(*window, window->mapFromGlobal(stop.center()));
    released.wait();
    EXPECT_TRUE(VelUtilPageIsInterrupted());
    EXPECT_TRUE(button("Finish")->isVisible());
    click(*button("Finish"), button("Finish")->rect().center());
    EXPECT_TRUE(waitUntil([] { return VelUtilPageIsComplete() != 0; }, 60000));
}

TEST_F(Files, ANameIsNotTakenForMarkup)
{
    const QString name = folder.file("<span><span>hill.asc");
    ASSERT_TRUE(QFile::rename(folder.writeGrid(700), name));
    bool isShown = false;
    openAndMeanwhile(name, [&] { isShown = showsEveryLetter(*label("Reading")); });
    EXPECT_TRUE(isShown);
    EXPECT_TRUE(showsEveryLetter(*label("<span><span>hill.asc: ")));
}

TEST_F(Files, ANoteGoesWhenTheNextFileIsOpen)
{
    open(folder.write("weather.csv", "x,y,weather\n1,2,fair\n2,3,rainy\n"));
    EXPECT_NE(note(), "");
    open(folder.writeTable());
    EXPECT_EQ(note(), "");
    EXPECT_TRUE(statusBarSays("lines.csv: 2 lines, 40 rows"));
}

TEST_F(Files, TheNoteToWaitGoesWhenTheEngineIsNotBusyAnyMore)
{
    open(folder.writeTable());
    EngineProbe::setBusy(true);
    action("&Print...")->trigger();
    EXPECT_EQ(note(), WaitNote);
    EngineProbe::setBusy(false);
    EXPECT_EQ(note(), "");
}

TEST_F(Files, TheDialogToOpenBeginsWhereTheLastFileIs)
{
    open(inFolder("a", "lines.csv"));
    open(inFolder("b", "lines.csv"));
    QString shown;
    Answer<QFileDialog> answer([&](QFileDialog& dialog) {
        shown = dialog.directory().absolutePath();
        dialog.reject();
    });
    pressKey(XK_Control_L);
    typeKey(XK_o); // whose coming up may reach no widget once the dialog has gone
    releaseKey(XK_Control_L);
    EXPECT_TRUE(waitUntil([&] { return answer.hasActed(); }));
    EXPECT_EQ(shown.toStdString(), folder.file("b").toStdString());
}

TEST_F(Files, TheDialogToOpenDoesWithoutAFolderThatIsGone)
{
    const QString file = inFolder("a", "lines.csv");
    open(file);
    ASSERT_TRUE(QFile::remove(file) && QDir(folder.path()).rmdir("a"));
    QString offered;
    Answer<QFileDialog> answer([&](QFileDialog& dialog) {
        offered = dialog.findChild<QLineEdit*>()->text();
        dialog.reject();
    });
    action("&Open...")->trigger();
    EXPECT_TRUE(answer.hasActed());
    EXPECT_EQ(offered.toStdString(), "");
}

TEST_F(Files, RecentOnesAreNamedAsTheyAre)
{
    open(inFolder("R&D", "c&d.csv"));
    EXPECT_EQ(recentNames(), QStringList() << "c&&d.csv") << "one & alone would underline the next letter";
}

TEST_F(Files, RecentOnesOfOneNameAreToldApart)
{
    open(folder.writeGrid());
    open(inFolder("R&D", "lines.csv"));
    EXPECT_EQ(recentNames(), QStringList() << "lines.csv"
                                           << "hill.asc");
    open(inFolder("b", "lines.csv"));
    EXPECT_EQ(recentNames(),
              QStringList() << "lines.csv - " + folder.file("b") << "lines.csv - " + folder.file("R&&D") << "hill.asc");
}
