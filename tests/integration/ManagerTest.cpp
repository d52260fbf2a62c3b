#include "integration/Manager.h"
#include "engine/VelEng.h"
#include "exception/ExceptionBase.h"
#include "integration/glarea/GLDrawArea.h"
#include "interfaces/ApplicationEventMonitorInterface.h"
#include "interfaces/PageManagerInterface.h"
#include "interfaces/ServiceRepositoryInterface.h"
#include "interfaces/services/ServiceInterface.h"
#include "testing/EngineProbe.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>
#include <utility>

// Each case runs in a process of its own: there is one manager a process, and its end is at exit.

using namespace velmora::sdk::integration;
using velmora::testing::EngineProbe;

namespace {

int g_argc = 1;
char g_name[] = "host";
char* g_argv[] = {g_name, nullptr};

std::vector<std::string> registered()
{
    std::vector<std::string> names;
    for (const std::string& entry : EngineProbe::log())
        if (entry.compare(0, 11, "addService ") == 0)
            names.push_back(entry.substr(11));
    return names;
}

std::vector<std::string> destroyed()
{
    std::vector<std::string> names;
    for (const std::string& entry : EngineProbe::log())
        if (entry[0] == '~')
            names.push_back(entry.substr(1));
    return names;
}

// Whether the application's events pass through the manager's monitor.
bool hearsOfAnEvent(Manager& manager)
{
    int heard = 0;
    const Connection connection =
        manager.getApplicationEventMonitor().connectMouseButtonStateChanged([&heard](auto, bool) { ++heard; });
    QWidget receiver;
    QMouseEvent press(QEvent::MouseButtonPress, QPoint(1, 1), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&receiver, &press);
    return heard == 1;
}

void printDestroyed()
{
    std::fprintf(stderr, "destroyed: ");
    for (const std::string& name : destroyed())
        std::fprintf(stderr, "%s ", name.c_str());
    std::fprintf(stderr, "end\n");
    std::fflush(stderr);
}

} // namespace

namespace {

int twoCallsReturnTheSameManagerAndTheSecondConstructsNothing()
{
    EngineProbe::startLog();
    Manager& first = Manager::getInstance();
    EngineProbe::clearLog();
    Manager& second = Manager::getInstance();
    return &first == &second && EngineProbe::log().empty() ? 0 : 1;
}

} // namespace

TEST(ManagerDeathTest, TwoCallsReturnTheSameManagerAndTheSecondConstructsNothing)
{
    EXPECT_EXIT(std::exit(twoCallsReturnTheSameManagerAndTheSecondConstructsNothing()), ::testing::ExitedWithCode(0),
                "");
}

namespace {

int theRepositoryReceivesFiveServicesInTheirOrder()
{
    EngineProbe::startLog();
    Manager::getInstance();
    const std::vector<std::string> expected = {"MessageBoxServiceInterface", "SelectFileServiceInterface",
                                               "CursorShapeServiceInterface", "ManagerMiscServiceInterface",
                                               "OffscreenImageServiceInterface"};
    for (const std::string& name : registered())
        std::fprintf(stderr, "%s ", name.c_str());
    return registered() == expected ? 0 : 1;
}

} // namespace

TEST(ManagerDeathTest, TheRepositoryReceivesFiveServicesInTheirOrder)
{
    EXPECT_EXIT(std::exit(theRepositoryReceivesFiveServicesInTheirOrder()), ::testing::ExitedWithCode(0), "");
}

namespace {

int atExitTheServicesGoInReverseThenTheMonitorThenTheBase()
{
    EngineProbe::startLog();
    std::atexit(printDestroyed);
    Manager::getInstance();
    return 0;
}

} // namespace

TEST(ManagerDeathTest, AtExitTheServicesGoInReverseThenTheMonitorThenTheBase)
{
    EXPECT_EXIT(
        std::exit(atExitTheServicesGoInReverseThenTheMonitorThenTheBase()), ::testing::ExitedWithCode(0),
        "destroyed: OffscreenImageServiceAbstract ManagerMiscServiceAbstract CursorShapeServiceAbstract "
        "SelectFileServiceAbstract MessageBoxServiceAbstract ApplicationEventMonitorAbstract ManagerAbstract end");
}

