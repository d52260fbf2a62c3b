// Pages that the viewer prints into a file without a window, as other programs see them.

#include "tests/support/Pixels.h"
#include "tests/viewer/PrintedPage.h"
#include "tests/viewer/ViewerProcess.h"

#include <QFile>
#include <cstdlib>

using namespace velmora::test;

namespace {

struct Paper {
    const char* name;
    double width; ///< millimetres
    double height;
};

constexpr Paper Papers[] = {
    {"Letter", 215.9, 279.4}, {"Double", 279.4, 431.8},  {"A4", 210, 297},
    {"A3", 297, 420},         {"Custom1", 203.2, 254.0}, {"Custom2", 254.0, 254.0},
};

class Print : public ViewerProcess {
protected:
    void print(const QStringList& options, const QString& data)
    {
        const Ended ended = run(QStringList(options) << "--print" << pdf << data);
        ASSERT_EQ(ended.exitCode, 0) << ended.error.toStdString();
    }

    void expectPage(double width, double height)
    {
        const QSizeF page = pageSizeOfPdf(pdf);
        EXPECT_NEAR(page.width(), width, 1.0);
        EXPECT_NEAR(page.height(), height, 1.0);
        expectUprightSurface(pagePicture(pdf));
    }

    QString pdf = folder.file("page.pdf");
};

} // namespace

TEST_F(Print, EveryPaperOfTheEngineIsThePageAndHasTheWholePictureUpright)
{
    const QString data = folder.writeGrid();
    for (const Paper& paper : Papers) {
        SCOPED_TRACE(paper.name);
        const QStringList options = QStringList() << "--paper" << paper.name;
        print(options, data);
        expectPage(paper.width, paper.height);
        print(QStringList(options) << "--landscape", data);
        expectPage(paper.height, paper.width);
    }
}

TEST_F(Print, ThePaperIsTheUsualOneOfTheLocaleAndUprightUnlessAnotherIsNamed)
{
    const QString data = folder.writeGrid();
    qputenv("LOCPATH", LOCALES);
    for (const char* const variable : {"LC_ALL", "LC_PAPER"}) {
        SCOPED_TRACE(variable);
        qputenv(variable, "en_US.UTF-8");
        EXPECT_TRUE(run(QStringList("--help")).output.contains("Letter (the default)"));
        print(QStringList(), data);
        expectPage(215.9, 279.4);
        qputenv(variable, "de_DE.UTF-8");
        EXPECT_TRUE(run(QStringList("--help")).output.contains("A4 (the default)"));
        print(QStringList(), data);
        expectPage(210, 297);
        unsetenv(variable);
    }
    unsetenv("LOCPATH");
}

TEST_F(Print, TheFileIsTitledWithTheNameOfTheDataAndTellsTheProgram)
{
    const QString named = folder.path() + QString::fromUtf8("/H\u00f6hen (1).asc");
    ASSERT_TRUE(QFile::rename(folder.writeGrid(), named));
    print(QStringList(), named);
    EXPECT_EQ(descriptionInPdf(pdf, "Title").toUtf8(), "H\u00f6hen (1).asc");
    EXPECT_EQ(descriptionInPdf(pdf, "Creator").toStdString(), "Viewer " LIBRARY_VERSION);
}

TEST_F(Print, ThePageHasThreeHundredDotsToTheInchAndNoPhotographsOfIt)
{
    for (const QString& data : {folder.writeGrid(), folder.writeTable()}) {
        print(QStringList(), data);
        EXPECT_EQ(pageImages(pdf).toStdString(), "image 300");
    }
}

TEST_F(Print, ThePrintedLinesHaveNoSeams)
{
    print(QStringList(), folder.writeTable());
    const QImage page = pagePicture(pdf);
    EXPECT_GT(countColor(page, qRgb(0, 92, 158), 40), 50);
    EXPECT_GT(countColor(page, qRgb(200, 78, 22), 40), 50);
    // The frame of the axes is the only line from one side to the other.
    int fullRows = 0;
    for (int y = 0; y < page.height(); ++y)
        fullRows += countColor(page.copy(0, y, page.width(), 1), qRgb(255, 255, 255), 4) == 0 ? 1 : 0;
    EXPECT_EQ(fullRows, 0);
}
