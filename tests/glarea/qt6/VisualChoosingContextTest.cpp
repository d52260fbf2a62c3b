// What a context asks GLX for, and what it gives up where there is no such visual.
#include "chosen_toolkit/VisualChoosingContext.h"

#include "integration/glarea/VisualList.h"
#include "integration/glarea/VisualRanking.h"
#include "integration/toolkit/OwnedVisual.h"
#include "tests/glarea/GlxRequests.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <GL/glx.h>

using namespace velmora::sdk::integration;
using velmora::test::glxRequests;
using Request = velmora::test::GlxRequest;

namespace {

const Request Everything = {
    {GLX_RGBA, 1},         {GLX_RED_SIZE, 1},     {GLX_GREEN_SIZE, 1},     {GLX_BLUE_SIZE, 1},
    {GLX_ALPHA_SIZE, 1},   {GLX_DOUBLEBUFFER, 1}, {GLX_STEREO, 1},         {GLX_DEPTH_SIZE, 1},
    {GLX_STENCIL_SIZE, 1}, {GLX_SAMPLES, 4},      {GLX_SAMPLE_BUFFERS, 1},
};

QSurfaceFormat formatOfEverything()
{
    QSurfaceFormat format(QSurfaceFormat::StereoBuffers);
    format.setSwapBehavior(QSurfaceFormat::DoubleBuffer);
    format.setAlphaBufferSize(1);
    format.setDepthBufferSize(1);
    format.setStencilBufferSize(1);
    format.setSamples(4);
    return format;
}

QSurfaceFormat formatOfColours()
{
    QSurfaceFormat format;
    format.setSwapBehavior(QSurfaceFormat::SingleBuffer);
    return format;
}

toolkit::OwnedVisual choose(const QSurfaceFormat& format, int refused = 0)
{
    velmora::test::beginGlxRequests(refused);
    toolkit::VisualChoosingContext context(format);
    return toolkit::OwnedVisual(context.chooseVisual());
}

} // namespace

TEST(VisualChoosingContext, ColoursThatAreNotSetMeanAnyAboveNone)
{
    choose(formatOfEverything());
    ASSERT_FALSE(glxRequests.empty());
    EXPECT_EQ(glxRequests.front(), Everything);
}

TEST(VisualChoosingContext, SizesThatAreSetAreAskedFor)
{
    QSurfaceFormat format = formatOfEverything();
    format.setRedBufferSize(2);
    format.setGreenBufferSize(3);
    format.setBlueBufferSize(4);
    format.setAlphaBufferSize(5);
    format.setDepthBufferSize(6);
    format.setStencilBufferSize(7);
    format.setSamples(2);
    choose(format);
    ASSERT_FALSE(glxRequests.empty());
    const Request expected = {
        {GLX_RGBA, 1},         {GLX_RED_SIZE, 2},     {GLX_GREEN_SIZE, 3},     {GLX_BLUE_SIZE, 4},
        {GLX_ALPHA_SIZE, 5},   {GLX_DOUBLEBUFFER, 1}, {GLX_STEREO, 1},         {GLX_DEPTH_SIZE, 6},
        {GLX_STENCIL_SIZE, 7}, {GLX_SAMPLES, 2},      {GLX_SAMPLE_BUFFERS, 1},
    };
    EXPECT_EQ(glxRequests.front(), expected);
}

TEST(VisualChoosingContext, WhatIsNotWantedIsNotAskedFor)
{
    choose(formatOfColours());
    const Request colors = {{GLX_RGBA, 1}, {GLX_RED_SIZE, 1}, {GLX_GREEN_SIZE, 1}, {GLX_BLUE_SIZE, 1}};
    ASSERT_FALSE(glxRequests.empty());
    EXPECT_EQ(glxRequests.front(), colors);
}

TEST(VisualChoosingContext, WhatMattersLeastIsGivenUpFirstUntilOnlyTheColoursAreLeft)
{
    EXPECT_EQ(choose(formatOfEverything(), 100), nullptr);
    const std::vector<std::vector<int>> givenUp = {
        {},
        {GLX_SAMPLE_BUFFERS, GLX_SAMPLES},
        {GLX_STEREO},
        {GLX_STENCIL_SIZE},
        {GLX_ALPHA_SIZE},
        {GLX_DEPTH_SIZE},
        {GLX_DOUBLEBUFFER},
    };
    ASSERT_EQ(glxRequests.size(), givenUp.size());
    Request expected = Everything;
    for (std::size_t i = 0; i < givenUp.size(); ++i) {
        for (const int name : givenUp[i])
            expected.erase(name);
        EXPECT_EQ(glxRequests[i], expected) << i;
    }
}

TEST(VisualChoosingContext, NothingMoreIsGivenUpOnceThereIsAVisual)
{
    QSurfaceFormat format;
    format.setDepthBufferSize(24);
    const toolkit::OwnedVisual chosen = choose(format, 1);
    EXPECT_NE(chosen, nullptr);
    ASSERT_EQ(glxRequests.size(), 2u);
    EXPECT_EQ(glxRequests.front().count(GLX_DEPTH_SIZE), 1u);
    EXPECT_EQ(glxRequests.back().count(GLX_DEPTH_SIZE), 0u);
    EXPECT_EQ(glxRequests.back().count(GLX_DOUBLEBUFFER), 1u);
}

namespace {

class ContextOfVisual : public toolkit::VisualChoosingContext {
public:
    explicit ContextOfVisual(int id) : VisualChoosingContext(QSurfaceFormat()), m_id(static_cast<unsigned long>(id)) {}
    void* chooseVisual() override { return VisualList::find(m_id).release(); }

private:
    const unsigned long m_id;
};

} // namespace

TEST(VisualChoosingContext, WhatTheChosenVisualHasIsAskedOfTheToolkit)
{
    bool (*const kinds[])(const VisualCandidate&) = {
        [](const VisualCandidate& v) { return !v.doubleBuffer && v.depthSize == 16; },
        [](const VisualCandidate& v) { return v.doubleBuffer && v.depthSize == 24 && v.stencilSize > 0; },
        [](const VisualCandidate& v) { return v.doubleBuffer && v.alphaSize > 0 && v.stencilSize == 0; },
        [](const VisualCandidate& v) { return v.doubleBuffer && v.samples > 0; },
    };
    const std::vector<VisualCandidate> all = VisualList().candidates(VisualRequest());
    for (const auto kind : kinds) {
        const auto visual = std::find_if(all.begin(), all.end(), kind);
        ASSERT_NE(visual, all.end());
        ContextOfVisual context(visual->visualId);
        ASSERT_TRUE(context.create());
        const QSurfaceFormat asked = context.requestedFormat();
        EXPECT_EQ(asked.swapBehavior() == QSurfaceFormat::DoubleBuffer, visual->doubleBuffer);
        EXPECT_EQ(asked.redBufferSize(), visual->redSize);
        EXPECT_EQ(asked.greenBufferSize(), visual->greenSize);
        EXPECT_EQ(asked.blueBufferSize(), visual->blueSize);
        EXPECT_EQ(asked.alphaBufferSize(), visual->alphaSize);
        EXPECT_EQ(asked.depthBufferSize(), visual->depthSize);
        EXPECT_EQ(asked.stencilBufferSize(), visual->stencilSize);
        EXPECT_EQ(asked.samples(), visual->samples);
    }
}
