// Pictures that the viewer writes without a window.

#include "tests/support/Pixels.h"
#include "tests/viewer/PictureColours.h"
#include "tests/viewer/ViewerProcess.h"

#include <QFile>
#include <QImage>

using namespace velmora::test;

namespace {

class Output : public ViewerProcess {
protected:
    Ended exportTo(const QString& picture, const char* options, const QString& data)
    {
        return run(QString::fromLatin1(options).split(' ') << "--export" << picture << data);
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

TEST_F(Output, TextIsAsLargeAsAtTheAskedResolution)
{
    const QString usual = folder.file("usual.png");
    const QString same = folder.file("same.png");
    const QString finer = folder.file("finer.png");
    const QString data = folder.writeTable();
    ASSERT_EQ(exportTo(usual, "--size 1000x700 --strategy software", data).exitCode, 0);
    ASSERT_EQ(exportTo(same, "--size 1000x700 --strategy software --dpi 96", data).exitCode, 0);
    ASSERT_EQ(exportTo(finer, "--size 1000x700 --strategy software --dpi 192", data).exitCode, 0);
    EXPECT_EQ(differingFraction(QImage(usual), QImage(same), 0), 0);
    EXPECT_GT(differingFraction(QImage(usual), QImage(finer), 8), 0.01);
}

// What is drawn larger to be averaged has larger text, too.
TEST_F(Output, TextOfASmallPictureIsOfTheSameSizeHoweverItIsSmoothed)
{
    const QString data = folder.writeTable();
    QList<QImage> pictures;
    for (const char* const options : {"--size 160x120 --supersample 2", "--size 160x120 --supersample 8"}) {
        ASSERT_EQ(exportTo(folder.file("out.png"), options, data).exitCode, 0);
        pictures.append(QImage(folder.file("out.png")));
    }
    EXPECT_LT(differingFraction(pictures[0], pictures[1], 60), 0.03);
}

TEST_F(Output, WhatThereIsToKnowAboutTheReadingIsToldOnStandardError)
{
    const QString data = folder.write("odd.csv", "t,v,w\n0,1,sun\n1,wet,fog\n2,3,sun\n");
    for (const char* const option : {"--export", "--print", "--snapshot"}) {
        const Ended ended = run(QStringList() << option << folder.file("out") << data);
        EXPECT_EQ(ended.exitCode, 0) << ended.error.toStdString();
        EXPECT_TRUE(ended.error.contains("viewer: The column \"v\": 'wet' in line 3 is no number")) << option;
        EXPECT_TRUE(ended.error.contains("viewer: The column \"w\" holds text and is left out.")) << option;
    }
    EXPECT_EQ(exportTo(folder.file("out.png"), "--size 200x200", folder.writeTable()).error, QString());
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

TEST_F(Output, AModuleReadsItsOwnFilesAndOneThatIsNoneIsNamed)
{
    const QString data = folder.file("a.stripes");
    QFile file(data);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("stripes 4");
    file.close();
    const QString picture = folder.file("stripes.png");
    const QStringList words = QStringList() << "--export" << picture << "--size"
                                            << "80x60" << data;
    ASSERT_EQ(run(QStringList() << "--content" << VELMORA_TEST_STRIPES_MODULE << words).exitCode, 0);
    EXPECT_EQ(QImage(picture).pixel(5, 30), qRgb(0, 0, 255));
    EXPECT_EQ(QImage(picture).pixel(15, 30), qRgb(255, 255, 255));

    const Ended refused = run(QStringList() << "--content" << data << words);
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.error.contains(data)) << refused.error.toStdString();
}

TEST_F(Output, ValuesThatAreNoneAreRefused)
{
    const char* const wrong[] = {"--supersample 0", "--supersample 9", "--supersample x", "--strategy fast",
                                 "--dpi 0",         "--dpi 2401",      "--dpi fine",      "--dpi",
                                 "--paper Napkin",  "--supersample",   "--strategy",      "--paper",
                                 "--content"};
    for (const char* const words : wrong) {
        const Ended ended = run(QString::fromLatin1(words).split(' '));
        EXPECT_EQ(ended.exitCode, 2) << words;
        EXPECT_TRUE(ended.error.contains(QString::fromLatin1(words).section(' ', -1))) << ended.error.toStdString();
        EXPECT_EQ(ended.output.toStdString(), "");
    }
}
