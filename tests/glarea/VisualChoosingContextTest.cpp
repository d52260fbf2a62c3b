// What a context asks GLX for, and what it gives up where there is no such visual.
#include "integration/glarea/VisualList.h"
#include "integration/glarea/VisualRanking.h"
#include "integration/toolkit/OwnedVisual.h"
#include "tests/glarea/GlxRequests.h"
#include "tests/glarea/ToolkitFormats.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <GL/glx.h>

using namespace velmora::sdk::integration;
using namespace velmora::test;

namespace {

GlxRequest withAccumulation(GlxRequest request, int size)
{
    for (const int name : accumulationAttributes())
        request[name] = size;
    return request;
}

GlxRequest everything()
{
    return withAccumulation(
        {
            {GLX_RGBA, 1},
            {GLX_RED_SIZE, 1},
            {GLX_GREEN_SIZE, 1},
            {GLX_BLUE_SIZE, 1},
            {GLX_ALPHA_SIZE, 1},
            {GLX_DOUBLEBUFFER, 1},
            {GLX_STEREO, 1},
            {GLX_DEPTH_SIZE, 1},
            {GLX_STENCIL_SIZE, 1},
            {GLX_SAMPLE_BUFFERS, 1},
            {GLX_SAMPLES, 4},
        },
        1);
}

toolkit::OwnedVisual choose(const toolkit::ContextFormat& format, int refused = 0)
{
    beginGlxRequests(refused);
    toolkit::VisualChoosingContext context(format);
    return toolkit::OwnedVisual(context.chooseVisual());
}

} // namespace

TEST(VisualChoosingContext, ASizeThatIsNotSetMeansAnyAboveNone)
{
    choose(formatOfEverything());
    ASSERT_FALSE(glxRequests.empty());
    EXPECT_EQ(glxRequests.front(), everything());
}

TEST(VisualChoosingContext, SizesThatAreSetAreAskedFor)
{
    toolkit::ContextFormat format = formatOfEverything();
    format.setRedBufferSize(2);
    format.setGreenBufferSize(3);
    format.setBlueBufferSize(4);
    format.setAlphaBufferSize(5);
    format.setDepthBufferSize(6);
    format.setStencilBufferSize(7);
    setAccumulation(format, 9);
    format.setSamples(2);
    choose(format);
    ASSERT_FALSE(glxRequests.empty());
    const GlxRequest expected = {
        {GLX_RGBA, 1},         {GLX_RED_SIZE, 2},       {GLX_GREEN_SIZE, 3}, {GLX_BLUE_SIZE, 4},
        {GLX_ALPHA_SIZE, 5},   {GLX_DOUBLEBUFFER, 1},   {GLX_STEREO, 1},     {GLX_DEPTH_SIZE, 6},
        {GLX_STENCIL_SIZE, 7}, {GLX_SAMPLE_BUFFERS, 1}, {GLX_SAMPLES, 2},
    };
    EXPECT_EQ(glxRequests.front(), withAccumulation(expected, 9));
}

TEST(VisualChoosingContext, WhatIsNotWantedIsNotAskedFor)
{
    choose(formatOfColours());
    const GlxRequest colors = {{GLX_RGBA, 1}, {GLX_RED_SIZE, 1}, {GLX_GREEN_SIZE, 1}, {GLX_BLUE_SIZE, 1}};
    ASSERT_FALSE(glxRequests.empty());
    EXPECT_EQ(glxRequests.front(), colors);
}

TEST(VisualChoosingContext, WhatMattersLeastIsGivenUpFirstUntilOnlyTheColoursAreLeft)
{
    EXPECT_EQ(choose(formatOfEverything(), 100), nullptr);
    const std::vector<std::vector<int>> givenUp = {
        {GLX_SAMPLE_BUFFERS, GLX_SAMPLES},
        {GLX_STEREO},
        accumulationAttributes(),
        {GLX_STENCIL_SIZE},
        {GLX_ALPHA_SIZE},
        {GLX_DEPTH_SIZE},
        {GLX_DOUBLEBUFFER},
    };
    std::vector<GlxRequest> expected = {everything()};
    for (const std::vector<int>& names : givenUp) {
        GlxRequest fewer = expected.back();
        for (const int name : names)
            fewer.erase(name);
        if (!names.empty())
            expected.push_back(fewer);
    }
    EXPECT_EQ(glxRequests, expected);
}

TEST(VisualChoosingContext, NothingMoreIsGivenUpOnceThereIsAVisual)
{
    const toolkit::OwnedVisual chosen = choose(formatWithDepth(), 1);
    EXPECT_NE(chosen, nullptr);
    ASSERT_EQ(glxRequests.size(), 2u);
    EXPECT_EQ(glxRequests.front().count(GLX_DEPTH_SIZE), 1u);
    EXPECT_EQ(glxRequests.back().count(GLX_DEPTH_SIZE), 0u);
    EXPECT_EQ(glxRequests.back().count(GLX_DOUBLEBUFFER), 1u);
}

namespace {

class ContextOfVisual : public toolkit::VisualChoosingContext {
public:
    explicit ContextOfVisual(int id)
        : VisualChoosingContext(toolkit::ContextFormat()), m_id(static_cast<unsigned long>(id))
    {}
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
        const toolkit::VisualSizes asked = sizesAskedFor(std::make_unique<ContextOfVisual>(visual->visualId));
        EXPECT_EQ(asked.doubleBuffer, visual->doubleBuffer);
        EXPECT_EQ(asked.red, visual->redSize);
        EXPECT_EQ(asked.green, visual->greenSize);
        EXPECT_EQ(asked.blue, visual->blueSize);
        EXPECT_EQ(asked.alpha, visual->alphaSize);
        EXPECT_EQ(asked.depth, visual->depthSize);
        EXPECT_EQ(asked.stencil, visual->stencilSize);
        EXPECT_EQ(asked.samples, visual->samples);
    }
}