namespace {

// Tells of its end, and with it of the end of the signal whose slot holds it.
class Witness {
public:
    explicit Witness(std::string name) : m_name(std::move(name)) {}
    ~Witness() { EngineProbe::note("~" + m_name); }

private:
    std::string m_name;
};

int theSignalsAreDestroyedLastInTheReverseOrderOfTheirConstruction()
{
    EngineProbe::startLog();
    std::atexit(printDestroyed);
    Manager& manager = Manager::getInstance();
    const auto witness = [](const char* name) { return [held = std::make_shared<Witness>(name)] {}; };
    manager.connectEngineStarted(witness("Started"));
    manager.connectEngineShutdownInitiated(witness("Initiated"));
    manager.connectEngineShutdownFinished(witness("Finished"));
    return 0;
}

} // namespace

TEST(ManagerDeathTest, TheSignalsAreDestroyedLastInTheReverseOrderOfTheirConstruction)
{
    EXPECT_EXIT(std::exit(theSignalsAreDestroyedLastInTheReverseOrderOfTheirConstruction()),
                ::testing::ExitedWithCode(0), "ManagerAbstract Finished Initiated Started end");
}

namespace {

int theProcessExitsCleanlyThoughNobodyStoppedTheEngine()
{
    const QApplication application(g_argc, g_argv);
    Manager& manager = Manager::getInstance();
    manager.init(g_argc, g_argv, "", "host");
    return manager.start() == ManagerStartReturnCode_Ok ? 0 : 1;
}

} // namespace

TEST(ManagerDeathTest, TheProcessExitsCleanlyThoughNobodyStoppedTheEngine)
{
    EXPECT_EXIT(std::exit(theProcessExitsCleanlyThoughNobodyStoppedTheEngine()), ::testing::ExitedWithCode(0), "");
}

namespace {

int shutdowns = 0;

void printWhetherTheEngineRuns()
{
    std::fprintf(stderr, "the engine runs: %d, shutdowns told: %d", VelEngIsRunning(), shutdowns);
    std::fflush(stderr);
}

int theManagersEndDoesNotStopTheEngine()
{
    const QApplication application(g_argc, g_argv);
    std::atexit(printWhetherTheEngineRuns);
    Manager& manager = Manager::getInstance();
    manager.connectEngineShutdownInitiated([] { ++shutdowns; });
    manager.connectEngineShutdownFinished([] { ++shutdowns; });
    manager.init(g_argc, g_argv, "", "host");
    return manager.start() == ManagerStartReturnCode_Ok ? 0 : 1;
}

} // namespace

TEST(ManagerDeathTest, TheManagersEndDoesNotStopTheEngine)
{
    EXPECT_EXIT(std::exit(theManagersEndDoesNotStopTheEngine()), ::testing::ExitedWithCode(0),
                "the engine runs: 1, shutdowns told: 0");
}

namespace {

int aThirdServiceThatThrowsUnwindsAndTheNextCallBuildsAnew()
{
    EngineProbe::startLog();
    EngineProbe::throwAt("CursorShapeServiceAbstract");
    bool thrown = false;
    try {
        Manager::getInstance();
    } catch (const velmora::ExceptionBase&) {
        thrown = true;
    }
    printDestroyed();
    EngineProbe::clearLog();
    Manager::getInstance();
    return thrown && registered().size() == 5 ? 0 : 1;
}

} // namespace

TEST(ManagerDeathTest, AThirdServiceThatThrowsUnwindsAndTheNextCallBuildsAnew)
{
    EXPECT_EXIT(std::exit(aThirdServiceThatThrowsUnwindsAndTheNextCallBuildsAnew()), ::testing::ExitedWithCode(0),
                "destroyed: SelectFileServiceAbstract MessageBoxServiceAbstract ApplicationEventMonitorAbstract "
                "ManagerAbstract end");
}

namespace {

int aBaseThatThrowsLeavesNothingBehindAndTheNextCallBuildsAnew()
{
    EngineProbe::startLog();
    EngineProbe::throwAt("ManagerAbstract");
    bool thrown = false;
    try {
        Manager::getInstance();
    } catch (const velmora::ExceptionBase&) {
        thrown = true;
    }
    const bool nothing = destroyed().empty();
    Manager::getInstance();
    return thrown && nothing && registered().size() == 5 ? 0 : 1;
}

} // namespace

