// The built-in images: that all are there under their names and can be told from light and dark ground.

#include <QDir>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <cmath>
#include <gmock/gmock.h>

// What Qt's resource compiler makes of the two bundles, exported by the library.
int qInitResources_sdk_icons();
int qCleanupResources_sdk_icons();
int qInitResources_sdk_cursors();
int qCleanupResources_sdk_cursors();

namespace velmora::test {

namespace {

const char* const Icons[] = {"combine.png",
                             "vcr-first.png",
                             "vcr-export.png",
                             "icon-control-point-add-18x18.png",
                             "icon-distribution.png",
                             "vcr-next.png",
                             "addcontour.png",
                             "addNewContours.png",
                             "plus.png",
                             "multi_color.bmp",
                             "ThreePoints.png",
                             "icon-gradient-plain-01.png",
                             "minus.png",
                             "vcr-pause.png",
                             "remove.png",
                             "down.png",
                             "vcr-last.png",
                             "orientation-xyz.png",
                             "add.png",
                             "up.png",
                             "add-all.png",
                             "icon-gradient-arrow-02.png",
                             "icon-gradient-arrow-01.png",
                             "filter.png",
                             "latex.png",
                             "diamond-grey-23x23.png",
                             "icon-control-point-remove-18x18.png",
                             "clear.png",
                             "left.png",
                             "settings.png",
                             "orientation-xz.png",
                             "orientation-xy.png",
                             "delete.png",
                             "vcr-play.png",
                             "diamond-blue-23x23.png",
                             "latex_regenerate.png",
                             "orientation-yz.png",
                             "DeltaProbe.png",
                             "right.png",
                             "vcr-previous.png",
                             "delcontour.png"};
const char* const Cursors[] = {"zoom-in.png",  "lightsource.png", "cross.png",    "zoom-out.png",
                               "adjustor.png", "rotate.png",      "translate.png"};

QString iconPath(const char* name)
{
    return QString::fromLatin1(":/icons/") + QString::fromLatin1(name);
}

QString cursorPath(const char* name)
{
    return QString::fromLatin1(":/cursors/") + QString::fromLatin1(name);
}

bool isBitmap(const char* name)
{
    return QString::fromLatin1(name).endsWith(QString::fromLatin1(".bmp"));
}

// The image behind a path, which must be of the format that its name promises.
QImage load(const QString& path, const char* format)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    EXPECT_STREQ(format, QImageReader::imageFormat(&file).constData()) << path.toStdString();
    return QImage(path);
}

double luminance(QRgb color)
{
    const double channels[] = {qRed(color) / 255.0, qGreen(color) / 255.0, qBlue(color) / 255.0};
    const double weights[] = {0.2126, 0.7152, 0.0722};
    double sum = 0;
    for (int i = 0; i < 3; ++i)
        sum +=
            weights[i] * (channels[i] <= 0.03928 ? channels[i] / 12.92 : std::pow((channels[i] + 0.055) / 1.055, 2.4));
    return sum;
}

double contrast(QRgb a, QRgb b)
{
    const double x = luminance(a) + 0.05, y = luminance(b) + 0.05;
    return x > y ? x / y : y / x;
}

// How many of the picture's pixels stand out from the ground, three to one at least.
int countOutstanding(const QImage& image, QRgb ground)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 200 && contrast(image.pixel(x, y), ground) >= 3.0 ? 1 : 0;
    return count;
}

const QRgb Light = qRgb(255, 255, 255);
const QRgb Dark = qRgb(0x2b, 0x2b, 0x2b);

} // namespace

TEST(Resources, EveryIconIsThereUnderItsName)
{
    int count = 0;
    for (const char* const name : Icons) {
        SCOPED_TRACE(name);
        const QImage image = load(iconPath(name), isBitmap(name) ? "bmp" : "png");
        EXPECT_FALSE(image.isNull());
        EXPECT_GE(image.width(), 16);
        EXPECT_LE(image.width(), 24);
        EXPECT_EQ(image.width(), image.height());
        EXPECT_EQ(!isBitmap(name), image.hasAlphaChannel());
        ++count;
    }
    EXPECT_EQ(41, count);
    EXPECT_EQ(41, QDir(QString::fromLatin1(":/icons")).entryList().size());
}

