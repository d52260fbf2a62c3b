// Reading the file again, asked for and offered.

#include "tests/viewer/OpenViewer.h"

#include "engine/VelUtil.h"
#include "testing/EngineProbe.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "tests/viewer/DialogAnswer.h"
#include "tests/viewer/EventWatch.h"

#include <QAction>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <cstdio>

using namespace velmora::test;
using velmora::testing::EngineProbe;

namespace {

const char* const Offer = "The file has changed. Reload";

class Reload : public OpenViewer {
protected:
    Reload() : file(folder.file("lines.csv")) { write("x,rising,waving\n0,0,5\n1,1,3\n2,2,4\n"); }

    void write(const QByteArray& content) { folder.write("lines.csv", content); }
    /// As editors do.
    void replace(const QByteArray& content)
    {
        const QByteArray written = QFile::encodeName(folder.write("lines.csv.new", content));
        ASSERT_EQ(std::rename(written.constData(), QFile::encodeName(file).constData()), 0);
    }
    bool isOffered()
    {
        return waitUntil([this] { return button(Offer)->isVisible(); }, 10000);
    }
    bool shows(const char* description)
    {
        return waitUntil([&] { return QString(VelUtilDataDescription()) == description; }) && settle();
    }
    void clickOffer()
    {
        EXPECT_TRUE(settle());
        const QPushButton& offer = *button(Offer);
        const EventWatch released(QEvent::MouseButtonRelease);
        click(offer, offer.rect().center());
        released.wait();
    }

    const QString file;
};

} // namespace

TEST_F(Reload, TheKeyReadsTheFileAgainAndKeepsTheView)
{
    EXPECT_FALSE(action("Re&load")->isEnabled()) << "there is nothing to read";
    open(file);
    press(legendEntry(2));
    release();
    EXPECT_TRUE(waitUntil([] { return !VelUtilLineIsShown(2); }));
    movePointer(area(), placeOf("rising = 1, x = 1"));
    for (int notch = 0; notch < 5; ++notch)
        wheel(true);
    EXPECT_TRUE(settle());
    const QPoint before = placeOf("rising = 1, x = 1");
    ASSERT_FALSE(before.isNull());
    EXPECT_TRUE(placeOf("rising = 0, x = 0").isNull());
    write("x,rising,waving\n0,0,5\n1,1,3\n2,2,4\n3,9,9\n");
    type(XK_F5);
    EXPECT_TRUE(shows("2 lines, 4 rows"));
    EXPECT_EQ(placeOf("rising = 1, x = 1"), before);
    EXPECT_TRUE(placeOf("rising = 0, x = 0").isNull());
    EXPECT_FALSE(VelUtilLineIsShown(2));
    EXPECT_TRUE(statusBarSays("lines.csv: 2 lines, 4 rows"));
}

TEST_F(Reload, TheKeyKeepsLogarithmicAxes)
{
    open(file);
    type(XK_y);
    EXPECT_TRUE(settle());
    const QPoint before = placeOf("rising = 1, x = 1");
    ASSERT_FALSE(before.isNull());
    write("x,rising,waving\n0,0,5\n1,1,3\n2,2,4\n3,2,4\n");
    type(XK_F5);
    EXPECT_TRUE(shows("2 lines, 4 rows"));
    EXPECT_EQ(VelUtilAxisIsLogarithmic(1), 1);
    EXPECT_EQ(VelUtilAxisIsLogarithmic(0), 0);
    EXPECT_TRUE(action("Logarithmic &y")->isChecked());
    EXPECT_FALSE(action("Logarithmic &x")->isChecked());
    EXPECT_EQ(placeOf("rising = 1, x = 1").y(), before.y());
    write("x,rising,waving\n0,0,-5\n1,-1,-3\n2,-2,0\n");
    type(XK_F5);
    EXPECT_TRUE(shows("2 lines, 3 rows"));
    EXPECT_FALSE(action("Logarithmic &y")->isChecked()) << "nothing of it has a logarithm";
}

