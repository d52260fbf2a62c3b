// A 3D mouse that is moved while the engine works.

#include "tests/intern/ThreedMouseFixture.h"

#include "engine/VelUtil.h"

using namespace velmora::test;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using velmora::testing::EngineProbe;
namespace threedmouse = velmora::sdk::threedmouse;

namespace {

class ThreedMouseWhileBusy : public ThreedMouseOfProtocol1 {
protected:
    /// The busy engine gives the application turns until all that was sent has been read.
    void workUntilAllIsRead()
    {
        // The daemon's end comes behind what it sent.
        daemon->kill();
        EXPECT_TRUE(workUntil([] { return threedmouse::deviceState() == threedmouse::DeviceState_Lost; }));
    }
};

} // namespace

TEST_F(ThreedMouseWhileBusy, MotionsAreDroppedAndTheEndIsToldAfterwards)
{
    beginMotion();
    EngineProbe::setBusy(true);
    daemon->sendMotion(350, 0, 0, 0, 0, 0);
    daemon->sendRest();
    workUntilAllIsRead();
    EXPECT_THAT(heard, ElementsAre("motion"));
    EngineProbe::setBusy(false);
    EXPECT_THAT(heard, ElementsAre("motion")) << "not from inside the engine";
    ASSERT_TRUE(waitToHear("end"));
    EXPECT_EQ(timesHeard("motion"), 1) << "a view that jumps when the work ends is nobody's wish";
    EXPECT_TRUE(waitForIdle());
}

TEST_F(ThreedMouseWhileBusy, AMotionThatOutlastsTheWorkGoesOnWithItsNextSample)
{
    beginMotion();
    EngineProbe::setBusy(true);
    daemon->sendMotion(350, 0, 0, 0, 0, 0);
    EXPECT_TRUE(workUntil([] {
        static int turns = 0;
        return ++turns > 20;
    }));
    EngineProbe::setBusy(false);
    daemon->sendMotion(35, 0, 0, 0, 0, 0);
    ASSERT_TRUE(waitUntil([&] { return timesHeard("motion") == 2; }));
    EXPECT_DOUBLE_EQ(motions[1].translation[0], 0.1);
    EXPECT_FALSE(hasHeard("end"));
}

TEST_F(ThreedMouseWhileBusy, APressCountsForNothingAndNeitherDoesItsRelease)
{
    EngineProbe::setBusy(true);
    daemon->sendButton(1, true);
    EXPECT_TRUE(workUntil([] {
        static int turns = 0;
        return ++turns > 20;
    }));
    EngineProbe::setBusy(false);
    daemon->sendButton(1, false);
    sendMark();
    ASSERT_TRUE(waitToHear("up 77"));
    EXPECT_THAT(heard, ElementsAre("down 77", "up 77"));
}

TEST_F(ThreedMouseWhileBusy, AReleaseIsToldAfterwardsWhenThePressWas)
{
    daemon->sendButton(1, true);
    ASSERT_TRUE(waitToHear("down 1"));
    EngineProbe::setBusy(true);
    daemon->sendButton(1, false);
    workUntilAllIsRead();
    EXPECT_FALSE(hasHeard("up 1"));
    EngineProbe::setBusy(false);
    EXPECT_TRUE(waitToHear("up 1"));
    EXPECT_EQ(timesHeard("up 1"), 1);
}

TEST_F(ThreedMouseWhileBusy, TheEndIsToldAlsoWhenMoreWorkThatIsStoppedFollowsAtOnce)
{
    beginMotion();
    EngineProbe::setBusy(true);
    daemon->sendRest();
    workUntilAllIsRead();
    EngineProbe::setBusy(false);
    // What is due now would be held back, and what is posted lost.
    EngineProbe::askToStop(true);
    EngineProbe::setBusy(true);
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    EXPECT_FALSE(hasHeard("end"));
    EngineProbe::askToStop(false);
    EngineProbe::setBusy(false);
    EXPECT_TRUE(waitToHear("end"));
}

TEST_F(ThreedMouseWhileBusy, WhatPilesUpWhileNobodyReadsIsReadInPortionsAndTheConnectionHolds)
{
    beginMotion();
    EngineProbe::setBusy(true);
    const std::vector<int> message = SpacenavDaemon::motion(350, 0, 0, 0, 0, 0);
    int sent = 0;
    while (daemon->trySend(message.data(), message.size() * sizeof(int)))
        ++sent;
    EXPECT_GT(sent, 100) << "until the socket has no more room";
    EXPECT_TRUE(workUntil([&] { return daemon->trySend(message.data(), message.size() * sizeof(int)); }));
    EngineProbe::setBusy(false);
    daemon->sendRest();
    ASSERT_TRUE(waitToHear("end"));
    EXPECT_EQ(threedmouse::deviceState(), threedmouse::DeviceState_Connected);
}
