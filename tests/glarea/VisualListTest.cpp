// What the list knows of the X server's visuals, and which of them it takes for the best.
#include "integration/glarea/VisualList.h"
#include "integration/glarea/VisualRanking.h"
#include "integration/toolkit/XDisplay.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <tuple>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <GL/glx.h>
#include <X11/Xutil.h>

using namespace velmora::sdk::integration;
using toolkit::OwnedVisual;

namespace {

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

TEST(VisualList, TheChoiceIsTheBestOfAllRealVisualsByTheRuleComputedAnotherWay)
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

TEST(VisualList, TheComparatorAgreesWithTheKeyForEveryPairOfRealVisuals)
{
    const std::vector<VisualCandidate> candidates = VisualList().candidates({24, 4, 16});
    for (const VisualCandidate& a : candidates)
        for (const VisualCandidate& b : candidates)
            ASSERT_EQ(CompareVisual(&a, &b), keyOf(a) > keyOf(b) ? 1 : 0) << a.visualId << " " << b.visualId;
}

TEST(VisualList, HasTheTrueColorVisualsOfTheServerAndNoOther)
{
    // Without a mask the server lists all that it has, of every class.
    XVisualInfo any = {};
    int count = 0;
    XVisualInfo* const all = XGetVisualInfo(toolkit::xDisplay(), VisualNoMask, &any, &count);
    const OwnedVisual owner(all);
    std::multiset<int> trueColor;
    std::set<int> classes;
    for (int i = 0; i < count; ++i) {
        classes.insert(all[i].c_class);
        if (all[i].c_class == TrueColor)
            trueColor.insert(static_cast<int>(all[i].visualid));
    }
    ASSERT_GT(classes.size(), 1u) << "a server with one class proves nothing";
    std::multiset<int> listed;
    for (const VisualCandidate& candidate : VisualList().candidates({32, 4, 16}))
        listed.insert(candidate.visualId);
    EXPECT_EQ(listed, trueColor);
}

namespace {

struct Fact {
    int attribute;
    std::function<int(const VisualCandidate&)> value;
};

const Fact facts[] = {
    {GLX_LEVEL, &VisualCandidate::level},
    {GLX_BUFFER_SIZE, &VisualCandidate::bufferSize},
    {GLX_RGBA, &VisualCandidate::rgba},
    {GLX_DOUBLEBUFFER, &VisualCandidate::doubleBuffer},
    {GLX_STEREO, &VisualCandidate::stereo},
    {GLX_RED_SIZE, &VisualCandidate::redSize},
    {GLX_GREEN_SIZE, &VisualCandidate::greenSize},
    {GLX_BLUE_SIZE, &VisualCandidate::blueSize},
    {GLX_ALPHA_SIZE, &VisualCandidate::alphaSize},
    {GLX_DEPTH_SIZE, &VisualCandidate::depthSize},
    {GLX_STENCIL_SIZE, &VisualCandidate::stencilSize},
    {GLX_ACCUM_RED_SIZE, &VisualCandidate::accumRedSize},
    {GLX_ACCUM_GREEN_SIZE, &VisualCandidate::accumGreenSize},
    {GLX_ACCUM_BLUE_SIZE, &VisualCandidate::accumBlueSize},
    {GLX_ACCUM_ALPHA_SIZE, &VisualCandidate::accumAlphaSize},
    {GLX_AUX_BUFFERS, &VisualCandidate::auxBuffers},
    {GLX_SAMPLE_BUFFERS, &VisualCandidate::sampleBuffers},
    {GLX_SAMPLES, &VisualCandidate::samples},
    {GLX_VISUAL_CAVEAT_EXT,
     [](const VisualCandidate& v) {
         const int caveats[] = {GLX_NONE, GLX_NON_CONFORMANT_VISUAL_EXT, GLX_SLOW_VISUAL_EXT};
         return caveats[v.caveatRank];
     }},
};

} // namespace

TEST(VisualList, WhatTheRankingKnowsOfAVisualIsWhatTheServerSaysOfIt)
{
    for (const VisualCandidate& candidate : VisualList().candidates({32, 4, 16})) {
        const OwnedVisual owned = VisualList::find(static_cast<unsigned long>(candidate.visualId));
        ASSERT_NE(owned, nullptr);
        auto* const visual = static_cast<XVisualInfo*>(owned.get());
        EXPECT_EQ(candidate.screen, visual->screen);
        EXPECT_EQ(candidate.depth, visual->depth);
        for (const Fact& fact : facts) {
            int value = -1;
            ASSERT_EQ(glXGetConfig(toolkit::xDisplay(), visual, fact.attribute, &value), 0) << fact.attribute;
            EXPECT_EQ(fact.value(candidate), value) << "attribute " << fact.attribute << " of " << candidate.visualId;
        }
    }
}

TEST(VisualList, TheRankingIsForTheApplicationsScreen)
{
    X_Screen = 7;
    VisualList().best({32, 4, 16});
    EXPECT_EQ(X_Screen, toolkit::xScreen());
}