TEST_F(Reload, TheKeyKeepsExaggerationAndColoursOfASurface)
{
    const QByteArray header = "ncols 3\nnrows 3\nxllcorner 0\nyllcorner 0\ncellsize 1\n";
    const QString hill = folder.write("hill.asc", header + "1 2 3\n4 5 6\n7 8 9\n");
    open(hill);
    action("&5 Times")->trigger();
    type(XK_c);
    EXPECT_TRUE(settle());
    const std::string view = VelUtilViewState();
    folder.write("hill.asc", header + "1 2 3\n4 5 6\n7 8 -9999\n");
    type(XK_F5);
    EXPECT_TRUE(shows("3 x 3 grid, 1 gap"));
    EXPECT_EQ(VelUtilSurfaceGetExaggeration(), 5);
    EXPECT_EQ(VelUtilSurfaceColorsAreClipped(), 1);
    EXPECT_TRUE(action("&5 Times")->isChecked());
    EXPECT_TRUE(action("&Colours from 2 to 98 %")->isChecked());
    EXPECT_EQ(VelUtilViewState(), view);
}

TEST_F(Reload, AChangeIsOfferedAndTakenWithOneClick)
{
    open(file);
    EXPECT_FALSE(button(Offer)->isVisible());
    QWidget* const focus = QApplication::focusWidget();
    write("x,rising\n0,0\n1,1\n");
    EXPECT_TRUE(isOffered());
    EXPECT_EQ(QApplication::focusWidget(), focus);
    EXPECT_STREQ(VelUtilDataDescription(), "2 lines, 3 rows") << "nothing is read before it is asked for";
    clickOffer();
    EXPECT_TRUE(shows("1 line, 2 rows"));
    EXPECT_FALSE(button(Offer)->isVisible());
}

TEST_F(Reload, AnotherFileThatTakesTheNameIsAChangeAgainAndAgain)
{
    open(file);
    for (int rows = 2; rows < 5; ++rows) {
        QByteArray text = "x,rising\n";
        for (int row = 0; row < rows; ++row)
            text += QByteArray::number(row) + ",1\n";
        replace(text);
        EXPECT_TRUE(isOffered()) << rows;
        clickOffer();
        EXPECT_TRUE(shows(QString("1 line, %1 rows").arg(rows).toLatin1())) << rows;
    }
}

TEST_F(Reload, AFileThatIsAwayForAMomentIsOfferedWhenItIsBack)
{
    open(file);
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_FALSE(waitUntil([this] { return button(Offer)->isVisible(); }, 600)) << "there is nothing to read";
    write("x,rising\n0,0\n1,1\n");
    EXPECT_TRUE(isOffered());
}

TEST_F(Reload, AReloadThatFailsKeepsWhatIsShownAndSaysWhy)
{
    open(file);
    const QImage before = picture();
    write("nothing to plot\n");
    EXPECT_TRUE(isOffered());
    QString said;
    Answer<QMessageBox> answer([&](QMessageBox& box) {
        said = box.text();
        box.reject();
    });
    clickOffer();
    EXPECT_TRUE(waitUntil([&] { return answer.hasActed(); }));
    EXPECT_TRUE(said.contains("lines.csv")) << said.toStdString();
    movePointer(*window, QPoint(3, 3));
    EXPECT_FALSE(differ(before, picture()));
    write("x,rising\n0,0\n1,1\n");
    EXPECT_TRUE(isOffered()) << "again, because it is another file now";
}

TEST_F(Reload, ItWaitsUntilTheEngineIsFree)
{
    open(file);
    write("x,rising\n0,0\n1,1\n");
    EngineProbe::startLog();
    EngineProbe::setBusy(true);
    action("Re&load")->trigger();
    EXPECT_FALSE(waitUntil([] { return QString(VelUtilDataDescription()) != "2 lines, 3 rows"; }, 300));
    EngineProbe::setBusy(false);
    EXPECT_TRUE(shows("1 line, 2 rows"));
}
