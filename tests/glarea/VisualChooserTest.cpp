#include "integration/glarea/GoodVisualChooserQGLContext.h"

#include "exception/ExceptionBase.h"
#include "integration/StyleSettings.h"
#include "integration/glarea/GLDrawArea.h"
#include "integration/glarea/VisualList.h"
#include "integration/glarea/VisualRanking.h"
#include "integration/toolkit/ContextFacts.h"
#include "integration/toolkit/XDisplay.h"
#include "testing/EngineProbe.h"
#include "tests/support/Wait.h"
#include "toolbox/StyleValue.h"

#include <algorithm>
#include <dlfcn.h>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <GL/glx.h>
#include <X11/Xutil.h>

using namespace velmora::sdk::integration;

namespace {

int failingAttribute = 0;
// Samples decide only between visuals of 24 bits; no real visual has both them and accumulation bits.
bool everySizeDecides = false;

} // namespace

// In place of GLX's own, which it calls, for the library too: fails for one attribute, as a driver may.
extern "C" __attribute__((visibility("default"))) int glXGetConfig(Display* display, XVisualInfo* visual, int attribute,
                                                                   int* value)
{
    using Function = int (*)(Display*, XVisualInfo*, int, int*);
    static const auto original = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "glXGetConfig"));
    if (attribute == failingAttribute)
        return GLX_BAD_ATTRIBUTE;
    const int result = original(display, visual, attribute, value);
    if (everySizeDecides && attribute == GLX_LEVEL)
        *value = visual->depth > 24 ? 1 : 0;
    if (everySizeDecides && attribute == GLX_ACCUM_RED_SIZE)
        *value = visual->visualid % 2 == 0 ? 16 : 0;
    return result;
}

using toolkit::OwnedVisual;
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

} // namespace

TEST_F(VisualChooser, NothingConfiguredMeans32DepthBits4SamplesAnd16AccumulationBits)
{
    everySizeDecides = true;
    const VisualList visuals;
    const unsigned long best = visuals.best({32, 4, 16});
    for (const VisualRequest& other : {VisualRequest{16, 4, 16}, VisualRequest{32, 0, 16}, VisualRequest{32, 4, 0}})
        EXPECT_NE(visuals.best(other), best);
    const OwnedVisual chosen = choose();
    everySizeDecides = false;
    ASSERT_NE(chosen, nullptr);
    EXPECT_EQ(VisualList::idOf(chosen.get()), best);
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

    // With another request the ranking would choose another visual; the ID in force forbids it.
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
    EXPECT_NE(VisualList::find(static_cast<unsigned long>(id)), nullptr);
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

TEST_F(VisualChooser, ExceptionsOfTheToolboxPassThrough)
{
    EngineProbe::throwAt("ArgList");
    EXPECT_THROW(GoodVisualChooserQGLContext(), velmora::ExceptionBase);
    EngineProbe::throwAt("AppLock"); // while the choice is written back
    EXPECT_THROW(choose(), velmora::ExceptionBase);
    EXPECT_EQ(config("VisualID"), 0);
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
    const int ordinaryDepth = toolkit::factsOf(byDefault.requestedFormat()).depthSize;
    setScreenRendering("DepthBufferSize", 16);
    setScreenRendering("MaxMultiSamples", 2);
    const GoodVisualChooserQGLContext configured;
    const toolkit::ContextFacts facts = toolkit::factsOf(configured.requestedFormat());
    EXPECT_EQ(facts.depthSize, 16);
    EXPECT_EQ(facts.samples, 2);
    EXPECT_TRUE(facts.hasDoubleBuffer);
    setScreenRendering("DepthBufferSize", -16);
    EXPECT_EQ(toolkit::factsOf(GoodVisualChooserQGLContext().requestedFormat()).depthSize, ordinaryDepth);
}

// What the window really got, from the X server; most toolkits are asked for the sizes, not the ID.
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
    const OwnedVisual chosen = VisualList::find(static_cast<unsigned long>(chosenId));
    const OwnedVisual actual = VisualList::find(XVisualIDFromVisual(attributes.visual));
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
}
