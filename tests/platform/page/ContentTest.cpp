// Contents that a host or a module brings: how they are drawn, asked and let go.
#include "tests/platform/page/ScreenDrawingFixture.h"
#include "tests/platform/page/StripedContent.h"

#include "engine/VelContent.h"
#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "exception/ExceptionBase.h"

#include <GL/gl.h>
#include <gmock/gmock.h>

#include <chrono>

namespace velmora::test {
namespace {

using ::testing::HasSubstr;

constexpr Pixel Blue{0, 0, 255};

void keepBusyFor(std::chrono::milliseconds time)
{
    const auto end = std::chrono::steady_clock::now() + time;
    while (std::chrono::steady_clock::now() < end) {
    }
}

class ContentOfAHost : public ScreenDrawing {
protected:
    /// Shows the stripes, drawn.
    void showStripes()
    {
        content::show(stripes);
        m_page = show(area);
        turnUntilDone();
    }

    std::shared_ptr<StripedContent> stripes = std::make_shared<StripedContent>();
};

TEST_F(ContentOfAHost, FillsTheFrameInTheDrawingArea)
{
    showStripes();
    EXPECT_EQ(area.surface.at(1, 90), Blue);
    EXPECT_EQ(area.surface.at(5, 90), White);
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
    EXPECT_EQ(content::shown(), stripes);
    EXPECT_STREQ(VelUtilDataDescription(), "stripes");
    EXPECT_STREQ(VelUtilDataDetails(), "Extent in x\t0 to 40\nExtent in y\t-1 to 1\nExtent in z\t0.5 to 0.5");
}

TEST_F(ContentOfAHost, IsToldWhereItIsDrawn)
{
    showStripes();
    const content::Drawing& screen = stripes->drawings.back();
    EXPECT_EQ(screen.targetWidth, 240);
    EXPECT_EQ(screen.targetHeight, 180);
    EXPECT_EQ(screen.frameWidth, 240);
    EXPECT_EQ(screen.detail, content::Detail::Full);
    EXPECT_NE(screen.context, 0UL);
    EXPECT_NE(screen.findFunction("glClear"), nullptr);
    EXPECT_EQ(stripes->drawings.front().detail, content::Detail::Coarse) << "which comes first";

    FakeImage image(120, 90);
    ASSERT_TRUE(image.render(sdk::integration::ExportRegion_CurrentFrame));
    EXPECT_EQ(stripes->drawings.back().targetWidth, 120);
    EXPECT_EQ(stripes->drawings.back().context, 0UL) << "nothing may be kept in the context of an image";
    EXPECT_EQ(image.surface.at(0, 45), Blue);
}

TEST_F(ContentOfAHost, IsInterruptedAtACheckpointAndFinishedWhenAskedFor)
{
    stripes->whileDrawing = [] { keepBusyFor(std::chrono::milliseconds(1)); };
    content::show(stripes);
    m_page = show(area);
    turns = 0;
    inTurn = [this] { return turns >= 3 ? 1 : 0; };
    VelUtilWorkFinish();
    EXPECT_EQ(turns, 3);
    EXPECT_EQ(VelUtilPageIsInterrupted(), 1);
    letItGoOn();
    VelUtilPageFinish();
    VelEngTurn();
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
}

TEST_F(ContentOfAHost, WithoutCoarsePicturesShowsWhatAMomentHasRoomForAtFirst)
{
    stripes->isCoarse = false;
    stripes->whileDrawing = [] { keepBusyFor(std::chrono::milliseconds(2)); };
    content::show(stripes);
    m_page = show(area);
    std::vector<unsigned char> first;
    inTurn = [&] {
        if (first.empty())
            first = area.surface.bytes();
        return 0;
    };
    VelEngTurn();
    ASSERT_FALSE(first.empty());
    const auto at = [&](int x) { return first[static_cast<std::size_t>((90 * 240 + x) * 4)]; };
    EXPECT_EQ(at(1), 0) << "the first stripe is there";
    EXPECT_EQ(at(235), 255) << "the last is not yet";
    EXPECT_EQ(area.surface.at(235, 90), Blue) << "now it is";
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
}

TEST_F(ContentOfAHost, ThatChangesByItselfIsDrawnAnewAtTheNextTurn)
{
    showStripes();
    const int before = stripes->finished;
    turnWishes = 0;
    content::changed(*stripes);
    EXPECT_EQ(turnWishes, 1);
    turnUntilDone();
    EXPECT_GT(stripes->finished, before);

    const StripedContent other;
    turnWishes = 0;
    content::changed(other);
    EXPECT_EQ(turnWishes, 0) << "no page shows it";
}

TEST_F(ContentOfAHost, TakesTheViewOperationsThatItHas)
{
    showStripes();
    EXPECT_EQ(VelUtilViewCanRotate(), 0);
    VelUtilViewZoom(2, 120, 90);
    EXPECT_EQ(stripes->zoomed, 2);
    VelUtilViewTranslate(24, 0);
    EXPECT_NEAR(stripes->moved, 0.1, 1e-9);
    VelUtilViewZoomTo(60, 45, 180, 135);
    EXPECT_NEAR(stripes->zoomed, 4, 1e-9) << "by zoom and translation";
    EXPECT_EQ(VelUtilViewSetState("stripes 3"), 1);
    EXPECT_STREQ(VelUtilViewState(), "stripes 3.000000");
    EXPECT_EQ(VelUtilViewSetState("lines 1 2"), 0);
    EXPECT_STREQ(VelUtilViewValueAt(10, 10, nullptr, nullptr), "");
    EXPECT_EQ(VelUtilPickGetCount(), 0);
    EXPECT_EQ(VelUtilSurfaceClipColors(1), 0) << "it is no surface";
}

TEST_F(ContentOfAHost, GivesBackWhatItKeepsWhenThePageShowsSomethingElse)
{
    showStripes();
    const unsigned long context = stripes->drawings.back().context;
    load(tableFile());
    EXPECT_TRUE(stripes->left.empty()) << "its context need not be current then";
    turnUntilDone();
    ASSERT_EQ(stripes->left.size(), 1U);
    EXPECT_EQ(stripes->left.front().context, context);
    EXPECT_TRUE(stripes->left.front().wasCurrent);
}

TEST_F(ContentOfAHost, GivesBackWhatItKeepsWhenTheAreaGoesAndMeetsANewContextThen)
{
    showStripes();
    const unsigned long context = stripes->drawings.back().context;
    area.detach();
    ASSERT_EQ(stripes->left.size(), 1U);
    EXPECT_TRUE(stripes->left.front().wasCurrent);

    FakeArea other(100, 80);
    show(other);
    turnUntilDone();
    EXPECT_NE(stripes->drawings.back().context, context);
    other.surface.worksAtAll = false;
    other.detach();
    ASSERT_EQ(stripes->left.size(), 2U);
    EXPECT_FALSE(stripes->left.back().wasCurrent) << "there is nothing to give back in a context that is gone";
}

TEST_F(ContentOfAHost, ThatIsReplacedWhileItDrawsIsToldToStopAndOutlivesItsDrawing)
{
    content::show(stripes);
    m_page = show(area);
    slowDown();
    stripes->whileDrawing = [] { keepBusyFor(std::chrono::milliseconds(1)); };
    const std::weak_ptr<StripedContent> watched = stripes;
    stripes.reset();
    inTurn = [&] {
        letItGoOn();
        content::show(std::make_shared<StripedContent>());
        EXPECT_FALSE(watched.expired());
        return 0;
    };
    turnUntilDone();
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
}

TEST_F(ContentOfAHost, ReachesNoContextOnceItsOwnHasGoneInMidDrawing)
{
    FakeArea other(90, 70);
    const int otherPage = show(other);
    m_page = show(area);
    content::show(stripes);
    VelEngPageExpose(m_page, 0);
    stripes->whileDrawing = [] { keepBusyFor(std::chrono::milliseconds(1)); };
    bool wasStopped = false;
    bool isOfLibGL = true;
    GLint viewport[4] = {-1, -1, -1, -1};
    stripes->whenStopped = [&](const content::Drawing& drawing) {
        wasStopped = true;
        isOfLibGL = drawing.isOfLibGL;
        reinterpret_cast<decltype(&::glGetIntegerv)>(drawing.findFunction("glGetIntegerv"))(GL_VIEWPORT, viewport);
    };
    inTurn = [&] {
        const bool isDrawing = !stripes->drawings.empty() && stripes->drawings.back().detail == content::Detail::Full;
        if (!isDrawing)
            return 0;
        letItGoOn();
        area.detach();
        area.valid = false;
        VelEngPageExpose(otherPage, 0); // leaves another context current
        return 0;
    };
    VelEngTurn();
    ASSERT_TRUE(wasStopped);
    if (!isOfLibGL)
        GTEST_SKIP() << "drawing areas are never drawn by the software library, whose context stays current";
    EXPECT_EQ(viewport[2], -1);
}

TEST_F(ContentOfAHost, IsFinishedAlsoWhenTheApplicationTakesLongInEveryTurn)
{
    stripes->stripes = 12;
    stripes->whileDrawing = [] { keepBusyFor(std::chrono::milliseconds(3)); };
    content::show(stripes);
    m_page = show(area);
    int depth = 0;
    int deepest = 0;
    inTurn = [&] {
        deepest = std::max(deepest, ++depth);
        keepBusyFor(std::chrono::milliseconds(110)); // so long that it could be a dialog
        if (deepest < 20)
            VelEngTurn();
        --depth;
        return 0;
    };
    turnUntilDone();
    EXPECT_LT(deepest, 8) << "drawings that are begun within each other";
    EXPECT_EQ(VelUtilPageIsComplete(), 1);
}

TEST_F(ContentOfAHost, ThatThrowsLeavesThePageInterruptedAndTheReasonInTheLastError)
{
    stripes->whileDrawing = [] { throw ExceptionBase("The stripes have run out.", false); };
    content::show(stripes);
    m_page = show(area);
    VelEngTurn();
    EXPECT_THAT(VelUtilLastErrorMessage(), HasSubstr("The stripes have run out."));
    EXPECT_EQ(VelUtilPageIsInterrupted(), 1);
    EXPECT_EQ(VelEngTurn(), 0) << "it is not tried again at every turn";
}

TEST_F(ContentOfAHost, ThatKeepsTheApplicationWaitingIsNamedInDebugMode)
{
    setStyle({"Interface", "PrintDebug"}, 1);
    stripes->stripes = 2;
    stripes->whileDrawing = [] { keepBusyFor(std::chrono::milliseconds(60)); };
    content::show(stripes);
    m_page = show(area);
    ::testing::internal::CaptureStderr();
    turnUntilDone();
    EXPECT_THAT(::testing::internal::GetCapturedStderr(),
                HasSubstr("The content \"stripes\" held the application for "));

    stripes->whileDrawing = [] {};
    content::changed(*stripes);
    ::testing::internal::CaptureStderr();
    turnUntilDone();
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST_F(ContentOfAHost, CannotBeShownByAnEngineThatDoesNotRunNorBeNull)
{
    EXPECT_THROW(content::show(nullptr), ExceptionBase);
    EXPECT_THROW(content::addReader(nullptr), ExceptionBase);
    VelEngStop();
    EXPECT_THROW(content::show(stripes), ExceptionBase);
    EXPECT_EQ(content::shown(), nullptr);
}

class ContentOfAModule : public ScreenDrawing {
protected:
    /// What loadModule() says against a file.
    static std::string refusalOf(const std::string& fileName)
    {
        try {
            content::loadModule(fileName);
        } catch (const ExceptionBase& error) {
            return error.what();
        }
        return "";
    }
};

TEST_F(ContentOfAModule, ReadsTheFilesThatItsReaderRecognisesAndNoOthers)
{
    content::loadModule(VELMORA_TEST_STRIPES_MODULE);
    load(write("a.stripes", "stripes 12"));
    EXPECT_STREQ(VelUtilDataDescription(), "stripes");
    m_page = show(area);
    turnUntilDone();
    EXPECT_EQ(area.surface.at(1, 90), Blue);

    load(tableFile());
    EXPECT_THAT(VelUtilDataDescription(), HasSubstr("line")) << "tables are still tables";
    load(write("b.txt", "stripes 12\n1 2\n3 4\n"));
    EXPECT_THAT(VelUtilDataDescription(), HasSubstr("row"));
}

TEST_F(ContentOfAModule, TellsInTheLastErrorWhatIsWrongWithAFile)
{
    content::loadModule(VELMORA_TEST_STRIPES_MODULE);
    load(tableFile());
    EXPECT_EQ(VelUtilDataLoad(write("c.stripes", "stripes many").c_str()), 0);
    EXPECT_THAT(VelUtilLastErrorMessage(), HasSubstr("tells no number of stripes"));
    EXPECT_THAT(VelUtilDataDescription(), HasSubstr("line")) << "the page shows what it showed";
}

TEST_F(ContentOfAModule, CanBeInterruptedWhileItReads)
{
    content::loadModule(VELMORA_TEST_STRIPES_MODULE);
    slowDown();
    stopAtOnce();
    EXPECT_EQ(VelUtilDataLoad(write("d.stripes", "stripes 100000").c_str()), 0);
    EXPECT_EQ(VelUtilWasInterrupted(), 1);
}

TEST_F(ContentOfAModule, KeepsItsViewWhenTheFileIsReadAgain)
{
    content::loadModule(VELMORA_TEST_STRIPES_MODULE);
    const std::string file = write("e.stripes", "stripes 12");
    load(file);
    ASSERT_EQ(VelUtilViewSetState("stripes 5"), 1);
    ASSERT_EQ(VelUtilDataReload(file.c_str()), 1);
    EXPECT_STREQ(VelUtilViewState(), "stripes 5.000000");
}

TEST_F(ContentOfAModule, IsRefusedByItsFileAndReasonWhenItIsNone)
{
    EXPECT_THAT(refusalOf("/nowhere/module.so"), HasSubstr("/nowhere/module.so"));
    EXPECT_THAT(refusalOf(write("no.so", "text")), HasSubstr("no.so is not used"));
    EXPECT_THAT(refusalOf("libm.so.6"), HasSubstr("it defines no velmoraContentModule"));
    EXPECT_THAT(refusalOf(VELMORA_TEST_OLD_MODULE), HasSubstr("was built for version 0 of the interface"));
}

} // namespace
} // namespace velmora::test
