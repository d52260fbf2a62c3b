// The viewer on displays whose OpenGL is poor, or not there.

#include "tests/faults/FaultyRun.h"
#include "tests/support/ToolkitFacts.h"
#include "tests/viewer/PictureColours.h"

#include <QFile>
#include <QImage>

using namespace velmora::test;

namespace {

constexpr int NoDisplay = 3;
constexpr int Failed = 1;
const char* const Remedy = "glxinfo";
#ifdef __SANITIZE_ADDRESS__
constexpr bool IsSanitized = true;
#else
constexpr bool IsSanitized = false;
#endif

class PoorOpenGL : public FaultyRun {
protected:
    void useServer(const QStringList& options, const QString& screen = QLatin1String("1000x800x24"))
    {
        server = std::make_unique<XServer>(options, screen);
        useDisplay(*server);
    }

    QStringList task(const char* name, const QString& out) const
    {
        return QStringList() << name << out << "--size"
                             << "500x400" << data;
    }

    void expectPicture(const QStringList& arguments, const QString& picture)
    {
        expectRun(arguments, 0);
        expectSurface(QImage(picture));
    }

    /// What needs OpenGL is refused, with what was there before left alone; the rest works.
    void expectRefusalsAndSoftware()
    {
        const QString old = folder.write("old.png", "an older file");
        expectRun(QStringList() << data, NoDisplay, QStringList() << Remedy);
        expectRun(task("--snapshot", old), NoDisplay, QStringList() << Remedy);
        expectRun(task("--export", old), Failed, QStringList() << "other strategy");
        QFile kept(old);
        EXPECT_TRUE(kept.open(QIODevice::ReadOnly));
        EXPECT_STREQ(kept.readAll().constData(), "an older file");

        const QString picture = folder.file("out.png");
        expectPicture(task("--export", picture) << "--strategy"
                                                << "software",
                      picture);
        expectRun(task("--print", folder.file("out.pdf")), 0);
    }

    void expectPictures()
    {
        const QString picture = folder.file("out.png");
        expectPicture(task("--snapshot", picture), picture);
        EXPECT_TRUE(QFile::remove(picture));
        expectPicture(task("--export", picture), picture);
    }

    std::unique_ptr<XServer> server;
    const QString data = folder.writeGrid();
};

} // namespace

TEST_F(PoorOpenGL, AServerWithoutTheExtensionServesThroughWhatElseThereIs)
{
    if (!hasPlatforms())
        GTEST_SKIP() << "Qt 4 draws into windows with GLX alone";
    useServer(QStringList() << "-extension"
                            << "GLX");
    expectPictures();
}

TEST_F(PoorOpenGL, AServerWithoutTheExtensionOrAnythingElseIsToldWithARemedy)
{
    useServer(QStringList() << "-extension"
                            << "GLX");
    setVariable("QT_XCB_GL_INTEGRATION", "none");
    expectRefusalsAndSoftware();
}

TEST_F(PoorOpenGL, AServerThatRefusesToDrawItselfIsToldWithARemedy)
{
    useServer(QStringList() << "-iglx");
    setVariable("LIBGL_ALWAYS_INDIRECT", "1");
    expectRefusalsAndSoftware();
}

TEST_F(PoorOpenGL, AServerThatDrawsItselfButInVainIsToldWithARemedy)
{
    if (IsSanitized)
        GTEST_SKIP() << "the OpenGL library reads beyond the empty version that such a server tells";
    if (!hasPlatforms())
        GTEST_SKIP() << "Qt 4 draws indirectly there, and is not told that the server refuses";
    useServer(QStringList() << "+iglx");
    setVariable("LIBGL_ALWAYS_INDIRECT", "1");
    expectRefusalsAndSoftware();
}

TEST_F(PoorOpenGL, WithoutDoubleBufferingEverythingIsDrawn)
{
    if (IsSanitized)
        GTEST_SKIP() << "nothing can be preloaded before the sanitizer";
    useServer(QStringList());
    setVariable("LD_PRELOAD", SINGLE_BUFFERED_GLX);
    expectPictures();
    // Qt 4 looks for no configurations of a window when it exports.
    expectRun(task("--snapshot", folder.file("out.png")), 0);
    EXPECT_TRUE(told().contains("configurations hidden")) << told().toStdString();
}

TEST_F(PoorOpenGL, SixteenBitsAreEnough)
{
    useServer(QStringList(), "800x600x16");
    expectPictures();
}

TEST_F(PoorOpenGL, AScreenOfEightBitsIsToldWithARemedy)
{
    useServer(QStringList(), "800x600x8");
    expectRefusalsAndSoftware();
}
