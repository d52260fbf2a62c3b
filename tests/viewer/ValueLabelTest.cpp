// The value under the pointer, in the status bar and marked in the picture.

#include "tests/viewer/OpenViewer.h"

#include "ScreenPixels.h"
#include "ValueLabel.h"
#include "engine/VelUtil.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "tests/viewer/Onlooker.h"

#include <cmath>

using namespace velmora::test;

namespace {

class PointedAt : public OpenViewer {
protected:
    QString text() { return window->findChild<viewer::ValueLabel*>()->text(); }

    bool pointAndRead(const QPoint& position, const QString& part)
    {
        EXPECT_TRUE(settle());
        int moves = 0;
        // Again and again: for the toolkit a pointer is where it saw it last, perhaps in an earlier window.
        const auto isTold = [&] {
            movePointer(area(), position + QPoint(++moves % 2, 0));
            processPending();
            return text().contains(part);
        };
        return waitUntil(isTold, 5000);
    }

    double scale() { return viewer::screenPixelsPerPixel(window->drawArea()); }
};

} // namespace

TEST_F(PointedAt, TheValueNearThePointerIsToldAndMarked)
{
    open(folder.writeTable());
    movePointer(area(), QPoint(2, 2));
    const QImage before = picture();
    const QPoint place = placeOf("rising = 10, x = 20");
    ASSERT_FALSE(place.isNull());
    EXPECT_TRUE(pointAndRead(place, "rising = 10, x = 20")) << text().toStdString();
    const QRect around(place - QPoint(14, 14), QSize(29, 29));
    EXPECT_TRUE(waitUntil([&] { return differ(part(before, around), part(shown(), around)); })) << "the mark";
    EXPECT_EQ(VelUtilPageIsComplete(), 1) << "nothing is drawn anew for it";
    EXPECT_TRUE(pointAndRead(QPoint(2, 2), "") && waitUntil([&] { return text().isEmpty(); }));
    EXPECT_TRUE(waitUntil([&] { return !differ(before, shown()); })) << "and it goes again";
}

TEST_F(PointedAt, TheCellUnderThePointerIsTold)
{
    open(folder.writeGrid());
    EXPECT_TRUE(pointAndRead(centre(), "x = ")) << text().toStdString();
    EXPECT_TRUE(text().contains(", z = ")) << text().toStdString();
}

TEST_F(PointedAt, NothingIsToldWhileAButtonIsPressedAndBesideTheArea)
{
    open(folder.writeGrid());
    ASSERT_TRUE(pointAndRead(centre(), "z = "));
    press(centre());
    EXPECT_TRUE(waitUntil([&] { return text().isEmpty(); }));
    release();
    ASSERT_TRUE(pointAndRead(centre() + QPoint(3, 3), "z = "));
    movePointer(*window, QPoint(window->width() / 2, 5));
    EXPECT_TRUE(waitUntil([&] { return text().isEmpty(); }));
}

TEST_F(PointedAt, NothingIsToldWhileTheEngineWorks)
{
    open(folder.writeTable());
    session->makeDrawingSlow();
    const QPoint place = placeOf("rising = 10, x = 20");
    std::string told = "nobody asked";
    Onlooker onlooker([] { return VelUtilIsBusy() != 0; },
                      [&] { told = VelUtilViewValueAt(place.x() * scale(), place.y() * scale(), nullptr, nullptr); });
    window->openFile(folder.writeGrid(120));
    EXPECT_TRUE(onlooker.hasActed());
    EXPECT_EQ(told, "");
}

TEST_F(PointedAt, WhatComesUnderAPointerThatRestsIsToldToo)
{
    open(folder.writeTable());
    ASSERT_TRUE(pointAndRead(placeOf("rising = 10, x = 20"), "rising = 10"));
    open(folder.writeGrid());
    EXPECT_TRUE(waitUntil([&] { return !text().contains("rising"); })) << text().toStdString();
}
