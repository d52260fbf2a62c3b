#include "integration/glarea/GoodVisualChooserQGLContext.h"

#include "integration/StyleSettings.h"
#include "integration/glarea/GLDrawArea.h"
#include "integration/glarea/VisualList.h"
#include "integration/glarea/VisualRanking.h"
#include "integration/toolkit/XDisplay.h"
#include "testing/EngineProbe.h"
#include "tests/support/Wait.h"
#include "toolbox/StyleValue.h"

#include <algorithm>
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <tuple>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <GL/glx.h>
#include <X11/Xutil.h>

using namespace velmora::sdk::integration;

namespace {

int failingAttribute = 0;

} // namespace

// In place of GLX's own, which it calls: fails for one attribute, as a driver may.
extern "C" int glXGetConfig(Display* display, XVisualInfo* visual, int attribute, int* value)
{
    using Function = int (*)(Display*, XVisualInfo*, int, int*);
    static const auto original = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "glXGetConfig"));
    return attribute == failingAttribute ? GLX_BAD_ATTRIBUTE : original(display, visual, attribute, value);
}
using velmora::testing::EngineProbe;
using velmora::toolbox::StyleValue;

namespace {

int config(const char* key)
{
    return readStyleInteger(StyleValue("Interface", "OpenGLConfig"), key);
}

void setConfig(const char* key, int value)
{
    writeStyleInteger(StyleValue("Interface", "OpenGLConfig"), key, value);
}

void setScreenRendering(const char* key, int value)
{
    writeStyleInteger(StyleValue("Interface", "OpenGLConfig", "ScreenRendering"), key, value);
}

OwnedVisual choose()
{
    GoodVisualChooserQGLContext context;
    return OwnedVisual(context.chooseVisual());
}

class VisualChooser : public ::testing::Test {
protected:
    void SetUp() override
    {
        EngineProbe::reset();
        setConfig("UseAdvancedVisualChooser", 1);
        setConfig("VisualID", 0);
        for (const char* const key : {"DepthBufferSize", "MaxMultiSamples", "MaxAccumBufferSize"})
            setScreenRendering(key, 0);
    }
    void TearDown() override { SetUp(); }
};

// The rule once more, as one sort key a visual: of two visuals the one with the greater key is
// preferred. It holds for the requests below, for which "as near as possible" is a total order.
int nearness(int requested, int size)
{
    return size <= requested ? size : requested - size;
}

auto keyOf(const VisualCandidate& v)
{
    const auto color = [](int size) { return size == 8 ? 1000 : size; };
    const auto main =
        std::make_tuple(v.level == 0, v.level, v.rgba, v.screen == 0, v.doubleBuffer, v.caveatRank != 2, v.depth,
                        v.depthSize != 0, color(v.redSize), color(v.greenSize), color(v.blueSize), -v.alphaSize);
    const auto rest = std::make_tuple(
        nearness(v.requestedDepthSize, v.depthSize), v.requestedSamples == 0 ? -v.sampleBuffers : v.sampleBuffers,
        nearness(v.requestedSamples, v.samples), !v.stereo, -v.stencilSize,
        nearness(v.requestedAccumSize, v.accumRedSize), nearness(v.requestedAccumSize, v.accumGreenSize),
        nearness(v.requestedAccumSize, v.accumBlueSize), nearness(v.requestedAccumSize, v.accumAlphaSize),
        -v.auxBuffers);
    return std::make_pair(main, rest);
}

} // namespace

TEST_F(VisualChooser, TheChoiceIsTheBestOfAllRealVisualsByTheRuleComputedAnotherWay)
{
    const VisualRequest requests[] = {{32, 4, 16}, {24, 4, 16}, {16, 0, 16}, {24, 8, 8}};
    const VisualList visuals;
    ASSERT_FALSE(visuals.isEmpty());
    for (const VisualRequest& request : requests) {
        const std::vector<VisualCandidate> candidates = visuals.candidates(request);
        ASSERT_GT(candidates.size(), 100u);
        const auto best = std::max_element(candidates.begin(), candidates.end(),
                                           [](const auto& a, const auto& b) { return keyOf(a) < keyOf(b); });
        const auto chosen = std::find_if(candidates.begin(), candidates.end(), [&](const auto& v) {
            return static_cast<unsigned long>(v.visualId) == visuals.best(request);
        });
        ASSERT_NE(chosen, candidates.end());
        EXPECT_EQ(keyOf(*chosen), keyOf(*best));
    }
}

TEST_F(VisualChooser, TheComparatorAgreesWithTheKeyForEveryPairOfRealVisuals)
{
    const std::vector<VisualCandidate> candidates = VisualList().candidates({24, 4, 16});
    for (const VisualCandidate& a : candidates)
        for (const VisualCandidate& b : candidates)
            ASSERT_EQ(CompareVisual(&a, &b), keyOf(a) > keyOf(b) ? 1 : 0) << a.visualId << " " << b.visualId;
}

