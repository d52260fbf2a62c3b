// The viewer when its display goes, and when others do away with its window.

#include "tests/faults/FaultyRun.h"
#include "tests/faults/ForeignWindow.h"

#include <QFile>

using namespace velmora::test;

namespace {

constexpr int NoDisplay = 3;
constexpr int SideOfALongDrawing = 300;
constexpr int WellIntoIt = 1000; // milliseconds: longer than connecting and loading take
const char* const Title = "hill.asc - Viewer";

class LostDisplay : public FaultyRun {
protected:
    LostDisplay() { useDisplay(server); }

    void startWindow(bool slow)
    {
        const QString data = folder.writeGrid(slow ? SideOfALongDrawing : 24);
        start((slow ? QStringList("--slow") : QStringList()) << data);
        window = std::make_unique<ForeignWindow>(server.name(), Title);
        EXPECT_TRUE(slow || waitUntilAtRest());
    }

    /// The server goes while a file is written to a name that there is.
    void loseWhileWriting(const QStringList& task)
    {
        const QString old = folder.write("old", "an older file");
        start(QStringList(task) << old << "--slow" << folder.writeGrid(SideOfALongDrawing));
        EXPECT_TRUE(waitUntilAtWork(WellIntoIt));
        server.kill();
        expectLost();
        QFile kept(old);
        EXPECT_TRUE(kept.open(QIODevice::ReadOnly));
        EXPECT_STREQ(kept.readAll().constData(), "an older file");
    }

    void expectLost()
    {
        expectEnd(NoDisplay, QStringList() << "connection to the display was lost"
                                           << "start the viewer again");
    }

    XServer server;
    std::unique_ptr<ForeignWindow> window;
};

} // namespace

TEST_F(LostDisplay, IsToldByAViewerAtRest)
{
    startWindow(false);
    server.kill();
    expectLost();
}

TEST_F(LostDisplay, IsToldInTheMiddleOfADrawing)
{
    startWindow(true);
    server.kill();
    expectLost();
}

TEST_F(LostDisplay, InTheMiddleOfAnExportLeavesTheOlderFile)
{
    loseWhileWriting(QStringList() << "--size"
                                   << "4000x3000"
                                   << "--export");
}

TEST_F(LostDisplay, InTheMiddleOfAnExportBySoftwareLeavesTheOlderFile)
{
    loseWhileWriting(QStringList() << "--strategy"
                                   << "software"
                                   << "--size"
                                   << "4000x3000"
                                   << "--export");
}

TEST_F(LostDisplay, InTheMiddleOfPrintingLeavesTheOlderFile)
{
    loseWhileWriting(QStringList() << "--print");
}

TEST_F(LostDisplay, IsToldWhenSomeoneCutsTheConnection)
{
    startWindow(false);
    window->killClient();
    expectLost();
}

TEST_F(LostDisplay, IsToldWhenSomeoneCutsTheConnectionInTheMiddleOfADrawing)
{
    startWindow(true);
    window->killClient();
    expectLost();
}

TEST_F(LostDisplay, ClosedByTheWindowManagerAtRestTheViewerEndsWell)
{
    startWindow(false);
    window->close();
    expectEnd(0, QStringList());
    EXPECT_EQ(told().toStdString(), "");
}

TEST_F(LostDisplay, ClosedByTheWindowManagerInTheMiddleOfADrawingTheViewerEndsWell)
{
    startWindow(true);
    window->close();
    expectEnd(0, QStringList());
    EXPECT_EQ(told().toStdString(), "");
}
