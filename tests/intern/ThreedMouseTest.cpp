// What a host hears of a 3D mouse.

#include "tests/intern/ThreedMouseFixture.h"

#include <QElapsedTimer>
#include <QTimerEvent>
#include <thread>

using namespace velmora::test;
using ::testing::ElementsAre;
namespace threedmouse = velmora::sdk::threedmouse;

namespace {

class ThreedMouseOfEitherProtocol : public ThreedMouse, public ::testing::WithParamInterface<int> {
protected:
    ThreedMouseOfEitherProtocol() { connectTo(GetParam()); }
};

using ConnectedThreedMouse = ThreedMouseOfProtocol1;

} // namespace

INSTANTIATE_TEST_SUITE_P(Protocols, ThreedMouseOfEitherProtocol, ::testing::Values(0, 1));

TEST_P(ThreedMouseOfEitherProtocol, AMotionComesInRightHandedAxesAsPartsOfFullDeflection)
{
    daemon->sendMotion(35, 70, -350, -35, 175, 350, 8);
    ASSERT_TRUE(waitToHear("motion"));
    EXPECT_THAT(motions[0].translation, ElementsAre(0.1, 0.2, 1.0));
    EXPECT_THAT(motions[0].rotation, ElementsAre(-0.1, 0.5, -1.0));
    EXPECT_EQ(motions[0].elapsedMilliseconds, 8);
}

TEST_P(ThreedMouseOfEitherProtocol, MotionsComeAgainAndAgainAndTheirEndOnce)
{
    for (int sample = 1; sample <= 3; ++sample) {
        daemon->sendMotion(0, sample, 0, 0, 0, 0);
        ASSERT_TRUE(waitUntil([&] { return timesHeard("motion") == sample; }));
    }
    daemon->sendRest();
    daemon->sendRest();
    sendMark();
    ASSERT_TRUE(waitToHear("up 77"));
    EXPECT_THAT(heard, ElementsAre("motion", "motion", "motion", "end", "down 77", "up 77"));
}

TEST_P(ThreedMouseOfEitherProtocol, ButtonsComeByTheirNumbersBetweenTheMotions)
{
    daemon->sendMotion(1, 0, 0, 0, 0, 0);
    daemon->sendButton(0, true);
    daemon->sendMotion(2, 0, 0, 0, 0, 0);
    daemon->sendButton(14, true);
    daemon->sendButton(0, false);
    daemon->sendButton(14, false);
    ASSERT_TRUE(waitToHear("up 14"));
    EXPECT_THAT(heard, ElementsAre("motion", "down 0", "motion", "down 14", "up 0", "up 14"));
}

TEST_F(ConnectedThreedMouse, ADeflectionBeyondTheFullOneAndAPauseBeforeTheMotionAreLimited)
{
    daemon->sendMotion(5000, -5000, 0, 0, 0, 0, 100000);
    ASSERT_TRUE(waitToHear("motion"));
    EXPECT_THAT(motions[0].translation, ElementsAre(1.0, -1.0, 0.0));
    EXPECT_EQ(motions[0].elapsedMilliseconds, 40);
}

TEST_F(ConnectedThreedMouse, IdleTimeIsHeldBackFromTheFirstMotionToTheEnd)
{
    ASSERT_TRUE(waitForIdle());
    EXPECT_FALSE(threedmouse::isProcessingThreedMouseEvents());
    beginMotion();
    EXPECT_TRUE(threedmouse::isProcessingThreedMouseEvents());
    const int before = timesIdle;
    // Until then the queue is empty again and again, which would be announced.
    daemon->sendMotion(101, 0, 0, 0, 0, 0);
    ASSERT_TRUE(waitUntil([&] { return timesHeard("motion") == 2; }));
    EXPECT_EQ(timesIdle, before);
    daemon->sendRest();
    EXPECT_TRUE(waitUntil([&] { return timesIdle > before; }));
    EXPECT_FALSE(threedmouse::isProcessingThreedMouseEvents());
}

