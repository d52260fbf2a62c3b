// What the viewer answers to its command line, as another program sees it.

#include "tests/faults/ForeignWindow.h"
#include "tests/viewer/PictureColours.h"
#include "tests/viewer/ViewerProcess.h"

#include <QFile>
#include <QImage>

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
        for (const char* const told : {"--snapshot", "--size", "32768", "--slow", "--version", " -- ", ".png"})
            EXPECT_TRUE(help.output.contains(QLatin1String(told))) << told;
        EXPECT_EQ(help.error.toStdString(), "");
    }
}

TEST_F(CommandLine, TheManPageHasEveryOptionOfTheHelpAndNoOther)
{
    QFile file(MAN_PAGE);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString page = QString::fromUtf8(file.readAll()).remove('\\');
    QStringList described;
    const QStringList items = page.split(".TP\n").mid(1);
    for (const QString& item : items) // such as ".BR --help ", " -h"
        described += item.section('\n', 0, 0).split(' ').filter("-");
    QStringList offered;
    const QStringList lines = run(words("--help")).output.split('\n');
    for (const QString& line : lines)
        if (line.startsWith("  -"))
            offered += line.left(26).remove(',').split(' ').filter("-");
    described.sort();
    offered.sort();
    EXPECT_GE(offered.size(), 13);
    EXPECT_EQ(described.join(" ").toStdString(), offered.join(" ").toStdString());
}

TEST_F(CommandLine, HelpNamesEveryPaper)
{
    const QString help = run(words("--help")).output.remove(" (the default)");
    EXPECT_TRUE(help.contains(" Letter, Double, A4, A3, Custom1 or Custom2\n")) << help.toStdString();
}

TEST_F(CommandLine, TheVersionIsThatOfTheLibraryOnOneLine)
{
    const Ended version = run(words("--version"));
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_EQ(version.output.toStdString(), "viewer " LIBRARY_VERSION "\n");
}

TEST_F(CommandLine, AnOptionThatThereIsNotIsRefusedByName)
{
    expectWrongUsage(run(words("--fast")), "There is no option --fast.");
}

TEST_F(CommandLine, AWordThatBeginsWithADashIsAnOption)
{
    for (const char* const word : {"-v", "-b", "-x.csv", "-platform", "---"})
        expectWrongUsage(run(words(word)), (std::string("There is no option ") + word + ".").c_str());
}

// One by which the engine, and one by which the toolkit would have its way, if they got to see it.
TEST_F(CommandLine, AFileWhoseNameBeginsWithADashIsGivenBehindTwoDashesOrByItsFolder)
{
    folder.write("-b", "x,y\n0,1\n1,3\n2,2\n");
    folder.write("-testability", "x,y\n0,1\n1,3\n2,2\n");
    for (const char* const file : {"-- -b", "./-b", "-- -testability"}) {
        const Ended written = run(words("--strategy software --export out.png") + words(file));
        EXPECT_EQ(written.exitCode, 0) << file;
        EXPECT_EQ(written.error.toStdString(), "") << file;
        EXPECT_TRUE(QFile::remove(folder.file("out.png"))) << file;
    }
}

TEST_F(CommandLine, BehindTwoDashesThereAreFilesOnly)
{
    expectWrongUsage(run(words("--export out.png -- --print a.csv")), "exactly one data file");
    expectUnreadable(run(words("--export out.png -- --help")), "--help", folder.file("out.png"));
}

TEST_F(CommandLine, OneDashIsNoOption)
{
    expectUnreadable(run(words("--export out.png -")), "-", folder.file("out.png"));
}

TEST_F(CommandLine, OnlyOnePictureCanBeMade)
{
    for (const char* const both : {"--export a.png --print a.pdf a.csv", "--print a.pdf --snapshot a.png a.csv",
                                   "--export a.png --export b.png a.csv"})
        expectWrongUsage(run(words(both)), "Only one of --snapshot, --export and --print can be given.");
}

TEST_F(CommandLine, ASuffixOfAnotherFormatIsRefused)
{
    expectWrongUsage(run(words("--export x.jpg a.csv")),
                     "x.jpg: images are written as PNG; give a name that ends in .png.");
    expectWrongUsage(run(words("--snapshot b.png/x.pdf a.csv")),
                     "b.png/x.pdf: images are written as PNG; give a name that ends in .png.");
    expectWrongUsage(run(words("--print x.png a.csv")),
                     "x.png: pages are printed as PDF; give a name that ends in .pdf.");
}

TEST_F(CommandLine, TheSuffixMayBeInCapitalsOrMissing)
{
    const QString data = folder.writeTable();
    for (const char* const task : {"--snapshot x.PNG", "--snapshot x", "--print x.Pdf", "--print x"}) {
        const Ended written = run(words(task) << data);
        EXPECT_EQ(written.exitCode, 0) << task << ": " << written.error.toStdString();
        EXPECT_TRUE(QFile::remove(folder.file(words(task)[1].toUtf8().constData()))) << task;
    }
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

TEST_F(CommandLine, ASizeThatIsTooLargeIsRefusedWithTheRange)
{
    for (const char* const size : {"100000x100000", "%2x1", "32769x1", "1x32769", "4294967297x1"})
        expectWrongUsage(run(words("--size") << QLatin1String(size)), "1 to 32768");
}

TEST_F(CommandLine, AnImageMayBeAsLargeAsTheRangeAllows)
{
    const Ended written = run(words("--strategy software --size 32768x8 --export out.png") << folder.writeTable());
    EXPECT_EQ(written.exitCode, 0) << written.error.toStdString();
    EXPECT_EQ(QImage(folder.file("out.png")).size(), QSize(32768, 8));
}

TEST_F(CommandLine, ASnapshotThatTheScreenCannotHoldIsRefusedWithItsSize)
{
    const Ended snapshot = run(words("--size 5000x300 --snapshot out.png") << folder.writeTable());
    EXPECT_EQ(snapshot.exitCode, 1);
    EXPECT_TRUE(snapshot.error.contains("cannot be larger than")) << snapshot.error.toStdString();
    EXPECT_TRUE(snapshot.error.contains("--export")) << snapshot.error.toStdString();
    EXPECT_FALSE(QFile::exists(folder.file("out.png")));
}

TEST_F(CommandLine, AWindowIsNoLargerThanTheScreen)
{
    QProcess viewer;
    start(viewer, words("--size 30000x30000") << folder.writeTable());
    const ForeignWindow window(QString::fromLocal8Bit(qgetenv("DISPLAY")), "lines.csv - Viewer");
    const QSize beyond = window.size() - window.screenSize(); // a pixel of a toolkit that scales is more than one
    EXPECT_LE(qMax(qAbs(beyond.width()), qAbs(beyond.height())), 2);
    window.close();
    const Ended ended = waitForEnd(viewer);
    EXPECT_EQ(ended.exitCode, 0);
    EXPECT_EQ(ended.error.toStdString(), "");
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

TEST_F(CommandLine, ASnapshotOfAnOddSizeIsPaintedUpToItsEdges)
{
    const QString picture = folder.file("out.png");
    const Ended snapshot = run(QStringList() << "--snapshot" << picture << "--size"
                                             << "401x303" << folder.writeGrid());
    EXPECT_EQ(snapshot.exitCode, 0) << snapshot.error.toStdString();
    const QImage image(picture);
    ASSERT_EQ(image.size(), QSize(401, 303));
    for (const QPoint& corner : {QPoint(400, 0), QPoint(0, 302), QPoint(400, 302)})
        EXPECT_EQ(image.pixel(corner), image.pixel(0, 0)) << corner.x() << "," << corner.y();
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
