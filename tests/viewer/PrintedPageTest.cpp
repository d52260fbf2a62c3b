// What is printed against what the engine draws.

#include "tests/viewer/PrintedPage.h"
#include "EngineSession.h"
#include "FileOutput.h"
#include "Options.h"
#include "engine/VelUtil.h"
#include "interfaces/EngineEnumerations.h"
#include "testing/EngineProbe.h"
#include "tests/printing/KernelPaper.h"
#include "tests/support/Pixels.h"
#include "tests/viewer/TempFolder.h"

#include <cstring>
#include <gtest/gtest.h>

using namespace velmora::test;
using namespace velmora::sdk::integration;

namespace {

constexpr double MillimetersPerInch = 25.4;
enum Paper { Letter = 0, A4 = 2, Custom2 = 5 };

int takeRow(int row, int width, int height, const unsigned char* rgb, long clientData)
{
    QImage& image = *reinterpret_cast<QImage*>(clientData);
    if (row == 0)
        image = QImage(width, height, QImage::Format_RGB888);
    std::memcpy(image.scanLine(row), rgb, 3 * static_cast<std::size_t>(width));
    return 1;
}

/// The page as the engine draws it now.
QImage drawnPage(int dotsPerInch)
{
    QImage image;
    EXPECT_EQ(VelUtilRenderPage(dotsPerInch, ImageRenderingStrategy_Software, &takeRow, reinterpret_cast<long>(&image)),
              1);
    return image.convertToFormat(QImage::Format_RGB32);
}

/// How many pixels in the middle of the colour bar are lighter than what is above and below them.
int seamPixels(const QImage& page)
{
    const QRect bar = colourBar(page);
    EXPECT_GT(bar.height(), page.height() / 3);
    const int x = bar.center().x();
    int count = 0;
    for (int y = bar.top() + 3; y <= bar.bottom() - 3; ++y) {
        const int lightest = qMax(qGray(page.pixel(x, y - 3)), qGray(page.pixel(x, y + 3)));
        count += qGray(page.pixel(x, y)) > lightest + 2 ? 1 : 0;
    }
    return count;
}

class PrintedPage : public ::testing::Test {
protected:
    PrintedPage() { velmora::testing::EngineProbe::reset(); }

    void print(const QString& data, int paper, bool landscape)
    {
        viewer::Options options;
        options.files << data;
        options.output = pdf;
        options.paper = paper;
        options.landscape = landscape;
        m_session.setPaper(options.paper, options.landscape);
        ASSERT_EQ(viewer::printFile(options), 0);
    }

    TempFolder folder;
    QString pdf = folder.file("page.pdf");

    void printOnCustom(const QString& data, double width, double height, bool landscape)
    {
        setKernelLength("Custom2", "Width", width / MillimetersPerInch);
        setKernelLength("Custom2", "Height", height / MillimetersPerInch);
        print(data, Custom2, landscape);
    }

    void expectPage(const QSizeF& millimeters)
    {
        const QSizeF page = pageSizeOfPdf(pdf);
        EXPECT_NEAR(page.width(), millimeters.width(), 1.0);
        EXPECT_NEAR(page.height(), millimeters.height(), 1.0);
    }

private:
    char m_name[7] = "viewer";
    char* m_arguments[2] = {m_name, nullptr};
    viewer::EngineSession m_session{1, m_arguments};
};

} // namespace

TEST_F(PrintedPage, IsDotForDotWhatTheEngineDraws)
{
    const struct {
        QString data;
        int paper;
        bool landscape;
    } pages[] = {{folder.writeTable(), Letter, false}, {folder.writeGrid(), A4, true}};
    for (const auto& page : pages) {
        print(page.data, page.paper, page.landscape);
        const QImage drawn = drawnPage(300);
        const QImage printed = pagePicture(pdf, 300);
        // The sheet is cut to the dot, the drawing is not.
        EXPECT_NEAR(printed.width(), drawn.width(), 2);
        EXPECT_NEAR(printed.height(), drawn.height(), 2);
        const QRect both = printed.rect() & drawn.rect();
        EXPECT_EQ(differingFraction(printed.copy(both), drawn.copy(both), 0), 0);
        EXPECT_EQ(differingFraction(pageOnScreen(pdf, 300).copy(both), drawn.copy(both), 4), 0);
    }
}

TEST_F(PrintedPage, ShowsNoSeamsAtAnySizeOnTheScreen)
{
    print(folder.writeGrid(), Letter, false);
    for (const int dotsPerInch : {61, 72, 100, 133, 149})
        EXPECT_EQ(seamPixels(pageOnScreen(pdf, dotsPerInch)), 0) << dotsPerInch;
}

TEST_F(PrintedPage, APaperThatOnlyTheToolkitNamesOrNoneNamesIsThePageAndHasTheWholePictureUpright)
{
    const double papers[][2] = {{148, 210}, {110, 220}, {432, 279}, {300, 240}, {133, 190}};
    const QString data = folder.writeGrid();
    for (const auto& paper : papers) {
        for (const bool landscape : {false, true}) {
            SCOPED_TRACE(::testing::Message() << paper[0] << " x " << paper[1] << (landscape ? " turned" : ""));
            printOnCustom(data, paper[0], paper[1], landscape);
            expectPage(landscape ? QSizeF(paper[1], paper[0]) : QSizeF(paper[0], paper[1]));
            expectUprightSurface(pagePicture(pdf));
        }
    }
}

TEST_F(PrintedPage, ASheetOfTheBSeriesOfJISIsDrawnSmallerSoThatItsNamesakeOfISOHasAllOfIt)
{
    for (const bool landscape : {false, true}) {
        printOnCustom(folder.writeGrid(), 182, 257, landscape);
        expectPage(landscape ? QSizeF(250, 176) : QSizeF(176, 250));
        expectUprightSurface(pagePicture(pdf));
        const QRect printed = contents(pagePicture(pdf, 150));
        const QRect drawn = contents(drawnPage(150));
        EXPECT_NEAR(printed.left(), drawn.left() * 176.0 / 182, 2);
        EXPECT_NEAR(printed.right(), drawn.right() * 176.0 / 182, 4);
        EXPECT_NEAR(printed.bottom(), drawn.bottom() * 176.0 / 182, 4);
    }
}
