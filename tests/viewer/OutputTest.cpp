// Pictures and pages that the viewer writes without a window, as other programs see them.

#include "tests/support/Pixels.h"
#include "tests/viewer/PictureColours.h"
#include "tests/viewer/ViewerProcess.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegExp>
#include <QSizeF>

using namespace velmora::test;

namespace {

constexpr int DotsPerInch = 72;
constexpr double NoPrinterPrintsHere = 0.12; // inches: just within the hard-clip margins

QString outputOf(const char* program, const QStringList& arguments)
{
    QProcess process;
    process.start(QString::fromLatin1(program), arguments);
    EXPECT_TRUE(process.waitForFinished(60000)) << "Is " << program << " (poppler-utils) installed?";
    return QString::fromUtf8(process.readAllStandardOutput());
}

QSizeF pageMillimeters(const QString& pdf)
{
    QRegExp size("Page size:\\s+([0-9.]+) x ([0-9.]+) pts");
    EXPECT_GE(size.indexIn(outputOf("pdfinfo", QStringList() << pdf)), 0) << pdf.toStdString();
    return QSizeF(size.cap(1).toDouble(), size.cap(2).toDouble()) * 25.4 / 72;
}

QImage pagePicture(const QString& pdf)
{
    outputOf("pdftoppm", QStringList() << "-r" << QString::number(DotsPerInch) << "-png"
                                       << "-singlefile" << pdf << pdf);
    return QImage(pdf + ".png").convertToFormat(QImage::Format_RGB32);
}

/// The middle row of what is of about this colour.
double middleRow(const QImage& picture, QRgb color)
{
    double sum = 0;
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        const int inRow = countColor(picture.copy(0, y, picture.width(), 1), color, 12);
        sum += static_cast<double>(inRow) * y;
        count += inRow;
    }
    return count > 0 ? sum / count : -1;
}

void expectWhiteMargins(const QImage& picture)
{
    const int margin = static_cast<int>(NoPrinterPrintsHere * DotsPerInch);
    const QRect all = picture.rect();
    for (const QRect& strip : {QRect(0, 0, all.width(), margin), QRect(0, all.height() - margin, all.width(), margin),
                               QRect(0, 0, margin, all.height()), QRect(all.width() - margin, 0, margin, all.height())})
        EXPECT_EQ(countColor(picture.copy(strip), qRgb(255, 255, 255), 12), strip.width() * strip.height());
}

class Output : public ViewerProcess {
protected:
    Ended exportTo(const QString& picture, const char* options, const QString& data)
    {
        return run(QString::fromLatin1(options).split(' ') << "--export" << picture << data);
    }
    Ended printTo(const QString& pdf, const QStringList& options, const QString& data)
    {
        return run(QStringList(options) << "--print" << pdf << data);
    }

    void expectPage(const QStringList& options, double width, double height)
    {
        const QString pdf = folder.file("page.pdf");
        const Ended printed = printTo(pdf, options, folder.writeGrid());
        ASSERT_EQ(printed.exitCode, 0) << printed.error.toStdString();
        const QSizeF page = pageMillimeters(pdf);
        EXPECT_NEAR(page.width(), width, 1.0) << options.join(" ").toStdString();
        EXPECT_NEAR(page.height(), height, 1.0) << options.join(" ").toStdString();
    }
};

} // namespace

TEST_F(Output, AnExportHasTheAskedSizeAndShowsTheSurface)
{
    for (const char* const strategy : {"hardware", "software"}) {
        const QString picture = folder.file("out.png");
        const QByteArray options = QByteArray("--size 900x600 --supersample 2 --strategy ") + strategy;
        const Ended ended = exportTo(picture, options.constData(), folder.writeGrid());
        EXPECT_EQ(ended.exitCode, 0) << ended.error.toStdString();
        const QImage image(picture);
        EXPECT_EQ(image.width(), 900);
        EXPECT_EQ(image.height(), 600);
        expectSurface(image);
    }
}

