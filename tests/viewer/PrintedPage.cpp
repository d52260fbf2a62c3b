#include "tests/viewer/PrintedPage.h"

#include "tests/support/Pixels.h"
#include "tests/viewer/PictureColours.h"

#include <QFile>
#include <QProcess>
#include <QStringList>
#include <gtest/gtest.h>
#include <string>

namespace velmora::test {

namespace {

constexpr double NoPrinterPrintsHere = 0.12; // inches: just within the hard-clip margins
constexpr int ColourTolerance = 12;
constexpr int Dark = 140;
constexpr int AlmostWhite = 200;
const QRgb White = qRgb(255, 255, 255);
const QRgb Highest = qRgb(250, 236, 150);
const QRgb Lowest = qRgb(56, 60, 132);

QString outputOf(const char* program, const QStringList& arguments)
{
    QProcess process;
    process.start(QString::fromLatin1(program), arguments);
    EXPECT_TRUE(process.waitForFinished(60000)) << "Is " << program << " (poppler-utils) installed?";
    return QString::fromUtf8(process.readAllStandardOutput());
}

QImage rendered(const char* program, const QString& pdf, int dotsPerInch)
{
    outputOf(program, QStringList() << "-r" << QString::number(dotsPerInch) << "-png"
                                    << "-singlefile" << pdf << pdf);
    const QImage image = QImage(pdf + ".png").convertToFormat(QImage::Format_RGB32);
    QFile::remove(pdf + ".png");
    return image;
}

template <typename Condition>
QRect extentOf(const QImage& picture, const QRect& where, Condition condition)
{
    QRect extent;
    const QRect part = where & picture.rect();
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x)
            if (condition(picture.pixel(x, y)))
                extent |= QRect(x, y, 1, 1);
    }
    return extent;
}

QRect extentOfColour(const QImage& picture, const QRect& where, QRgb colour)
{
    return extentOf(picture, where, [colour](QRgb pixel) {
        return qAbs(qRed(pixel) - qRed(colour)) <= ColourTolerance &&
               qAbs(qGreen(pixel) - qGreen(colour)) <= ColourTolerance &&
               qAbs(qBlue(pixel) - qBlue(colour)) <= ColourTolerance;
    });
}

QRect extentOfText(const QImage& picture, const QRect& where)
{
    return extentOf(picture, where, [](QRgb pixel) { return qGray(pixel) < Dark; });
}

void expectWhiteMargins(const QImage& page, int dotsPerInch)
{
    const int margin = static_cast<int>(NoPrinterPrintsHere * dotsPerInch);
    const QRect all = page.rect();
    for (const QRect& strip : {QRect(0, 0, all.width(), margin), QRect(0, all.height() - margin, all.width(), margin),
                               QRect(0, 0, margin, all.height()), QRect(all.width() - margin, 0, margin, all.height())})
        EXPECT_EQ(countColor(page.copy(strip), White, ColourTolerance), strip.width() * strip.height());
}

// The title stands in the middle over all else.
void expectTitle(const QImage& page)
{
    const QRect title = extentOfText(page, QRect(0, 0, page.width(), page.height() / 12));
    ASSERT_FALSE(title.isEmpty());
    EXPECT_NEAR(title.center().x(), page.width() / 2.0, page.width() * 0.02);
    EXPECT_GT(title.width(), 2 * title.height());
}

// The colour bar stands to the right of the surface, the great heights above the low ones and the
// numbers to its right.
void expectColourBar(const QImage& page)
{
    const QRect bar = colourBar(page);
    ASSERT_GT(bar.height(), page.height() / 3);
    const QRect numbers = extentOfText(page, QRect(bar.right() + 3, 0, page.width(), page.height()));
    EXPECT_NEAR(numbers.top(), bar.top(), page.height() * 0.05);
    EXPECT_NEAR(numbers.bottom(), bar.bottom(), page.height() * 0.05);
    EXPECT_GT(plotPixels(page.copy(0, 0, bar.left() - 2, page.height())), page.width() * page.height() / 50);
}

} // namespace

QImage pagePicture(const QString& pdf, int dotsPerInch)
{
    return rendered("pdftoppm", pdf, dotsPerInch);
}

QImage pageOnScreen(const QString& pdf, int dotsPerInch)
{
    return rendered("pdftocairo", pdf, dotsPerInch);
}

QString pageImages(const QString& pdf)
{
    constexpr int Encoding = 8;
    constexpr int DotsPerInch = 12;
    QStringList kinds;
    const QStringList lines = outputOf("pdfimages", QStringList() << "-list" << pdf).split('\n').mid(2);
    for (const QString& line : lines) {
        const QStringList columns = line.simplified().split(' ');
        if (columns.size() > DotsPerInch)
            kinds << columns[Encoding] + ' ' + columns[DotsPerInch];
    }
    kinds.removeDuplicates();
    return kinds.join(", ");
}

QRect contents(const QImage& page)
{
    return extentOf(page, page.rect(), [](QRgb pixel) { return qGray(pixel) < AlmostWhite; });
}

QRect colourBar(const QImage& page)
{
    const QRect rightQuarter(page.width() * 3 / 4, 0, page.width(), page.height());
    const QRect high = extentOfColour(page, rightQuarter, Highest);
    const QRect below(high.left(), high.bottom(), high.width(), page.height());
    return high.isEmpty() ? QRect() : high | extentOfColour(page, below, Lowest);
}

void expectUprightSurface(const QImage& page, int dotsPerInch)
{
    ASSERT_FALSE(page.isNull());
    expectWhiteMargins(page, dotsPerInch);
    expectTitle(page);
    expectColourBar(page);
}

} // namespace velmora::test
