#include "tests/platform/export/ExportFixture.h"

#include <algorithm>
#include <stdexcept>

namespace velmora::test {
namespace {

const std::string Phases[] = {"Drawing", "Reading", "Writing"}; ///< how the progress speaks of them

class ExportInterrupt : public ExportFixture {
protected:
    bool wasTold(const std::string& what) const
    {
        return std::any_of(told.begin(), told.end(), [&](const std::string& text) { return text.find(what) == 0; });
    }
};

TEST_F(ExportInterrupt, ProgressGrowsAndEndsWithOne)
{
    load(tableFile());
    service.largestSide = 200; // several bands, and refusals on the way
    slowDown();
    progress.clear();
    turns = busyInTurns = notBusyCalls = 0;
    exported("a.png", options(300, 320));
    EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()));
    EXPECT_GT(progress.size(), 20U);
    EXPECT_GE(progress.front(), 0);
    EXPECT_DOUBLE_EQ(progress.back(), 1);
    EXPECT_TRUE(wasTold("Drawing"));
    EXPECT_TRUE(wasTold("Reading"));
    EXPECT_TRUE(wasTold("Writing " + path("a.png")));
    EXPECT_GT(turns, 20);
    EXPECT_EQ(busyInTurns, turns);
    EXPECT_EQ(notBusyCalls, 1);
}

TEST_F(ExportInterrupt, InEachPhaseLeavesAnOlderFileAsItWas)
{
    load(tableFile());
    const std::string file = exported("a.png", options(100, 80));
    const std::string older = content(file);
    slowDown();
    for (const std::string& phase : Phases) {
        stopWhen(phase);
        expectInterruption(file, options(300, 200, 2));
        EXPECT_TRUE(wasTold(phase)) << phase;
        EXPECT_EQ(content(file), older) << phase;
        stopWhen(phase);
        expectInterruption(path("new.png"), options(300, 200, 2));
    }
}

TEST_F(ExportInterrupt, CountsEvenIfTheImageAnswersThatItWasDrawn)
{
    load(tableFile());
    slowDown();
    service.answersAlways = true;
    stopWhen("Drawing");
    expectInterruption(path("a.png"), options(300, 200));
}

TEST_F(ExportInterrupt, IsForgottenWithTheNextExport)
{
    load(tableFile());
    slowDown();
    stopWhen("Drawing");
    expectInterruption(path("a.png"), options(300, 200));
    inTurn = [] { return 0; };
    exported("a.png", options(300, 200));
    stopWhen("Drawing");
    expectInterruption(path("b.png"), options(300, 200));
    expectRefusal("", options(300, 200), {"no file name"});
}

TEST_F(ExportInterrupt, OfALoadIsToldTheSameWay)
{
    const std::string file = gridFile();
    slowDown();
    inTurn = [] { return 1; };
    EXPECT_EQ(VelUtilDataLoad(file.c_str()), 0);
    EXPECT_EQ(VelUtilWasInterrupted(), 1);
    inTurn = [] { return 0; };
    load(file);
    EXPECT_EQ(VelUtilWasInterrupted(), 0);
}

TEST_F(ExportInterrupt, AnExportInsideAnExportIsRefused)
{
    load(tableFile());
    slowDown();
    int refusals = 0;
    std::string why;
    inTurn = [&] {
        const VelExportImageOptions wanted = options(50, 40);
        refusals += VelUtilExportImage(path("inner.png").c_str(), &wanted) == 0 ? 1 : 0;
        why = VelUtilLastErrorMessage();
        return 0;
    };
    exported("outer.png", options(100, 80));
    EXPECT_GT(refusals, 5);
    EXPECT_NE(why.find("Another image is being exported"), std::string::npos);
    EXPECT_EQ(files(), std::vector<std::string>{"outer.png"});
}

TEST_F(ExportInterrupt, StoppingTheEngineInMidExportEndsItWithAReason)
{
    for (const std::string& phase : Phases) {
        if (!VelEngIsRunning())
            VelEngStart("", "export tests");
        load(tableFile());
        slowDown();
        told.clear();
        inTurn = [this, phase] {
            if (!told.empty() && told.back().find(phase) == 0)
                VelEngStop();
            return 0;
        };
        service.largestSide = 100;
        expectRefusal(path("a.png"), options(220, 160), {"stopped"});
        inTurn = [] { return 0; };
    }
}

TEST_F(ExportInterrupt, AnExceptionInTheApplicationsTurnEndsTheExportAndNotTheEngine)
{
    load(tableFile());
    slowDown();
    for (const std::string& phase : Phases) {
        told.clear();
        inTurn = [this, phase]() -> int {
            if (!told.empty() && told.back().find(phase) == 0)
                throw std::runtime_error("slot out of order");
            return 0;
        };
        expectRefusal(path("a.png"), options(220, 160), {"slot out of order"});
    }
    inTurn = [] { return 0; };
    exported("a.png", options(220, 160));
}

} // namespace
} // namespace velmora::test