TEST(Resources, EveryCursorIsThereUnderItsName)
{
    int count = 0;
    for (const char* const name : Cursors) {
        SCOPED_TRACE(name);
        const QImage image = load(cursorPath(name), "png");
        EXPECT_FALSE(image.isNull());
        EXPECT_TRUE(image.hasAlphaChannel());
        ++count;
    }
    EXPECT_EQ(7, count);
    EXPECT_EQ(7, QDir(QString::fromLatin1(":/cursors")).entryList().size());
}

TEST(Resources, ASizeInANameIsTheSizeOfTheImage)
{
    const std::pair<const char*, int> sized[] = {{"icon-control-point-add-18x18.png", 18},
                                                 {"icon-control-point-remove-18x18.png", 18},
                                                 {"diamond-grey-23x23.png", 23},
                                                 {"diamond-blue-23x23.png", 23}};
    for (const std::pair<const char*, int>& image : sized)
        EXPECT_EQ(QSize(image.second, image.second), QImage(iconPath(image.first)).size()) << image.first;
}

TEST(Resources, EveryImageStandsOutFromLightAndFromDarkGround)
{
    for (const char* const name : Icons) {
        EXPECT_GE(countOutstanding(QImage(iconPath(name)), Light), 25) << name;
        EXPECT_GE(countOutstanding(QImage(iconPath(name)), Dark), 25) << name;
    }
    for (const char* const name : Cursors) {
        EXPECT_GE(countOutstanding(QImage(cursorPath(name)), Light), 16) << name;
        EXPECT_GE(countOutstanding(QImage(cursorPath(name)), Dark), 16) << name;
    }
}

TEST(Resources, NoTwoImagesAreTheSame)
{
    QList<QImage> images;
    for (const char* const name : Icons)
        images.append(QImage(iconPath(name)));
    for (const char* const name : Cursors)
        images.append(QImage(cursorPath(name)));
    for (int i = 0; i < images.size(); ++i)
        for (int j = 0; j < i; ++j)
            EXPECT_NE(images[i], images[j]) << i << " and " << j;
}

TEST(Resources, AnImageThatPointsIsDrawnAtItsHotSpot)
{
    // Where the cursor table puts the hot spot there is something to be seen, or, for the cross and
    // the light source, a dot in the very middle.
    const QImage adjustor(cursorPath("adjustor.png"));
    EXPECT_GT(qAlpha(adjustor.pixel(1, 1)), 200);
    const char* const centred[] = {"cross.png", "lightsource.png", "translate.png", "rotate.png"};
    for (const char* const name : centred) {
        const QImage image(cursorPath(name));
        EXPECT_EQ(1, image.width() % 2) << name;
        EXPECT_GT(qAlpha(image.pixel(image.width() / 2, image.height() / 2)), 200) << name;
    }
    EXPECT_EQ(QSize(21, 21), QImage(cursorPath("translate.png")).size()) << "the hot spot is 10, 10";
    EXPECT_EQ(QSize(21, 21), QImage(cursorPath("rotate.png")).size()) << "the hot spot is 10, 10";
    const QImage lens(cursorPath("zoom-in.png"));
    EXPECT_GT(qAlpha(lens.pixel(7, 7)), 200);
    EXPECT_LT(qGray(lens.pixel(7, 7)), 100);
}

TEST(Resources, ABundleCanBeTakenAwayAndRegisteredAgain)
{
    EXPECT_EQ(1, qCleanupResources_sdk_icons());
    EXPECT_FALSE(QFile::exists(iconPath("plus.png")));
    EXPECT_TRUE(QFile::exists(cursorPath("cross.png")));
    EXPECT_EQ(1, qInitResources_sdk_icons());
    EXPECT_TRUE(QFile::exists(iconPath("plus.png")));

    EXPECT_EQ(1, qCleanupResources_sdk_cursors());
    EXPECT_FALSE(QFile::exists(cursorPath("cross.png")));
    EXPECT_TRUE(QFile::exists(iconPath("plus.png")));
    EXPECT_EQ(1, qInitResources_sdk_cursors());
    EXPECT_TRUE(QFile::exists(cursorPath("cross.png")));
}

} // namespace velmora::test