TEST(ManagerDeathTest, ABaseThatThrowsLeavesNothingBehindAndTheNextCallBuildsAnew)
{
    EXPECT_EXIT(std::exit(aBaseThatThrowsLeavesNothingBehindAndTheNextCallBuildsAnew()), ::testing::ExitedWithCode(0),
                "");
}

namespace {

int theHooksHaveNoEffect()
{
    Manager& manager = Manager::getInstance();
    int heard = 0;
    manager.connectEngineStarted([&] { ++heard; });
    manager.connectEngineShutdownInitiated([&] { ++heard; });
    manager.connectEngineShutdownFinished([&] { ++heard; });
    EngineProbe::startLog();
    manager.signalEngineStartedConnected();
    manager.signalEngineShutdownInitiatedConnected();
    manager.signalEngineShutdownFinishedConnected();
    return heard == 0 && EngineProbe::log().empty() ? 0 : 1;
}

} // namespace

TEST(ManagerDeathTest, TheHooksHaveNoEffect)
{
    EXPECT_EXIT(std::exit(theHooksHaveNoEffect()), ::testing::ExitedWithCode(0), "");
}

namespace {

int anApplicationStartsAndStopsTheEngineAndTheSignalsTellOfIt()
{
    QApplication application(g_argc, g_argv);
    Manager& manager = Manager::getInstance();
    std::string heard;
    manager.connectEngineStarted([&] { heard += "started "; });
    manager.connectEngineShutdownInitiated([&] { heard += "initiated "; });
    manager.connectEngineShutdownFinished([&] { heard += "finished"; });
    const bool early = manager.start() == ManagerStartReturnCode_NotInitialized;
    const bool ready = manager.init(g_argc, g_argv, "", "host") == ManagerStartReturnCode_Ok;
    const bool runs = manager.start() == ManagerStartReturnCode_Ok;
    const bool twice = manager.start() == ManagerStartReturnCode_AlreadyStarted;
    manager.stop();
    std::fprintf(stderr, "%s", heard.c_str());
    return early && ready && runs && twice ? 0 : 1;
}

} // namespace

TEST(ManagerDeathTest, AnApplicationStartsAndStopsTheEngineAndTheSignalsTellOfIt)
{
    EXPECT_EXIT(std::exit(anApplicationStartsAndStopsTheEngineAndTheSignalsTellOfIt()), ::testing::ExitedWithCode(0),
                "started initiated finished");
}

namespace {

struct CountingService : public services::ServiceInterface {
    void registerCallbacks() override { ++registrations; }
    void makeCurrent() override {}
    int registrations = 0;
};

bool canShowAPage(Manager& manager, GLDrawArea& area)
{
    try {
        manager.getPageManager().attachDrawArea(area);
        return true;
    } catch (const velmora::ExceptionBase&) {
        return false;
    }
}

int fromStartToStopThereAreServicesAndPages()
{
    QApplication application(g_argc, g_argv);
    static CountingService service; // before the manager, which it has to outlive
    Manager& manager = Manager::getInstance();
    manager.getServiceRepository().addService(service);
    manager.init(g_argc, g_argv, "", "host");
    GLDrawArea area;
    const bool before = service.registrations == 0 && !canShowAPage(manager, area);
    manager.start();
    const bool between = service.registrations == 1 && canShowAPage(manager, area);
    manager.stop();
    const bool after = !manager.getPageManager().pageOf(area) && !canShowAPage(manager, area);
    return before && between && after ? 0 : 1;
}

} // namespace

TEST(ManagerDeathTest, FromStartToStopThereAreServicesAndPages)
{
    EXPECT_EXIT(std::exit(fromStartToStopThereAreServicesAndPages()), ::testing::ExitedWithCode(0), "");
}

namespace {

int theProcessExitsCleanlyAfterTheApplicationObjectIsGone()
{
    auto application = std::make_unique<QApplication>(g_argc, g_argv);
    Manager& manager = Manager::getInstance();
    manager.init(g_argc, g_argv, "", "host");
    manager.start();
    manager.stop();
    application.reset();
    return 0;
}

} // namespace

