#include "FakeManager.h"
#include "FakeServices.h"

#include "interfaces/DialogManagerInterface.h"
#include "interfaces/ServiceRepositoryInterface.h"
#include "testing/EngineProbe.h"

#include <gmock/gmock.h>
#include <memory>
#include <stdexcept>

using namespace velmora::sdk::integration;
using namespace velmora::tests;
using testing::ElementsAre;
using velmora::testing::EngineProbe;

namespace {

constexpr unsigned NoService = MessageBoxReply_Error;

unsigned askEngine()
{
    return VelEngMessageBoxShow("Really?", MessageBoxType_YesNo);
}

struct ManagerServices : public testing::Test {
    ManagerServices() { manager.initWith(); }
    ~ManagerServices() override
    {
        EngineProbe::reset();
        manager.stop();
    }

    FakeManager manager;
    ServiceRepositoryInterface& repository = manager.getServiceRepository();
    DialogManagerInterface& dialogs = manager.getDialogManager();
};

/// A service that is none of the engine's kinds; notes what the repository does with it.
struct OtherService : public services::ServiceInterface {
    OtherService(std::string serviceName, Log& callLog) : name(std::move(serviceName)), log(callLog) {}
    void registerCallbacks() override { log.push_back(name + " register"); }
    void makeCurrent() override { log.push_back(name + " current"); }
    std::string name;
    Log& log;
};

} // namespace

TEST_F(ManagerServices, ServicesAddedBeforeTheStartAreRegisteredByItInOrder)
{
    Log log;
    OtherService first("first", log), second("second", log);
    repository.addService(first);
    repository.addService(second);
    EXPECT_THAT(log, ElementsAre());
    manager.start();
    EXPECT_THAT(log, ElementsAre("first register", "first current", "second register", "second current"));
    manager.stop();
    log.clear();
    manager.start();
    EXPECT_THAT(log, ElementsAre("first register", "first current", "second register", "second current"));
    manager.stop();
}

TEST_F(ManagerServices, AServiceAddedToTheRunningEngineIsRegisteredAtOnce)
{
    Log log;
    OtherService service("late", log);
    manager.start();
    repository.addService(service);
    EXPECT_THAT(log, ElementsAre("late register", "late current"));
    manager.stop();
}

TEST_F(ManagerServices, AServiceAddedToTheStoppedEngineWaitsForTheNextStart)
{
    Log log;
    OtherService service("waiting", log);
    manager.start();
    manager.stop();
    repository.addService(service);
    EXPECT_THAT(log, ElementsAre());
    manager.start();
    EXPECT_THAT(log, ElementsAre("waiting register", "waiting current"));
    manager.stop();
}

TEST_F(ManagerServices, TheEngineReachesAServiceOnlyBetweenStartAndStop)
{
    FakeMessageBoxService service;
    repository.addService(service);
    EXPECT_EQ(askEngine(), NoService);
    manager.start();
    EXPECT_EQ(askEngine(), 2u);
    EXPECT_EQ(service.shown, "Really?/4");
    manager.stop();
    EXPECT_EQ(askEngine(), NoService);
}

TEST_F(ManagerServices, OfTwoServicesOfAKindTheLastAddedIsReached)
{
    FakeMessageBoxService first, second;
    first.reply = 0;
    second.reply = 1;
    repository.addService(first);
    manager.start();
    EXPECT_EQ(askEngine(), 0u);
    repository.addService(second);
    EXPECT_EQ(askEngine(), 1u);
    repository.addService(first);
    EXPECT_EQ(askEngine(), 0u);
    manager.stop();
    manager.start();
    EXPECT_EQ(askEngine(), 0u);
}

TEST_F(ManagerServices, AServiceThatDiesIsNotReachedAndNotRegisteredAgain)
{
    auto service = std::make_unique<FakeMessageBoxService>();
    repository.addService(*service);
    manager.start();
    service.reset();
    EXPECT_EQ(askEngine(), NoService);
    manager.stop();
    manager.start();
    EXPECT_EQ(askEngine(), NoService);
}

TEST_F(ManagerServices, AnOldServiceThatDiesLeavesTheCurrentOneInPlace)
{
    auto old = std::make_unique<FakeMessageBoxService>();
    FakeMessageBoxService current;
    repository.addService(*old);
    repository.addService(current);
    manager.start();
    old.reset();
    EXPECT_EQ(askEngine(), 2u);
}

TEST_F(ManagerServices, WhenTheNewestOfAKindDiesTheOneBeforeIsReachedAgain)
{
    FakeMessageBoxService first;
    first.reply = 0;
    auto second = std::make_unique<FakeMessageBoxService>();
    second->reply = 1;
    auto third = std::make_unique<FakeMessageBoxService>();
    FakeSelectFileService ofAnotherKind;
    repository.addService(first);
    repository.addService(*second);
    repository.addService(*third);
    repository.addService(ofAnotherKind);
    manager.start();
    EXPECT_EQ(askEngine(), 2u);
    third.reset();
    EXPECT_EQ(askEngine(), 1u);
    second.reset();
    EXPECT_EQ(askEngine(), 0u);
}

TEST_F(ManagerServices, AServiceThatIsNotRegisteredDoesNotTakeThePlaceOfOneThatDies)
{
    FakeManager idle;
    FakeMessageBoxService waiting;
    idle.getServiceRepository().addService(waiting);
    auto service = std::make_unique<FakeMessageBoxService>();
    repository.addService(*service);
    manager.start();
    EXPECT_EQ(askEngine(), 2u);
    service.reset();
    EXPECT_EQ(askEngine(), NoService);
}

