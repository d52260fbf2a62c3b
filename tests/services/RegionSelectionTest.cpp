// What a selected rectangle asks of the engine, and in which order.
#include "base/AppLock.h"
#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "exception/ExceptionBase.h"
#include "integration/services/SelectRegionService.h"
#include "testing/EngineProbe.h"

#include <cstdio>
#include <fstream>
#include <gmock/gmock.h>

namespace velmora::test {

namespace {

using sdk::AppLock;
using sdk::integration::services::SelectRegionService;
using ::testing::ElementsAre;
using testing::EngineProbe;
using ::testing::IsEmpty;

const char* const PickTenTwenty = "VelUtilPickAddAllInRectX X1=10 X2=30.25 Y1=20.5 Y2=40 SelectZones=1 SelectGeoms=1 "
                                  "SelectText=1 ConsiderStyle=1";

int depthWhileTheBoxShowed = -1;
std::string messageShown;

unsigned onMessage(const char* message, int, long)
{
    depthWhileTheBoxShowed = AppLock::depth();
    messageShown = message;
    return 3;
}

class RegionSelection : public ::testing::Test {
protected:
    void SetUp() override
    {
        EngineProbe::reset();
        depthWhileTheBoxShowed = -1;
        messageShown.clear();
        VelEngMessageBoxRegisterCallback(&onMessage, 0);
        ASSERT_TRUE(VelEngStart("", "test"));
        EngineProbe::startLog();
    }

    void TearDown() override
    {
        EngineProbe::reset();
        VelEngMessageBoxRegisterCallback(nullptr, 0);
        VelEngStop();
    }

    // A line of four points across the page.
    void loadLine()
    {
        const std::string name = ::testing::TempDir() + "region_selection_line.csv";
        std::ofstream(name) << "x,y\n0,1\n1,3\n2,2\n3,4\n";
        ASSERT_TRUE(VelUtilDataLoad(name.c_str())) << VelUtilLastErrorMessage();
        std::remove(name.c_str());
        EngineProbe::clearLog();
    }

    SelectRegionService m_service;
};

} // namespace

TEST_F(RegionSelection, TheSelectionBeforeIsGivenUpAndTheRectanglePickedUnderTheLock)
{
    m_service.selectItems(10, 20.5, 30.25, 40, false);
    EXPECT_THAT(EngineProbe::log(), ElementsAre("AppLock 0", "VelUtilPickDeselectAll", "VelUtilLastErrorMessageClear",
                                                PickTenTwenty, "VelUtilDialogLastMessageBox", "~AppLock"));
    EXPECT_EQ(0, AppLock::depth());
}

TEST_F(RegionSelection, AddingKeepsTheSelectionBefore)
{
    m_service.selectItems(10, 20.5, 30.25, 40, true);
    EXPECT_THAT(EngineProbe::log(), ElementsAre("AppLock 0", "VelUtilLastErrorMessageClear", PickTenTwenty,
                                                "VelUtilDialogLastMessageBox", "~AppLock"));
}

TEST_F(RegionSelection, CornersInReverseOrderReachTheEngineUnchanged)
{
    m_service.selectItems(9, 8, -7, -6.5, true);
    ASSERT_EQ(5u, EngineProbe::log().size());
    EXPECT_EQ("VelUtilPickAddAllInRectX X1=9 X2=-7 Y1=8 Y2=-6.5 SelectZones=1 SelectGeoms=1 SelectText=1 "
              "ConsiderStyle=1",
              EngineProbe::log()[2]);
}

TEST_F(RegionSelection, AnErrorOfThePickIsShownUnderTheLockAndClearedAgain)
{
    VelEngStop(); // now every pick is an error
    m_service.selectItems(0, 0, 1, 1, true);
    EXPECT_THAT(EngineProbe::log(), ::testing::Contains("VelUtilLastErrorMessageClear").Times(2));
    EXPECT_EQ("~AppLock", EngineProbe::log().back());
    EXPECT_EQ("VelUtilLastErrorMessageClear", *(EngineProbe::log().rbegin() + 1));
    EXPECT_FALSE(messageShown.empty());
    EXPECT_EQ(1, depthWhileTheBoxShowed);
    EXPECT_STREQ("", VelUtilLastErrorMessage());
}

TEST_F(RegionSelection, AnErrorFromBeforeIsNotShown)
{
    EXPECT_EQ(0, VelUtilDataLoad("no such file"));
    ASSERT_STRNE("", VelUtilLastErrorMessage());
    m_service.selectItems(0, 0, 1, 1, true);
    EXPECT_EQ("", messageShown);
    EXPECT_STREQ("", VelUtilLastErrorMessage());
}

TEST_F(RegionSelection, TheLockIsReleasedWhenBuildingTheArgumentsThrows)
{
    EngineProbe::throwAt("ArgList");
    EXPECT_THROW(m_service.selectItems(0, 0, 1, 1, false), velmora::ExceptionBase);
    EXPECT_EQ(0, AppLock::depth());
    EXPECT_THAT(EngineProbe::log(),
                ElementsAre("AppLock 0", "VelUtilPickDeselectAll", "VelUtilLastErrorMessageClear", "~AppLock"));
    EngineProbe::clearLog();
    m_service.selectItems(10, 20.5, 30.25, 40, true);
    EXPECT_EQ(PickTenTwenty, EngineProbe::log()[2]);
}

TEST_F(RegionSelection, NothingIsAskedWhenTheLockCannotBeTaken)
{
    EngineProbe::throwAt("AppLock");
    EXPECT_THROW(m_service.selectItems(0, 0, 1, 1, false), velmora::ExceptionBase);
    EXPECT_THAT(EngineProbe::log(), IsEmpty());
}

TEST_F(RegionSelection, ALockThatIsHeldAlreadyStaysHeld)
{
    const AppLock outer(AppLock::ImplicitMacroRecording::Off);
    m_service.selectItems(0, 0, 1, 1, false);
    EXPECT_EQ(1, AppLock::depth());
}

TEST_F(RegionSelection, WhatTheRectangleEnclosesIsSelected)
{
    loadLine();
    m_service.selectItems(-100, -100, 100, 100, false);
    const int all = VelUtilPickGetCount();
    EXPECT_GT(all, 0);
    m_service.selectItems(50, 50, 60, 60, true);
    EXPECT_EQ(all, VelUtilPickGetCount()) << "adding nothing keeps what there is";
    m_service.selectItems(50, 50, 60, 60, false);
    EXPECT_EQ(0, VelUtilPickGetCount()) << "an empty rectangle gives up what there was";
    m_service.selectItems(100, 100, -100, -100, false);
    EXPECT_EQ(all, VelUtilPickGetCount()) << "corners in any order enclose the same";
}

TEST_F(RegionSelection, TheEngineReachesTheServiceOnceItIsRegistered)
{
    m_service.registerCallbacks();
    m_service.makeCurrent();
    VelEngSelectRegion(10, 20.5, 30.25, 40, 1);
    EXPECT_THAT(EngineProbe::log(), ::testing::Contains(PickTenTwenty));
}

} // namespace velmora::test