TEST_F(ConnectedThreedMouse, ADeviceThatFallsSilentInAMotionIsAtRest)
{
    beginMotion();
    EXPECT_TRUE(waitToHear("end"));
    EXPECT_TRUE(waitForIdle());
}

TEST_F(ConnectedThreedMouse, ADeviceThatIsUnpluggedIsAtRestWithAllItsButtonsUp)
{
    daemon->sendButton(3, true);
    beginMotion();
    daemon->sendUnplugged();
    ASSERT_TRUE(waitToHear("end"));
    EXPECT_THAT(heard, ElementsAre("down 3", "motion", "up 3", "end"));
}

TEST_F(ConnectedThreedMouse, AnApplicationThatThePersonLeavesHearsTheEndAndNoMore)
{
    daemon->sendButton(1, true);
    beginMotion();
    window->hide();
    ASSERT_TRUE(waitUntil([] { return !QApplication::activeWindow(); }));
    daemon->sendMotion(100, 0, 0, 0, 0, 0);
    ASSERT_TRUE(waitToHear("end"));
    daemon->sendButton(2, true);
    daemon->sendRest();
    killDaemon();
    EXPECT_THAT(heard, ElementsAre("down 1", "motion", "up 1", "end"));
}

TEST_F(ConnectedThreedMouse, NothingComesWhenTheWidgetIsNoMore)
{
    QWidget other;
    manager().startThreedMouse("device", other);
    window->show();
    daemon->sendButton(1, true);
    ASSERT_TRUE(waitToHear("down 1"));
    {
        QWidget gone;
        manager().startThreedMouse("device", gone);
    }
    daemon->sendButton(1, false);
    daemon->sendButton(2, true);
    daemon->sendMotion(1, 0, 0, 0, 0, 0);
    killDaemon();
    EXPECT_THAT(heard, ElementsAre("down 1", "up 1"));
}

TEST_F(ConnectedThreedMouse, AFloodIsSummedAndLeavesTheApplicationItsTurn)
{
    constexpr int MessageCount = 5000;
    struct Clock : QObject {
        Clock() { startTimer(1); }
        void timerEvent(QTimerEvent*) override { ++ticks; }
        int ticks = 0;
    } clock;
    // As the drawing of a picture: much slower than the messages come.
    onMotion = [] {
        QElapsedTimer drawing;
        drawing.start();
        while (drawing.elapsed() < 5) {
        }
    };
    std::thread sender([this] {
        for (int i = 0; i < MessageCount; ++i)
            daemon->sendMotion(0, i % 2 == 0 ? 350 : 0, 0, 0, 0, 7, 1);
        daemon->sendRest();
    });
    EXPECT_TRUE(waitToHear("end"));
    sender.join();
    double moved = 0;
    double turned = 0;
    long milliseconds = 0;
    for (const MotionData& motion : motions) {
        moved += motion.translation[1] * double(motion.elapsedMilliseconds);
        turned += motion.rotation[2] * double(motion.elapsedMilliseconds);
        milliseconds += motion.elapsedMilliseconds;
    }
    EXPECT_EQ(milliseconds, MessageCount) << "nothing is lost";
    EXPECT_NEAR(moved, MessageCount / 2.0, 1e-6);
    EXPECT_NEAR(turned, -MessageCount * 7 / 350.0, 1e-6);
    EXPECT_LE(timesHeard("motion"), MessageCount / 32) << "the host is not called for each";
    EXPECT_GE(clock.ticks, timesHeard("motion") / 2);
}

TEST_F(ConnectedThreedMouse, ACallbackThatOpensALoopHearsWhatComesThereInItsOrder)
{
    bool first = true;
    onMotion = [&] {
        if (!first)
            return;
        first = false;
        daemon->sendMotion(2, 0, 0, 0, 0, 0);
        daemon->sendRest();
        EXPECT_TRUE(waitToHear("end"));
        heard.push_back("loop ends");
    };
    daemon->sendMotion(1, 0, 0, 0, 0, 0);
    daemon->sendButton(5, true);
    ASSERT_TRUE(waitToHear("loop ends"));
    EXPECT_THAT(heard, ElementsAre("motion", "down 5", "motion", "end", "loop ends"));
}