TEST_F(VisualChooser, AQueryThatFailsLeavesTheAnswerOfTheOneBefore)
{
    const std::vector<VisualCandidate> asked = VisualList().candidates({32, 4, 16});
    failingAttribute = GLX_DEPTH_SIZE; // asked for after the alpha size
    const std::vector<VisualCandidate> failed = VisualList().candidates({32, 4, 16});
    failingAttribute = 0;
    bool differs = false;
    for (size_t i = 0; i < asked.size(); ++i) {
        EXPECT_EQ(failed[i].depthSize, asked[i].alphaSize);
        differs = differs || asked[i].depthSize != asked[i].alphaSize;
    }
    EXPECT_TRUE(differs);
}

TEST_F(VisualChooser, TheFirstChoiceWritesTheVisualIdAndTheSecondTakesIt)
{
    const OwnedVisual first = choose();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(static_cast<unsigned long>(config("VisualID")), VisualList::idOf(first.get()));

    // With other wishes the ranking would choose another visual; the ID in force forbids it.
    setScreenRendering("DepthBufferSize", 16);
    const OwnedVisual second = choose();
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(VisualList::idOf(second.get()), VisualList::idOf(first.get()));
}

TEST_F(VisualChooser, AConfiguredVisualIsTaken)
{
    const int wanted = VisualList().candidates({32, 4, 16}).front().visualId;
    setConfig("VisualID", wanted);
    const OwnedVisual chosen = choose();
    ASSERT_NE(chosen, nullptr);
    EXPECT_EQ(VisualList::idOf(chosen.get()), static_cast<unsigned long>(wanted));
}

TEST_F(VisualChooser, AConfiguredIdThatMatchesNothingLeavesEverythingUntouched)
{
    constexpr int NoVisual = 0x7ffffff0;
    setConfig("VisualID", NoVisual);
    EXPECT_EQ(choose(), nullptr);
    EXPECT_EQ(config("VisualID"), NoVisual);

    GLDrawArea area;
    EXPECT_TRUE(area.isValidWidget());
    EXPECT_EQ(config("VisualID"), NoVisual);
}

// The toolkit chooses for a widget, so there has to be one.
int idChosenForAnArea()
{
    const GLDrawArea area;
    return config("VisualID");
}

TEST_F(VisualChooser, WithTheAdvancedChooserOffTheToolkitsChoiceIsWrittenBack)
{
    setConfig("UseAdvancedVisualChooser", 0);
    const int id = idChosenForAnArea();
    ASSERT_NE(id, 0);
    EXPECT_NE(OwnedVisual(VisualList::find(static_cast<unsigned long>(id))), nullptr);
}

TEST_F(VisualChooser, TheToolkitsChoiceIsMadeAnewEachTime)
{
    setConfig("UseAdvancedVisualChooser", 0);
    const int id = idChosenForAnArea();
    setConfig("VisualID", 1);
    EXPECT_EQ(idChosenForAnArea(), id);
}

TEST_F(VisualChooser, AReadOfTheSwitchThatFailsMeansTheToolkitsChooser)
{
    EngineProbe::failStyleReads("Interface/OpenGLConfig/UseAdvancedVisualChooser");
    const int failing = idChosenForAnArea();
    EngineProbe::reset();
    setConfig("UseAdvancedVisualChooser", 0);
    setConfig("VisualID", 0);
    EXPECT_EQ(idChosenForAnArea(), failing);
    EXPECT_NE(failing, 0);
}

TEST_F(VisualChooser, AReadOfTheVisualIdThatFailsMeansNone)
{
    const OwnedVisual best = choose();
    setConfig("VisualID", VisualList().candidates({32, 4, 16}).front().visualId);
    EngineProbe::failStyleReads("Interface/OpenGLConfig/VisualID");
    const OwnedVisual chosen = choose();
    EXPECT_EQ(VisualList::idOf(chosen.get()), VisualList::idOf(best.get()));
}

TEST_F(VisualChooser, AReadOfPrintDebugThatFailsMeansNoPrinting)
{
    writeStyleInteger(StyleValue("Interface"), "PrintDebug", 1);
    EngineProbe::failStyleReads("Interface/PrintDebug");
    ::testing::internal::CaptureStderr();
    choose();
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    EngineProbe::reset();
    writeStyleInteger(StyleValue("Interface"), "PrintDebug", 0);
}

TEST_F(VisualChooser, FailedReadsOfTheSizesMeanTheDefaults)
{
    const OwnedVisual byDefault = choose();
    setConfig("VisualID", 0);
    setScreenRendering("DepthBufferSize", 16);
    setScreenRendering("MaxMultiSamples", 1);
    setScreenRendering("MaxAccumBufferSize", 8);
    for (const char* const key : {"DepthBufferSize", "MaxMultiSamples", "MaxAccumBufferSize"})
        EngineProbe::failStyleReads(std::string("Interface/OpenGLConfig/ScreenRendering/") + key);
    const OwnedVisual failing = choose();
    ASSERT_NE(failing, nullptr);
    EXPECT_EQ(VisualList::idOf(failing.get()), VisualList::idOf(byDefault.get()));
}

