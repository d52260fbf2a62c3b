// Places of the picture that a person points at, also where the toolkit scales its windows.

#include "tests/viewer/OpenViewer.h"

#include "ExportDialog.h"
#include "engine/VelUtil.h"
#include "interfaces/EngineEnumerations.h"
#include "tests/support/DisplayScale.h"
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"
#include "tests/support/XInput.h"
#include "tests/viewer/DialogAnswer.h"

#include <QAction>

using namespace velmora::test;

namespace {

const QRgb RisingLine = qRgb(0, 92, 158);

/// How many pixels of the rising line are near a place of the picture.
int lineAround(const QImage& picture, const QPoint& place)
{
    const QPoint reach(6, 6);
    return countColor(picture.copy(QRect(place - reach, place + reach)), RisingLine, 6);
}

class ScreenPixels : public OpenViewer {
protected:
    ScreenPixels()
    {
        open(folder.writeTable());
        first = picture();
        // In the right half the two lines are apart at most places; the first column from there that has a pixel
        // without any of the ground in it will do.
        for (int x = first.width() * 7 / 10; x < first.width() && place.isNull(); ++x)
            for (int y = 0; y < first.height() && place.isNull(); ++y)
                if (first.pixel(x, y) == RisingLine)
                    place = QPoint(x, y);
    }

    /// The place as a position of the area.
    QPoint position() { return place / displayScale(area()); }

    QImage first;
    QPoint place; ///< on the rising line, in pixels of the screen
};

} // namespace

TEST_F(ScreenPixels, ThePictureIsAsLargeAsTheAreaOnTheScreen)
{
    EXPECT_EQ(first.size(), inScreenPixels(area(), area().size()));
    const QRgb ground = first.pixel(0, 0);
    for (const QPoint& corner : {first.rect().topRight(), first.rect().bottomLeft(), first.rect().bottomRight()})
        EXPECT_EQ(first.pixel(corner), ground) << corner.x() << "," << corner.y();
}

TEST_F(ScreenPixels, TheWheelZoomsAboutWhatIsUnderThePointer)
{
    ASSERT_FALSE(place.isNull());
    movePointer(area(), position());
    wheel(true);
    const QImage nearer = picture();
    EXPECT_TRUE(differ(first, nearer));
    EXPECT_GT(lineAround(nearer, place), 0) << "at " << place.x() << "," << place.y();
}

TEST_F(ScreenPixels, AClickSelectsWhatIsUnderThePointer)
{
    ASSERT_FALSE(place.isNull());
    type(XK_s);
    ASSERT_TRUE(settle());
    press(position());
    release();
    EXPECT_EQ(VelUtilPickGetCount(), 1);
}

TEST_F(ScreenPixels, TheSameDragTurnsASurfaceTheSameWay)
{
    open(folder.writeGrid());
    const QImage before = picture();
    drag(QPoint(90, 0)); // of the area's pixels
    const QImage turned = picture();
    EXPECT_TRUE(differ(before, turned));
    VelUtilViewRotate(-36, 0);     // 0.4 degrees each
    movePointer(area(), centre()); // what no event has changed is drawn with the next one
    EXPECT_FALSE(differ(before, picture()));
}

TEST_F(ScreenPixels, AnExportOffersTheSizeOnTheScreen)
{
    QSize offered;
    Answer<viewer::ExportDialog> choices([&](viewer::ExportDialog& dialog) {
        offered = QSize(dialog.options().width, dialog.options().height);
        dialog.reject();
    });
    action("&Export Image...")->trigger();
    EXPECT_TRUE(choices.hasActed());
    EXPECT_EQ(offered, first.size());
}

TEST_F(ScreenPixels, AnExportDoesNotTellHowTheScreenIsScaled)
{
    VelExportImageOptions options = VelExportImageOptions();
    options.width = 1000;
    options.height = 700;
    options.supersample = 1;
    options.region = velmora::sdk::integration::ExportRegion_CurrentFrame;
    const QString usual = folder.file("usual.png");
    const QString unscaled = folder.file("unscaled.png");
    ASSERT_TRUE(VelUtilExportImage(usual.toUtf8().constData(), &options));
    options.dotsPerInch = 96;
    ASSERT_TRUE(VelUtilExportImage(unscaled.toUtf8().constData(), &options));
    EXPECT_FALSE(differ(QImage(usual), QImage(unscaled)));
}