TEST_F(Output, SupersamplingSmoothsThePictureAndKeepsItsSize)
{
    const QString rough = folder.file("rough.png");
    const QString smooth = folder.file("smooth.png");
    const QString data = folder.writeTable();
    ASSERT_EQ(exportTo(rough, "--size 400x300 --strategy software", data).exitCode, 0);
    ASSERT_EQ(exportTo(smooth, "--size 400x300 --strategy software --supersample 4", data).exitCode, 0);
    EXPECT_EQ(QImage(rough).size(), QImage(smooth).size());
    EXPECT_GT(differingFraction(QImage(rough), QImage(smooth), 8), 0.002);
    EXPECT_LT(differingFraction(QImage(rough), QImage(smooth), 8), 0.2);
}

TEST_F(Output, WhatCannotBeWrittenIsNamed)
{
    for (const char* const name : {"no/such/folder/out.png", "no/such/folder/out.pdf"}) {
        const QString output = folder.file(name);
        const char* const option = output.endsWith(".png") ? "--export" : "--print";
        const Ended ended = run(QStringList() << option << output << folder.writeTable());
        EXPECT_EQ(ended.exitCode, 1);
        EXPECT_TRUE(ended.error.contains(output)) << ended.error.toStdString();
    }
}

TEST_F(Output, WhatCannotBeReadIsNamedAndNothingIsWritten)
{
    const QString missing = folder.file("missing.csv");
    for (const char* const option : {"--export", "--print"}) {
        const QString output = folder.file("out");
        const Ended ended = run(QStringList() << option << output << missing);
        EXPECT_EQ(ended.exitCode, 1);
        EXPECT_TRUE(ended.error.contains(missing)) << ended.error.toStdString();
        EXPECT_FALSE(QFile::exists(output));
    }
}

TEST_F(Output, ThePrintedPageIsTheEnginesPaper)
{
    expectPage(QStringList(), 215.9, 279.4);
    expectPage(QStringList() << "--paper"
                             << "A4",
               210, 297);
    expectPage(QStringList() << "--paper"
                             << "A3"
                             << "--landscape",
               420, 297);
    expectPage(QStringList() << "--landscape"
                             << "--paper"
                             << "Letter",
               279.4, 215.9);
}

TEST_F(Output, ThePrintedSurfaceStandsUprightInsideTheMargins)
{
    const QString pdf = folder.file("page.pdf");
    for (const QStringList& options : {QStringList(), QStringList("--landscape")}) {
        ASSERT_EQ(printTo(pdf, options, folder.writeGrid()).exitCode, 0);
        const QImage page = pagePicture(pdf);
        ASSERT_FALSE(page.isNull());
        EXPECT_GT(plotPixels(page), page.width() * page.height() / 50);
        expectWhiteMargins(page);
        // The colour bar has the great heights above the low ones.
        const double high = middleRow(page, qRgb(250, 236, 150));
        const double low = middleRow(page, qRgb(56, 60, 132));
        EXPECT_GT(high, 0);
        EXPECT_GT(low, high);
    }
}

TEST_F(Output, ThePrintedLinesHaveNoSeams)
{
    const QString pdf = folder.file("page.pdf");
    ASSERT_EQ(printTo(pdf, QStringList(), folder.writeTable()).exitCode, 0);
    const QImage page = pagePicture(pdf);
    EXPECT_GT(countColor(page, qRgb(0, 92, 158), 40), 50);
    EXPECT_GT(countColor(page, qRgb(200, 78, 22), 40), 50);
    // The frame of the axes is the only line from one side to the other.
    int fullRows = 0;
    for (int y = 0; y < page.height(); ++y)
        fullRows += countColor(page.copy(0, y, page.width(), 1), qRgb(255, 255, 255), 4) == 0 ? 1 : 0;
    EXPECT_EQ(fullRows, 0);
}

TEST_F(Output, ValuesThatAreNoneAreRefused)
{
    const char* const wrong[] = {"--supersample 0", "--supersample 9", "--supersample x", "--strategy fast",
                                 "--paper Napkin",  "--supersample",   "--strategy",      "--paper"};
    for (const char* const words : wrong) {
        const Ended ended = run(QString::fromLatin1(words).split(' '));
        EXPECT_EQ(ended.exitCode, 2) << words;
        EXPECT_TRUE(ended.error.contains(QString::fromLatin1(words).section(' ', -1))) << ended.error.toStdString();
        EXPECT_EQ(ended.output.toStdString(), "");
    }
}
