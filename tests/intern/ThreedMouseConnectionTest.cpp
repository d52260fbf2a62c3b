// The life of the connection to the daemon of the 3D mice.

#include "tests/intern/ThreedMouseFixture.h"

#include "tests/intern/StandInOnly.h"

#include <dlfcn.h>
#include <fcntl.h>

using namespace velmora::test;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
namespace threedmouse = velmora::sdk::threedmouse;

namespace {

class ThreedMouseConnection : public ThreedMouse {
protected:
    void startDaemon(int protocol) { daemon = std::make_unique<SpacenavDaemon>(protocol); }
    bool waitForState(threedmouse::DeviceState_e state)
    {
        return waitUntil([=] { return threedmouse::deviceState() == state; });
    }
    const std::vector<int> half = SpacenavDaemon::motion(350, 0, 0, 0, 0, 0);
    static constexpr std::size_t HalfSize = 4 * sizeof(int) + 2; // in the middle of a number
};

} // namespace

TEST_F(ThreedMouseConnection, WithoutADaemonTheStateTellsSoAndNothingElseDoes)
{
    SpacenavDaemon::pointLibraryToNowhere();
    EXPECT_EQ(startListening(), threedmouse::DeviceState_NoDaemon);
    EXPECT_EQ(threedmouse::deviceState(), threedmouse::DeviceState_NoDaemon);
    EXPECT_FALSE(threedmouse::isProcessingThreedMouseEvents());
    EXPECT_TRUE(waitForIdle());
}

TEST_F(ThreedMouseConnection, ADaemonThatIsStartedLaterIsFoundWhenTheHostAsks)
{
    SpacenavDaemon::pointLibraryToNowhere();
    EXPECT_EQ(startListening(), threedmouse::DeviceState_NoDaemon);
    startDaemon(1);
    EXPECT_EQ(startListening(), threedmouse::DeviceState_Connected);
    daemon->sendButton(0, true);
    EXPECT_TRUE(waitToHear("down 0"));
}

TEST_F(ThreedMouseConnection, AskingAgainKeepsTheConnection)
{
    connectTo(1);
    EXPECT_EQ(startListening(), threedmouse::DeviceState_Connected);
    daemon->sendButton(0, true);
    ASSERT_TRUE(waitToHear("down 0"));
    EXPECT_EQ(daemon->clientCount(), 1);
}

TEST_F(ThreedMouseConnection, ADaemonThatIsKilledInAMotionEndsItAndIdleTimeComesBack)
{
    connectTo(1);
    daemon->sendButton(2, true);
    daemon->sendMotion(1, 2, 3, 4, 5, 6);
    ASSERT_TRUE(waitToHear("motion"));
    killDaemon();
    EXPECT_EQ(threedmouse::deviceState(), threedmouse::DeviceState_Lost);
    EXPECT_THAT(heard, ElementsAre("down 2", "motion", "up 2", "end"));
    EXPECT_TRUE(waitForIdle());
}

TEST_F(ThreedMouseConnection, ADaemonThatComesBackIsFoundByItself)
{
    connectTo(1);
    killDaemon();
    daemon->restart();
    EXPECT_TRUE(waitForState(threedmouse::DeviceState_Connected));
    daemon->sendMotion(1, 2, 3, 4, 5, 6);
    EXPECT_TRUE(waitToHear("motion"));
}

TEST_F(ThreedMouseConnection, ADaemonThatComesBackIsFoundAtOnceWhenTheHostAsks)
{
    connectTo(1);
    killDaemon();
    daemon->restart();
    EXPECT_EQ(startListening(), threedmouse::DeviceState_Connected);
}

TEST_F(ThreedMouseConnection, HalfAMessageWaitsForTheRest)
{
    connectTo(1);
    daemon->send(half.data(), HalfSize);
    EXPECT_TRUE(waitForIdle()) << "the application goes on";
    EXPECT_THAT(heard, IsEmpty());
    const char* const rest = reinterpret_cast<const char*>(half.data()) + HalfSize;
    daemon->send(rest, half.size() * sizeof(int) - HalfSize);
    ASSERT_TRUE(waitToHear("motion"));
    EXPECT_DOUBLE_EQ(motions[0].translation[0], 1.0);
    sendMark();
    EXPECT_TRUE(waitToHear("up 77")) << "what follows is in step";
}

TEST_F(ThreedMouseConnection, HalfAMessageBeforeTheEndIsNoMotion)
{
    connectTo(1);
    daemon->send(half.data(), HalfSize);
    killDaemon();
    EXPECT_EQ(threedmouse::deviceState(), threedmouse::DeviceState_Lost);
    daemon->restart();
    ASSERT_EQ(startListening(), threedmouse::DeviceState_Connected);
    daemon->sendButton(4, true);
    ASSERT_TRUE(waitToHear("down 4"));
    EXPECT_THAT(heard, ElementsAre("down 4")) << "the half does not count for the next connection";
}

TEST_F(ThreedMouseConnection, MessagesOutOfStepEndTheConnectionWhichIsMadeAnew)
{
    connectTo(1);
    const std::vector<int> message = SpacenavDaemon::motion(350, 0, 0, 0, 0, 0);
    daemon->send(message.data() + 1, (message.size() - 1) * sizeof(int));
    daemon->sendMotion(350, 0, 0, 0, 0, 0);
    ASSERT_TRUE(waitForState(threedmouse::DeviceState_Lost));
    ASSERT_TRUE(waitForState(threedmouse::DeviceState_Connected));
    EXPECT_THAT(heard, IsEmpty());
    daemon->sendMotion(350, 0, 0, 0, 0, 0);
    EXPECT_TRUE(waitToHear("motion"));
}

TEST_F(ThreedMouseConnection, ADaemonOfALaterProtocolIsLeftAlone)
{
    startDaemon(2);
    EXPECT_EQ(startListening(), threedmouse::DeviceState_NoDaemon);
}

TEST_F(ThreedMouseConnection, ADaemonThatEndsWhileItIsConnectedToDoesNotEndTheProgram)
{
    startDaemon(1);
    setOnConnected([this] { daemon->kill(); });
    const threedmouse::DeviceState_e state = startListening();
    setOnConnected(nullptr);
    EXPECT_NE(state, threedmouse::DeviceState_NoLibrary);
    EXPECT_TRUE(waitUntil([] { return threedmouse::deviceState() != threedmouse::DeviceState_Connected; }));
}

TEST_F(ThreedMouseConnection, AProgramThatTheHostStartsDoesNotGetTheConnection)
{
    connectTo(1);
    const auto descriptor =
        reinterpret_cast<int (*)()>(dlsym(dlopen("libspnav.so.0", RTLD_NOW | RTLD_NOLOAD), "spnav_fd"));
    ASSERT_TRUE(descriptor);
    EXPECT_EQ(fcntl(descriptor(), F_GETFD), FD_CLOEXEC);
}
