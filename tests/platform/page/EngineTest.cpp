#include "tests/platform/page/EngineFixture.h"

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "exception/ExceptionBase.h"
#include "testing/EngineProbe.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <cstring>

namespace velmora::test {
namespace {

using namespace sdk::integration;
using ::testing::ElementsAre;
using testing::EngineProbe;
using ::testing::HasSubstr;

class Engine : public EngineFixture {};

TEST_F(Engine, StartsOnceUntilItIsStopped)
{
    EXPECT_EQ(VelEngIsRunning(), 1);
    EXPECT_EQ(VelEngStart("", ""), 0);
    EXPECT_THAT(VelUtilLastErrorMessage(), HasSubstr("runs already"));
    VelEngStop();
    EXPECT_EQ(VelEngIsRunning(), 0);
    VelEngStop();
    EXPECT_EQ(VelEngStart(nullptr, nullptr), 1);
    EXPECT_STREQ(VelUtilLastErrorMessage(), "");
    EXPECT_EQ(VelEngPageGetActive(), 1);
}

TEST_F(Engine, StoppingGivesUpDataAndStyleAndKeepsTheCallbacks)
{
    load(tableFile());
    setStyle({"Paper", "PaperSize"}, 2);
    VelEngStop();
    ASSERT_EQ(VelEngStart("", ""), 1);
    EXPECT_STREQ(VelUtilDataDescription(), "");
    EXPECT_EQ(style({"Paper", "PaperSize"}), 0);
    notBusyCalls = 0;
    load(tableFile());
    EXPECT_EQ(notBusyCalls, 1);
}

TEST_F(Engine, ThatDoesNotRunAnswersWithAnErrorAndNotWithACrash)
{
    VelEngStop();
    FakeArea area(10, 10);
    EXPECT_EQ(VelUtilDataLoad("x.csv"), 0);
    EXPECT_THAT(VelUtilLastErrorMessage(), HasSubstr("not running"));
    EXPECT_EQ(VelEngPageAttachDrawArea(&area, nullptr), 0);
    EXPECT_EQ(VelEngPageGetActive(), 0);
    EXPECT_EQ(VelEngTurn(), 0);
    EXPECT_EQ(VelUtilWorkFinish(), 0);
    EXPECT_EQ(VelUtilIsBusy(), 0);
    EXPECT_EQ(VelUtilPageIsComplete(), 0);
    EXPECT_EQ(VelUtilPageIsInterrupted(), 0);
    EXPECT_EQ(VelUtilPickGetCount(), 0);
    EXPECT_EQ(VelUtilViewCanRotate(), 0);
    VelUtilViewRotate(1, 1);
    VelUtilViewTranslate(1, 1);
    VelUtilViewZoom(2, 1, 1);
    VelUtilViewFit();
    VelUtilFrameFitAllToPaper();
    VelUtilWorkViewFitPaper();
    VelUtilPageRedraw();
    VelUtilPageFinish();
    VelUtilPickDeselectAll();
    EXPECT_FALSE(VelUtilInternalIsPrintDebugOn());
}

TEST_F(Engine, PrintsDebugOutputWhenStyleOrEnvironmentSayso)
{
    EXPECT_FALSE(VelUtilInternalIsPrintDebugOn());
    setStyle({"Interface", "PrintDebug"}, 1);
    EXPECT_TRUE(VelUtilInternalIsPrintDebugOn());
    setStyle({"Interface", "PrintDebug"}, 0);
    setenv("VELMORA_PRINT_DEBUG", "1", 1);
    EXPECT_TRUE(VelUtilInternalIsPrintDebugOn());
    setenv("VELMORA_PRINT_DEBUG", "0", 1);
    EXPECT_FALSE(VelUtilInternalIsPrintDebugOn());
    unsetenv("VELMORA_PRINT_DEBUG");
}

// ---- services

unsigned answerOk(const char* message, int type, long clientData)
{
    *reinterpret_cast<std::string*>(clientData) = std::to_string(type) + " " + message;
    return MessageBoxReply_Ok;
}

TEST_F(Engine, ShowsTheLastErrorThroughTheMessageBoxService)
{
    std::string shown;
    EXPECT_EQ(VelEngMessageBoxShow("anybody?", 2), 255U) << "there is no service";
    VelEngMessageBoxRegisterCallback(answerOk, reinterpret_cast<long>(&shown));
    EXPECT_FALSE(VelUtilDialogLastMessageBox());
    EXPECT_EQ(shown, "");
    VelUtilDataLoad("");
    EXPECT_TRUE(VelUtilDialogLastMessageBox());
    EXPECT_EQ(shown, std::string("0 ") + VelUtilLastErrorMessage());
    EXPECT_EQ(VelEngMessageBoxShow("sure?", MessageBoxType_YesNo), unsigned(MessageBoxReply_Ok));
    EXPECT_EQ(shown, "4 sure?");
    VelUtilLastErrorMessageClear();
    EXPECT_FALSE(VelUtilDialogLastMessageBox());
    VelEngMessageBoxRegisterCallback(nullptr, 0);
}

int chooseFile(int option, const char* text1, const char* text2, const char* text3,
               void (*setResult)(const char*, void*), void* result, long clientData)
{
    *reinterpret_cast<std::string*>(clientData) = std::to_string(option) + text1 + text2 + text3;
    setResult("/data/heights.asc", result);
    return option == SelectFileOption_WriteFile ? 0 : 1;
}

TEST_F(Engine, AsksTheFileServiceAndCutsALongNameOff)
{
    char buffer[64] = "before";
    EXPECT_EQ(VelEngSelectFile(0, "t", "o", "f", buffer, sizeof buffer), 0) << "there is no service";
    std::string asked;
    VelEngSelectFileRegisterCallback(chooseFile, reinterpret_cast<long>(&asked));
    EXPECT_EQ(VelEngSelectFile(1, "t", "o", "f", buffer, sizeof buffer), 0);
    EXPECT_STREQ(buffer, "before");
    EXPECT_EQ(VelEngSelectFile(0, "t", "o", "f", buffer, sizeof buffer), 1);
    EXPECT_EQ(asked, "0tof");
    EXPECT_STREQ(buffer, "/data/heights.asc");
    EXPECT_EQ(VelEngSelectFile(0, "t", "o", "f", buffer, 6), 1);
    EXPECT_STREQ(buffer, "/data");
    VelEngSelectFileRegisterCallback(nullptr, 0);
}

std::vector<std::string>& heard()
{
    static std::vector<std::string> calls;
    return calls;
}

TEST_F(Engine, PassesCursorsAndRegionsOn)
{
    heard().clear();
    VelEngWaitCursorRegisterCallback([](int on, long) { heard().push_back("wait " + std::to_string(on)); }, 0);
    VelEngBaseCursorRegisterCallback(
        [](PageInterface* page, int style, long) {
            heard().push_back("base " + std::to_string(style) + (page ? " page" : " none"));
        },
        0);
    VelEngSelectRegionRegisterCallback(
        [](double x1, double y1, double x2, double y2, int add, long) {
            heard().push_back("region " + std::to_string(int(x1 * 1000 + y1 * 100 + x2 * 10 + y2)) + " " +
                              std::to_string(add));
        },
        0);
    VelEngWaitCursorActivate(1);
    VelEngBaseCursorSet(CursorStyle_Zoom);
    VelEngSelectRegion(1, 2, 3, 4, 1);
    EXPECT_THAT(heard(), ElementsAre("wait 1", "base 5 none", "region 1234 1"));
    VelEngWaitCursorRegisterCallback(nullptr, 0);
    VelEngBaseCursorRegisterCallback(nullptr, 0);
    VelEngSelectRegionRegisterCallback(nullptr, 0);
    VelEngWaitCursorActivate(0);
    EXPECT_EQ(heard().size(), 3U);
}

TEST_F(Engine, AsksTheMiscServiceForTheOpenGLVersion)
{
    EXPECT_STREQ(VelEngOpenGLVersion(), "");
    VelEngMiscCallbacks misc = {};
    misc.openGLVersionString = [](void (*setResult)(const char*, void*), void* result, long) {
        setResult("4.5 software", result);
    };
    VelEngMiscRegisterCallbacks(&misc, 0);
    EXPECT_STREQ(VelEngOpenGLVersion(), "4.5 software");
    VelEngMiscRegisterCallbacks(nullptr, 0);
    EXPECT_STREQ(VelEngOpenGLVersion(), "");
}

// ---- assertions

TEST(AssertionDeathTest, ABrokenPreconditionPrintsAllTextsAndEndsTheProcess)
{
    EXPECT_DEATH(VelEngDoVUAssert("Requirement", "width > 0", "The width must be above 0.", "imageCreate"),
                 "Requirement.*width > 0(.|\n)*The width must be above 0.(.|\n)*imageCreate");
}

TEST(Assertion, AHandlerHearsOfItInstead)
{
    static std::string told;
    VelEngSetVUAssertHandler([](const char* kind, const char* condition, const char* message, const char* function) {
        told = std::string(kind) + condition + message + function;
    });
    VelEngDoVUAssert("a", "b", "c", "d");
    EXPECT_EQ(told, "abcd");
    VelEngSetVUAssertHandler(nullptr);
}

// ---- the probe

TEST(Probe, LogsOnlyWhenItIsTold)
{
    EngineProbe::reset();
    EngineProbe::note("early");
    EXPECT_TRUE(EngineProbe::log().empty());
    EngineProbe::startLog();
    EngineProbe::note("one");
    EngineProbe::note("two");
    EXPECT_THAT(EngineProbe::log(), ElementsAre("one", "two"));
    EngineProbe::clearLog();
    EXPECT_TRUE(EngineProbe::isLogging());
    EngineProbe::reset();
    EXPECT_FALSE(EngineProbe::isLogging());
}

TEST(Probe, ThrowsAsOftenAsItIsTold)
{
    EngineProbe::throwAt("here", 2);
    EngineProbe::passPoint("there");
    EXPECT_THROW(EngineProbe::passPoint("here"), ExceptionBase);
    EXPECT_THROW(EngineProbe::passPoint("here"), ExceptionBase);
    EngineProbe::passPoint("here");
    EngineProbe::throwAt("here");
    EngineProbe::reset();
    EngineProbe::passPoint("here");
}

TEST(Probe, ResetUndoesAllSteeringAndRunsTheHooks)
{
    static int hooks = 0;
    EngineProbe::addResetHook([] { ++hooks; });
    EngineProbe::refuseStyleWrites("Paper/PaperSize", 7);
    EngineProbe::failStyleReads("Paper/PaperSize");
    EngineProbe::setBusy(true);
    EXPECT_EQ(EngineProbe::styleWriteCode("Paper/PaperSize"), 7);
    EXPECT_TRUE(EngineProbe::styleReadFails("Paper/PaperSize"));
    EngineProbe::reset();
    EXPECT_EQ(EngineProbe::styleWriteCode("Paper/PaperSize"), 0);
    EXPECT_FALSE(EngineProbe::styleReadFails("Paper/PaperSize"));
    EXPECT_EQ(VelUtilIsBusy(), 0);
    EXPECT_EQ(hooks, 1);
}

} // namespace
} // namespace velmora::test
