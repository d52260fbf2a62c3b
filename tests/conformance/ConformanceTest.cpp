// The program that tells which promises a content keeps: of the engine's plots, of others', and of broken ones.
#include "tests/viewer/TempFolder.h"

#include <QFile>
#include <QProcess>
#include <QStringList>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

struct Verdict {
    int exitCode = -1;
    std::string output;
    std::string error;
};

class Conformance : public ::testing::Test {
protected:
    static Verdict run(const QStringList& arguments)
    {
        constexpr int LongEnough = 300000; // milliseconds, also under the sanitizers
        QProcess process;
        process.start(QString::fromLatin1(VELMORA_CONFORMANCE_PROGRAM), arguments);
        Verdict verdict;
        if (process.waitForFinished(LongEnough) && process.exitStatus() == QProcess::NormalExit)
            verdict.exitCode = process.exitCode();
        verdict.output = process.readAllStandardOutput().constData();
        verdict.error = process.readAllStandardError().constData();
        return verdict;
    }
    /// A file of that name and text, read by the module.
    Verdict runOn(const char* module, const char* name, const char* text) const
    {
        QFile file(folder.file(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        return run(QStringList() << "--content" << module << file.fileName());
    }

    TempFolder folder;
};

TEST_F(Conformance, BothPlotsKeepEveryPromiseInEveryContext)
{
    const QStringList files = QStringList() << folder.writeTable() << folder.writeGrid();
    const Verdict verdict = run(files);
    EXPECT_EQ(verdict.exitCode, 0) << verdict.output << verdict.error;
    EXPECT_THAT(verdict.output, Not(HasSubstr("BROKEN")));
    for (const char* const where : {"drawing area", "pixel buffer", "EGL image", "software image", "engine"})
        EXPECT_THAT(verdict.output, HasSubstr(std::string("kept    ") + where)) << where;
    for (const char* const promise : {"slices", "interruption", "no state left", "parts and whole", "screen and off"})
        EXPECT_THAT(verdict.output, HasSubstr(promise));
}

TEST_F(Conformance, AContentOfAModuleKeepsThemToo)
{
    const Verdict verdict = runOn(VELMORA_TEST_STRIPES_MODULE, "a.stripes", "stripes 40");
    EXPECT_EQ(verdict.exitCode, 0) << verdict.output << verdict.error;
}

TEST_F(Conformance, TheExampleOfARendererKeepsThemToo)
{
    // From far away, where most points leave at once: it takes seconds near by.
    const Verdict verdict = runOn(VELMORA_TEST_FRACTAL_MODULE, "far.fractal", "fractal 0 0 40");
    EXPECT_EQ(verdict.exitCode, 0) << verdict.output << verdict.error;
    EXPECT_THAT(verdict.output, HasSubstr("kept    software image screen and off"));

    const Verdict wrong = runOn(VELMORA_TEST_FRACTAL_MODULE, "wrong.fractal", "fractal 0 0");
    EXPECT_EQ(wrong.exitCode, 1);
}

TEST_F(Conformance, AContentThatGoesOnAfterItWasStoppedIsTold)
{
    const Verdict verdict = runOn(VELMORA_TEST_MODULE_THAT_GOES_ON, "data", "broken");
    EXPECT_EQ(verdict.exitCode, 1) << verdict.error;
    EXPECT_THAT(verdict.output, AllOf(HasSubstr("BROKEN  drawing area   interruption"), HasSubstr("was told to stop")));
    EXPECT_THAT(verdict.output, HasSubstr("kept    drawing area   parts and whole")) << "it keeps the others";
}

TEST_F(Conformance, AContentThatLeavesStateBehindIsToldWithTheState)
{
    const Verdict verdict = runOn(VELMORA_TEST_MODULE_THAT_LEAVES_STATE, "data", "broken");
    EXPECT_EQ(verdict.exitCode, 1) << verdict.error;
    EXPECT_THAT(verdict.output, HasSubstr("GL_CULL_FACE is 1 afterwards, 0 before"));
}

TEST_F(Conformance, AContentWhosePartsDoNotFitTogetherIsTold)
{
    const Verdict verdict = runOn(VELMORA_TEST_MODULE_THAT_IGNORES_ITS_PLACE, "data", "broken");
    EXPECT_EQ(verdict.exitCode, 1) << verdict.error;
    EXPECT_THAT(verdict.output, HasSubstr("BROKEN  drawing area   parts and whole"));
    EXPECT_THAT(verdict.output, HasSubstr("kept    drawing area   no state left"));
}

TEST_F(Conformance, AnEngineIsAskedFromOutsideByTheFunctionThatIsNamed)
{
    const Verdict verdict = run(QStringList() << "--engine"
                                              << "--load"
                                              << "VelUtilDataLoad" << folder.writeGrid());
    EXPECT_EQ(verdict.exitCode, 0) << verdict.output << verdict.error;
    EXPECT_THAT(verdict.output, AllOf(HasSubstr("kept    engine"), Not(HasSubstr("drawing area"))));

    const Verdict none = run(QStringList() << "--load"
                                           << "NoSuchFunction" << folder.writeGrid());
    EXPECT_EQ(none.exitCode, 2);
    EXPECT_THAT(none.error, HasSubstr("NoSuchFunction"));
}

TEST_F(Conformance, AWrongCommandLineIsToldWithTheWord)
{
    EXPECT_EQ(run(QStringList()).exitCode, 2);
    EXPECT_EQ(run(QStringList() << "--help").exitCode, 0);
    const Verdict unknown = run(QStringList() << "--fast"
                                              << "file");
    EXPECT_EQ(unknown.exitCode, 2);
    EXPECT_THAT(unknown.error, HasSubstr("--fast"));
    EXPECT_EQ(run(QStringList() << "--longest"
                                << "0"
                                << "file")
                  .exitCode,
              2);
    const Verdict missing = run(QStringList() << folder.file("missing.csv"));
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_THAT(missing.error, HasSubstr("missing.csv"));
}

} // namespace
} // namespace velmora::test
