// The viewer where there is no display, or none that it may use.

#include "tests/faults/FaultyRun.h"
#include "tests/support/Pixels.h"
#include "tests/support/ToolkitFacts.h"
#include "tests/viewer/PictureColours.h"

#include <QFile>
#include <QImage>

using namespace velmora::test;

namespace {

constexpr int NoDisplay = 3;
constexpr int Failed = 1;

class WithoutDisplay : public FaultyRun {
protected:
    WithoutDisplay() { setVariable("QT_QPA_PLATFORM", QString()); }

    void expectRefusals(const QStringList& tasks, const QStringList& words)
    {
        const QString out = folder.file("out");
        expectRun(QStringList() << data, NoDisplay, words);
        for (const QString& task : tasks)
            expectRun(QStringList() << task << out << data, NoDisplay, words);
        EXPECT_FALSE(QFile::exists(out));
    }

    /// What an export writes, in the environment as it is set.
    QImage exported(const char* strategy)
    {
        const QString out = folder.file("out.png");
        QFile::remove(out);
        expectRun(QStringList() << "--export" << out << "--size"
                                << "500x400"
                                << "--strategy" << strategy << data,
                  0);
        return QImage(out);
    }

    const QStringList everyTask = QString::fromLatin1("--snapshot --export --print").split(' ');
    const QString data = folder.writeGrid();
};

} // namespace

TEST_F(WithoutDisplay, AnUnsetVariableIsToldWithItsRemedy)
{
    setVariable("DISPLAY", QString());
    expectRefusals(QStringList() << "--snapshot", QStringList() << "DISPLAY is not set"
                                                                << "xvfb-run");
}

TEST_F(WithoutDisplay, ADisplayThatIsNotThereIsToldByName)
{
    // Servers of other tests take the lowest numbers that are free.
    const char* const nobodys = ":59000";
    setVariable("DISPLAY", nobodys);
    expectRefusals(everyTask, QStringList() << nobodys << "cannot be opened"
                                            << "xvfb-run");
}

TEST_F(WithoutDisplay, ANameThatIsNoneIsToldByName)
{
    setVariable("DISPLAY", "nonsense");
    expectRefusals(everyTask, QStringList() << "\"nonsense\" cannot be opened");
}

TEST_F(WithoutDisplay, ExportingAndPrintingNeedNone)
{
    if (!hasPlatforms())
        GTEST_SKIP() << "Qt 4 needs an X server for everything";
    setVariable("DISPLAY", QString());
    for (const char* const osMesa : {"", "/there/is/none"}) {
        setVariable("VELMORA_OSMESA_LIBRARY", osMesa);
        for (const char* const strategy : {"hardware", "software"})
            expectSurface(exported(strategy));
        expectRun(QStringList() << "--print" << folder.file("out.pdf") << data, 0);
        EXPECT_TRUE(QFile::exists(folder.file("out.pdf")));
        QFile::remove(folder.file("out.pdf"));
    }
    EXPECT_EQ(told().toStdString(), "");
}

TEST_F(WithoutDisplay, AnExportHasThePictureThatItHasOnADisplay)
{
    if (!hasPlatforms())
        GTEST_SKIP() << "Qt 4 needs an X server for everything";
    // As the drawings of tests/offscreen agree with each other.
    constexpr int PerChannel = 2;
    constexpr double Share = 0.001;
    const QImage throughPixelBuffer = exported("hardware");
    setVariable("DISPLAY", QString());
    EXPECT_LE(differingFraction(exported("hardware"), throughPixelBuffer, PerChannel), Share) << "through EGL";
    EXPECT_LE(differingFraction(exported("software"), throughPixelBuffer, PerChannel), Share) << "by software";
    setVariable("VELMORA_OSMESA_LIBRARY", "/there/is/none");
    EXPECT_LE(differingFraction(exported("software"), throughPixelBuffer, PerChannel), Share) << "without OSMesa";
}

TEST_F(WithoutDisplay, WithNeitherEglNorOSMesaAnExportFailsWithAReasonAndPrintingToo)
{
    if (!hasPlatforms())
        GTEST_SKIP() << "Qt 4 needs an X server for everything";
    setVariable("DISPLAY", QString());
    setVariable("VELMORA_OSMESA_LIBRARY", "/there/is/none");
    setVariable("VELMORA_EGL_LIBRARY", "/there/is/none");
    for (const QString& task : {QString("--export"), QString("--print")})
        expectRun(QStringList() << task << folder.file("out") << data, Failed,
                  QStringList() << "Failed to create an offscreen image.");
    EXPECT_FALSE(QFile::exists(folder.file("out")));
}

TEST_F(WithoutDisplay, TheVersionAndTheHelpNeedNone)
{
    setVariable("DISPLAY", QString());
    expectRun(QStringList() << "--help", 0);
    expectRun(QStringList() << "--version", 0);
}
