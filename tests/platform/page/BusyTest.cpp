#include "tests/platform/page/EngineFixture.h"

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "testing/EngineProbe.h"

#include <algorithm>
#include <stdexcept>

namespace velmora::test {
namespace {

using testing::EngineProbe;

class Busy : public EngineFixture {};

TEST_F(Busy, TheEngineIsNotBusyWithoutWork)
{
    EXPECT_EQ(VelUtilIsBusy(), 0);
    EXPECT_EQ(VelUtilWorkProgress(), 1);
}

TEST_F(Busy, NotBusyIsToldOnceAfterALoadAndTheEngineIsNotBusyAnyMoreThen)
{
    load(tableFile());
    EXPECT_EQ(notBusyCalls, 1);
    EXPECT_EQ(busyWhenTold, 0);
}

TEST_F(Busy, NotBusyIsToldOnceAfterALoadThatFails)
{
    EXPECT_EQ(VelUtilDataLoad("/nowhere/at/all.csv"), 0);
    EXPECT_EQ(notBusyCalls, 1);
    EXPECT_EQ(VelUtilIsBusy(), 0);
}

TEST_F(Busy, TheApplicationGetsItsTurnsOnlyWhileTheEngineIsBusy)
{
    FakeArea area(200, 150);
    load(tableFile());
    slowDown();
    show(area);
    turns = busyInTurns = 0;
    VelUtilWorkFinish();
    EXPECT_GT(turns, 5);
    EXPECT_EQ(busyInTurns, turns);
}

TEST_F(Busy, APictureThatIsRefinedInTheEnginesOwnTurnIsNoBusyWork)
{
    FakeArea area(200, 150);
    load(tableFile());
    slowDown();
    show(area);
    turns = busyInTurns = 0;
    progress.clear();
    EXPECT_EQ(VelEngTurn(), 1);
    EXPECT_GT(turns, 5);
    EXPECT_EQ(busyInTurns, 0);
    EXPECT_TRUE(progress.empty());
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
}

TEST_F(Busy, LongPortionsGiveTurnsAsOftenAsFiveMillisecondsDemand)
{
    FakeArea area(200, 150);
    load(tableFile());
    show(area);
    VelUtilWorkFinish();
    // With a delay of two milliseconds in each portion, a slice of at most five ends with the second.
    slowDown();
    VelUtilPageRedraw();
    turns = 0;
    progress.clear();
    VelUtilWorkFinish();
    EXPECT_FALSE(progress.empty());
    EXPECT_LE(progress.size(), static_cast<std::size_t>(turns));
    EXPECT_GT(turns, 5);
    EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()));
    EXPECT_LE(progress.back(), 1);
}

TEST_F(Busy, WorkInsideOtherWorkIsOneStretchForTheNotBusyCallback)
{
    FakeArea area(200, 150);
    load(tableFile());
    const std::string other = gridFile();
    slowDown();
    show(area);
    notBusyCalls = 0;
    bool loaded = false;
    inTurn = [&] {
        if (!loaded) {
            loaded = true;
            load(other);
            EXPECT_EQ(VelUtilIsBusy(), 1) << "the drawing outside still goes on";
        }
        return 0;
    };
    VelUtilWorkFinish();
    EXPECT_TRUE(loaded);
    EXPECT_EQ(notBusyCalls, 1);
    EXPECT_EQ(VelUtilIsBusy(), 0);
}

TEST_F(Busy, ATestCanMakeTheEngineBusyAndTheEndOfItIsTold)
{
    EngineProbe::setBusy(true);
    EXPECT_EQ(VelUtilIsBusy(), 1);
    EXPECT_EQ(notBusyCalls, 0);
    EngineProbe::setBusy(false);
    EXPECT_EQ(VelUtilIsBusy(), 0);
    EXPECT_EQ(notBusyCalls, 1);
    EngineProbe::setBusy(false);
    EXPECT_EQ(notBusyCalls, 1) << "it was not busy before";
}

TEST_F(Busy, TheEndOfWorkIsNotToldWhileATestKeepsTheEngineBusy)
{
    EngineProbe::setBusy(true);
    load(tableFile());
    EXPECT_EQ(notBusyCalls, 0);
    EngineProbe::setBusy(false);
    EXPECT_EQ(notBusyCalls, 1);
}

TEST_F(Busy, AListenerThatThrowsWhenTheWorkEndsLeavesTheEngineUsable)
{
    whenNotBusy = [] { throw std::runtime_error("listener out of order"); };
    EXPECT_EQ(VelUtilDataLoad(tableFile().c_str()), 1);
    EXPECT_EQ(VelUtilIsBusy(), 0);
    EXPECT_STREQ(VelUtilLastErrorMessage(), "listener out of order");
    whenNotBusy = [] {};
    load(tableFile());
    EXPECT_EQ(notBusyCalls, 2);
}

TEST_F(Busy, WithoutACallbackForTurnsWorkJustGoesOn)
{
    VelEngProcessWhileBusyRegisterCallback(nullptr, 0);
    FakeArea area(200, 150);
    load(tableFile());
    slowDown();
    show(area);
    EXPECT_EQ(VelUtilWorkFinish(), 1);
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
    EXPECT_EQ(turns, 0);
}

TEST_F(Busy, AnExceptionInTheApplicationsTurnEndsTheWorkAndNotTheEngine)
{
    FakeArea area(200, 150);
    load(tableFile());
    slowDown();
    show(area);
    inTurn = []() -> int { throw std::runtime_error("slot out of order"); };
    EXPECT_EQ(VelUtilWorkFinish(), 0);
    EXPECT_NE(std::string(VelUtilLastErrorMessage()).find("slot out of order"), std::string::npos);
    EXPECT_EQ(VelUtilIsBusy(), 0);
    inTurn = [] { return 0; };
    VelUtilPageFinish();
    EXPECT_EQ(VelUtilWorkFinish(), 1);
}

} // namespace
} // namespace velmora::test