TEST_F(ManagerServices, AServiceThatDiesAfterTheStopMakesNoOtherReachable)
{
    FakeMessageBoxService first;
    auto second = std::make_unique<FakeMessageBoxService>();
    repository.addService(first);
    repository.addService(*second);
    manager.start();
    manager.stop();
    second.reset();
    EXPECT_EQ(askEngine(), NoService);
    manager.start();
    EXPECT_EQ(askEngine(), 2u);
}

TEST_F(ManagerServices, AddingAServiceIsLoggedWithItsKind)
{
    FakeMessageBoxService messageBox;
    FakeSelectFileService selectFile;
    FakeCursorShapeService cursorShape;
    FakeMiscService misc;
    FakeOffscreenImageService offscreenImage;
    FakeSelectRegionService selectRegion;
    Log log;
    OtherService other("other", log);
    EngineProbe::startLog();
    for (services::ServiceInterface* service : std::initializer_list<services::ServiceInterface*>{
             &messageBox, &selectFile, &cursorShape, &misc, &offscreenImage, &selectRegion, &other})
        repository.addService(*service);
    EXPECT_THAT(EngineProbe::log(),
                ElementsAre("addService MessageBoxServiceInterface", "addService SelectFileServiceInterface",
                            "addService CursorShapeServiceInterface", "addService ManagerMiscServiceInterface",
                            "addService OffscreenImageServiceInterface", "addService SelectRegionServiceInterface",
                            "addService ServiceInterface"));
    EngineProbe::reset();
    manager.start();
    manager.stop();
}

TEST_F(ManagerServices, AnOpenDialogOfTheEngineIsCounted)
{
    FakeMessageBoxService messageBox;
    FakeSelectFileService selectFile;
    repository.addService(messageBox);
    repository.addService(selectFile);
    manager.start();
    int open = -1;
    messageBox.whileOpen = [&] { open = dialogs.openDialogCount(); };
    selectFile.whileOpen = [&] { askEngine(); };
    askEngine();
    EXPECT_EQ(open, 1);
    char name[8];
    VelEngSelectFile(0, "Open", nullptr, "*", name, sizeof name);
    EXPECT_EQ(open, 2);
    EXPECT_EQ(dialogs.openDialogCount(), 0);
}

TEST_F(ManagerServices, AServiceThatThrowsAnswersAsIfThereWereNone)
{
    FakeMessageBoxService messageBox;
    repository.addService(messageBox);
    manager.start();
    messageBox.whileOpen = [] { throw std::runtime_error("no window"); };
    testing::internal::CaptureStderr();
    EXPECT_EQ(askEngine(), NoService);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "The message box service failed: no window\n");
    EXPECT_EQ(dialogs.openDialogCount(), 0);
}

TEST_F(ManagerServices, TheChosenFileNameReachesTheEngine)
{
    FakeSelectFileService service;
    repository.addService(service);
    manager.start();
    char name[32] = "before";
    EXPECT_EQ(VelEngSelectFile(3, "Open", nullptr, "*.txt", name, sizeof name), 0);
    EXPECT_STREQ(name, "before");
    EXPECT_EQ(service.asked, "3/Open/none/*.txt");
    service.chosen = "/data/a.txt";
    EXPECT_EQ(VelEngSelectFile(0, "Open", "b.txt", "*.txt", name, sizeof name), 1);
    EXPECT_STREQ(name, "/data/a.txt");
    EXPECT_EQ(service.asked, "0/Open/b.txt/*.txt");
}

TEST_F(ManagerServices, CursorsRegionsAndTheVersionGoThroughTheirServices)
{
    FakeCursorShapeService cursor;
    FakeSelectRegionService region;
    FakeMiscService misc;
    repository.addService(cursor);
    repository.addService(region);
    repository.addService(misc);
    manager.start();
    VelEngWaitCursorActivate(1);
    VelEngWaitCursorActivate(0);
    VelEngBaseCursorSet(CursorStyle_Rotate);
    EXPECT_THAT(cursor.log, ElementsAre("wait", "no wait", "style 4"));
    VelEngSelectRegion(1, 2, 3.5, 4, 1);
    EXPECT_EQ(region.selected, "1 2 3.5 4 more");
    VelEngSelectRegion(1, 2, 3, 4, 0);
    EXPECT_EQ(region.selected, "1 2 3 4 only");
    EXPECT_STREQ(VelEngOpenGLVersion(), "4.5 of the test");
    manager.stop();
}

TEST_F(ManagerServices, TheEndOfAServiceIsLogged)
{
    EngineProbe::startLog();
    FakeCursorShapeService().makeCurrent();
    EXPECT_THAT(EngineProbe::log(), ElementsAre("~CursorShapeServiceAbstract"));
}

TEST_F(ManagerServices, AServiceConstructorCanFail)
{
    EngineProbe::throwAt("MessageBoxServiceAbstract");
    EngineProbe::throwAt("ManagerMiscServiceAbstract");
    EXPECT_ANY_THROW(FakeMessageBoxService());
    EXPECT_ANY_THROW(FakeMiscService());
    EXPECT_NO_THROW(FakeMessageBoxService());
    EXPECT_NO_THROW(FakeSelectFileService());
}
