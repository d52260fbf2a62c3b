// The viewer where there is no display, or none that it may use.

#include "tests/faults/FaultyRun.h"

#include <QFile>

using namespace velmora::test;

namespace {

constexpr int NoDisplay = 3;

class WithoutDisplay : public FaultyRun {
protected:
    WithoutDisplay() { setVariable("QT_QPA_PLATFORM", QString()); }

    void expectRefusals(const QStringList& words)
    {
        const QString out = folder.file("out");
        const QString data = folder.writeGrid();
        expectRun(QStringList() << data, NoDisplay, words);
        for (const char* const task : {"--snapshot", "--export", "--print"})
            expectRun(QStringList() << task << out << data, NoDisplay, words);
        EXPECT_FALSE(QFile::exists(out));
    }
};

} // namespace

TEST_F(WithoutDisplay, AnUnsetVariableIsToldWithItsRemedy)
{
    setVariable("DISPLAY", QString());
    expectRefusals(QStringList() << "DISPLAY is not set"
                                 << "xvfb-run");
}

TEST_F(WithoutDisplay, ADisplayThatIsNotThereIsToldByName)
{
    XServer gone;
    useDisplay(gone);
    gone.kill();
    expectRefusals(QStringList() << gone.name() << "cannot be opened"
                                 << "xvfb-run");
}

TEST_F(WithoutDisplay, ANameThatIsNoneIsToldByName)
{
    setVariable("DISPLAY", "nonsense");
    expectRefusals(QStringList() << "\"nonsense\" cannot be opened");
}

TEST_F(WithoutDisplay, TheRemedyThatIsNamedForPrintingAndSoftwareWorks)
{
    setVariable("DISPLAY", QString());
    setVariable("QT_QPA_PLATFORM", "offscreen");
    const QString data = folder.writeGrid();
    expectRun(QStringList() << "--print" << folder.file("out.pdf") << data, 0);
    expectRun(QStringList() << "--export" << folder.file("out.png") << "--strategy"
                            << "software" << data,
              0);
    EXPECT_TRUE(QFile::exists(folder.file("out.pdf")));
    EXPECT_TRUE(QFile::exists(folder.file("out.png")));
}

TEST_F(WithoutDisplay, TheVersionAndTheHelpNeedNone)
{
    setVariable("DISPLAY", QString());
    expectRun(QStringList() << "--help", 0);
    expectRun(QStringList() << "--version", 0);
}