TEST_F(VisualChooser, TheChoiceIsWrittenUnderALockThatRecordsIt)
{
    EngineProbe::startLog();
    const OwnedVisual chosen = choose();
    ASSERT_NE(chosen, nullptr);
    const std::vector<std::string> log = EngineProbe::log();
    const auto lock = std::find(log.begin(), log.end(), "AppLock 1");
    const auto unlock = std::find(log.begin(), log.end(), "~AppLock");
    const auto write = std::find_if(log.begin(), log.end(), [](const std::string& entry) {
        return entry.find("styleSet Interface/OpenGLConfig/VisualID") == 0;
    });
    ASSERT_NE(lock, log.end());
    ASSERT_NE(write, log.end());
    EXPECT_LT(lock, write);
    EXPECT_LT(write, unlock);
    const std::string id = std::to_string(VisualList::idOf(chosen.get()));
    EXPECT_THAT(*write, ::testing::HasSubstr("IValue=" + id));
    EXPECT_THAT(*write, ::testing::HasSubstr("DValue=" + id));
}

TEST_F(VisualChooser, WithPrintDebugTheIdIsPrintedTwiceOnStandardError)
{
    writeStyleInteger(StyleValue("Interface"), "PrintDebug", 1);
    ::testing::internal::CaptureStderr();
    const OwnedVisual chosen = choose();
    const std::string printed = ::testing::internal::GetCapturedStderr();
    writeStyleInteger(StyleValue("Interface"), "PrintDebug", 0);

    char expected[64];
    std::snprintf(expected, sizeof expected, "Visual ID : 0x%02x, lvl: %02d\n",
                  static_cast<unsigned>(VisualList::idOf(chosen.get())),
                  static_cast<int>(VisualList::idOf(chosen.get())));
    EXPECT_EQ(printed, expected);
}

TEST_F(VisualChooser, WithoutPrintDebugNothingIsPrinted)
{
    ::testing::internal::CaptureStderr();
    choose();
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST_F(VisualChooser, TheConstructorAppliesConfiguredSizesAboveZeroOnly)
{
    const GoodVisualChooserQGLContext byDefault;
    EXPECT_FALSE(byDefault.requestedFormat().accum() && byDefault.requestedFormat().accumBufferSize() > 0);
    setScreenRendering("DepthBufferSize", 16);
    setScreenRendering("MaxMultiSamples", 2);
    setScreenRendering("MaxAccumBufferSize", -8);
    const GoodVisualChooserQGLContext configured;
    EXPECT_EQ(configured.requestedFormat().depthBufferSize(), 16);
    EXPECT_EQ(configured.requestedFormat().samples(), 2);
    EXPECT_EQ(configured.requestedFormat().accumBufferSize(), byDefault.requestedFormat().accumBufferSize());
    EXPECT_TRUE(configured.requestedFormat().doubleBuffer());
    EXPECT_TRUE(configured.requestedFormat().rgba());
    EXPECT_TRUE(configured.requestedFormat().sampleBuffers());
}

// What the window really got, from the X server; on Qt 5 the sizes are asked for, not the ID.
TEST_F(VisualChooser, TheWindowHasAVisualWithTheChosenSizes)
{
    setScreenRendering("DepthBufferSize", 24);
    GLDrawArea area;
    ASSERT_TRUE(velmora::test::showAndWait(area));
    const int chosenId = config("VisualID");
    ASSERT_NE(chosenId, 0);

    Display* const display = toolkit::xDisplay();
    XWindowAttributes attributes;
    ASSERT_NE(XGetWindowAttributes(display, area.winId(), &attributes), 0);
    const OwnedVisual chosen(VisualList::find(static_cast<unsigned long>(chosenId)));
    const OwnedVisual actual(VisualList::find(XVisualIDFromVisual(attributes.visual)));
    ASSERT_NE(actual, nullptr);
    const auto value = [&](const OwnedVisual& visual, int attribute) {
        int result = -1;
        glXGetConfig(display, static_cast<XVisualInfo*>(visual.get()), attribute, &result);
        return result;
    };
    for (const int attribute :
         {GLX_RED_SIZE, GLX_GREEN_SIZE, GLX_BLUE_SIZE, GLX_DEPTH_SIZE, GLX_STENCIL_SIZE, GLX_DOUBLEBUFFER, GLX_SAMPLES})
        EXPECT_GE(value(actual, attribute), value(chosen, attribute)) << attribute;
    EXPECT_EQ(value(actual, GLX_SAMPLES), value(chosen, GLX_SAMPLES));
    EXPECT_EQ(value(actual, GLX_ALPHA_SIZE), value(chosen, GLX_ALPHA_SIZE));
#if QT_VERSION < 0x050000
    EXPECT_EQ(VisualList::idOf(actual.get()), static_cast<unsigned long>(chosenId));
#endif
}
