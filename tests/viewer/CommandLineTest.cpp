// What the viewer answers to its command line, as another program sees it.

#include "tests/viewer/PictureColours.h"
#include "tests/viewer/ViewerProcess.h"

#include <QFile>
#include <QImage>
#include <QRegExp>

using namespace velmora::test;

namespace {

QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '));
}

using CommandLine = ViewerProcess;

void expectWrongUsage(const Ended& run, const char* because)
{
    EXPECT_EQ(run.exitCode, 2) << because;
    EXPECT_TRUE(run.error.contains(QString::fromUtf8(because))) << run.error.toStdString();
    EXPECT_TRUE(run.error.contains(QLatin1String("--help"))) << run.error.toStdString();
    EXPECT_EQ(run.output.toStdString(), "");
}

void expectUnreadable(const Ended& run, const QString& fileName, const QString& picture)
{
    EXPECT_EQ(run.exitCode, 1) << fileName.toStdString();
    EXPECT_TRUE(run.error.contains(fileName)) << run.error.toStdString();
    EXPECT_EQ(run.output.toStdString(), "");
    EXPECT_FALSE(QFile::exists(picture)) << fileName.toStdString();
}

} // namespace

TEST_F(CommandLine, HelpTellsTheOptionsAndEndsWell)
{
    for (const char* const option : {"--help", "-h"}) {
        const Ended help = run(words(option));
        EXPECT_EQ(help.exitCode, 0);
        EXPECT_TRUE(help.output.startsWith(QLatin1String("usage: viewer"))) << help.output.toStdString();
        for (const char* const told : {"--snapshot", "--size", "--slow", "--version"})
            EXPECT_TRUE(help.output.contains(QLatin1String(told))) << told;
        EXPECT_EQ(help.error.toStdString(), "");
    }
}

TEST_F(CommandLine, TheVersionIsOneLine)
{
    const Ended version = run(words("--version"));
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_TRUE(QRegExp(QLatin1String("viewer \\d+\\.\\d+\\.\\d+\n")).exactMatch(version.output))
        << version.output.toStdString();
}

TEST_F(CommandLine, AnOptionThatThereIsNotIsRefusedByName)
{
    expectWrongUsage(run(words("--fast")), "--fast");
}

TEST_F(CommandLine, AnOptionWithoutItsValueIsRefused)
{
    expectWrongUsage(run(words("--snapshot")), "--snapshot needs a value");
    expectWrongUsage(run(words("--size")), "--size needs a value");
}

TEST_F(CommandLine, ASizeThatIsNoneIsRefused)
{
    for (const char* const size : {"large", "800", "800x", "x600", "0x600", "800x-1", "800x600x4", "1e3x20"})
        expectWrongUsage(run(words("--size") << QLatin1String(size)), size);
}

TEST_F(CommandLine, ASnapshotIsOfExactlyOneFile)
{
    expectWrongUsage(run(words("--snapshot out.png")), "exactly one data file");
    expectWrongUsage(run(words("--snapshot out.png a.csv b.csv")), "exactly one data file");
}

TEST_F(CommandLine, AFileThatCannotBeReadIsNamedAndNoPictureIsLeft)
{
    const QString picture = folder.file("out.png");
    const QString junk = folder.write("junk.dat", QByteArray("\x7f"
                                                             "ELF\0\1\2\xff\xfe\0\0\x80",
                                                             12)
                                                      .repeated(50));
    for (const QString& name : {folder.file("missing.csv"), folder.path(), junk})
        expectUnreadable(run(QStringList() << "--snapshot" << picture << name), name, picture);
}

TEST_F(CommandLine, ASnapshotOfAGridIsASurfaceOfTheAskedSize)
{
    const QString picture = folder.file("out.png");
    const Ended snapshot = run(QStringList() << "--snapshot" << picture << "--size"
                                             << "640x480" << folder.writeGrid());
    EXPECT_EQ(snapshot.exitCode, 0) << snapshot.error.toStdString();
    const QImage image(picture);
    EXPECT_EQ(image.width(), 640);
    EXPECT_EQ(image.height(), 480);
    expectSurface(image);
}

TEST_F(CommandLine, ASnapshotOfATableShowsItsLines)
{
    const QString picture = folder.file("out.png");
    const Ended snapshot = run(QStringList() << "--size"
                                             << "500x400" << folder.writeTable() << "--snapshot" << picture);
    EXPECT_EQ(snapshot.exitCode, 0) << snapshot.error.toStdString();
    const QImage image(picture);
    EXPECT_EQ(image.width(), 500);
    EXPECT_EQ(image.height(), 400);
    expectLines(image);
}

TEST_F(CommandLine, APictureThatCannotBeWrittenIsNamed)
{
    const QString picture = folder.file("no/such/folder/out.png");
    const Ended snapshot = run(QStringList() << "--snapshot" << picture << folder.writeTable());
    EXPECT_EQ(snapshot.exitCode, 1);
    EXPECT_TRUE(snapshot.error.contains(picture)) << snapshot.error.toStdString();
}