TEST(ManagerDeathTest, TheProcessExitsCleanlyAfterTheApplicationObjectIsGone)
{
    EXPECT_EXIT(std::exit(theProcessExitsCleanlyAfterTheApplicationObjectIsGone()), ::testing::ExitedWithCode(0), "");
}

namespace {

int theEngineIsEndedAfterItsApplicationObjectAndStartedForAnother()
{
    auto application = std::make_unique<QApplication>(g_argc, g_argv);
    Manager& manager = Manager::getInstance();
    manager.init(g_argc, g_argv, "", "host");
    const bool ran = manager.start() == ManagerStartReturnCode_Ok;
    application.reset();
    manager.stop();
    application = std::make_unique<QApplication>(g_argc, g_argv);
    const bool runsAgain = manager.start() == ManagerStartReturnCode_Ok;
    manager.stop();
    return ran && runsAgain ? 0 : 1;
}

} // namespace

TEST(ManagerDeathTest, TheEngineIsEndedAfterItsApplicationObjectAndStartedForAnother)
{
    EXPECT_EXIT(std::exit(theEngineIsEndedAfterItsApplicationObjectAndStartedForAnother()),
                ::testing::ExitedWithCode(0), "");
}

namespace {

int theEventMonitorIsTheManagersOwn()
{
    Manager& manager = Manager::getInstance();
    ApplicationEventMonitorInterface& monitor = manager.getApplicationEventMonitor();
    return &monitor == &manager.getApplicationEventMonitor() && !monitor.isBusy() ? 0 : 1;
}

} // namespace

TEST(ManagerDeathTest, TheEventMonitorIsTheManagersOwn)
{
    EXPECT_EXIT(std::exit(theEventMonitorIsTheManagersOwn()), ::testing::ExitedWithCode(0), "");
}

namespace {

int aFirstCallOnAnotherThreadIsRefusedAndTheNextOnTheRightOneIsNot()
{
    const QApplication application(g_argc, g_argv);
    std::string message;
    std::thread([&] {
        try {
            Manager::getInstance();
        } catch (const velmora::ExceptionBase& exception) {
            message = exception.message();
        }
    }).join();
    std::fprintf(stderr, "%s", message.c_str());
    Manager& manager = Manager::getInstance();
    manager.init(g_argc, g_argv, "", "host");
    const bool runs = manager.start() == ManagerStartReturnCode_Ok;
    const bool watches = hearsOfAnEvent(manager);
    manager.stop();
    return runs && watches ? 0 : 1;
}

} // namespace

TEST(ManagerDeathTest, AFirstCallOnAnotherThreadIsRefusedAndTheNextOnTheRightOneIsNot)
{
    EXPECT_EXIT(std::exit(aFirstCallOnAnotherThreadIsRefusedAndTheNextOnTheRightOneIsNot()),
                ::testing::ExitedWithCode(0), "another thread than the application object's");
}

namespace {

int anotherThreadMayAskOnceTheManagerIsThere()
{
    const QApplication application(g_argc, g_argv);
    const Manager* const manager = &Manager::getInstance();
    const Manager* seen = nullptr;
    std::thread([&] { seen = &Manager::getInstance(); }).join();
    return seen == manager ? 0 : 1;
}

} // namespace

TEST(ManagerDeathTest, AnotherThreadMayAskOnceTheManagerIsThere)
{
    EXPECT_EXIT(std::exit(anotherThreadMayAskOnceTheManagerIsThere()), ::testing::ExitedWithCode(0), "");
}

namespace {

int withoutAnApplicationObjectTheManagerIsMadeOnAnyThread()
{
    Manager* manager = nullptr;
    std::thread([&] { manager = &Manager::getInstance(); }).join();
    return manager == &Manager::getInstance() ? 0 : 1;
}

} // namespace

TEST(ManagerDeathTest, WithoutAnApplicationObjectTheManagerIsMadeOnAnyThread)
{
    EXPECT_EXIT(std::exit(withoutAnApplicationObjectTheManagerIsMadeOnAnyThread()), ::testing::ExitedWithCode(0), "");
}

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    return RUN_ALL_TESTS();
}
