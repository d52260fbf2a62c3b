#include "integration/glarea/VisualRanking.h"

#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

using velmora::sdk::integration::CompareVisual;
using velmora::sdk::integration::VisualCandidate;
using velmora::sdk::integration::X_Screen;

namespace {

VisualCandidate ordinary()
{
    VisualCandidate candidate;
    candidate.rgba = true;
    candidate.doubleBuffer = true;
    candidate.depth = 24;
    candidate.redSize = candidate.greenSize = candidate.blueSize = 8;
    candidate.depthSize = 24;
    return candidate;
}

using Change = std::function<void(VisualCandidate&)>;

VisualCandidate with(const Change& change)
{
    VisualCandidate candidate = ordinary();
    change(candidate);
    return candidate;
}

// The preferred one compares as 1 against the other, and the other never as anything but 0.
void expectWins(const VisualCandidate& better, const VisualCandidate& worse)
{
    EXPECT_EQ(CompareVisual(&better, &worse), 1);
    EXPECT_EQ(CompareVisual(&worse, &better), 0);
}

void expectTie(const VisualCandidate& a, const VisualCandidate& b)
{
    EXPECT_EQ(CompareVisual(&a, &b), 0);
    EXPECT_EQ(CompareVisual(&b, &a), 0);
}

class VisualRanking : public ::testing::Test {
protected:
    void SetUp() override { X_Screen = 0; }
    void TearDown() override { X_Screen = 0; }
};

} // namespace

TEST_F(VisualRanking, TwoEqualVisualsTie)
{
    expectTie(ordinary(), ordinary());
}

TEST_F(VisualRanking, TheBufferSizeIsNeverCompared)
{
    expectTie(ordinary(), with([](auto& v) { v.bufferSize = 64; }));
}

TEST_F(VisualRanking, LevelZeroWinsAndOtherwiseTheHigherLevel)
{
    expectWins(ordinary(), with([](auto& v) { v.level = 1; }));
    expectWins(ordinary(), with([](auto& v) { v.level = -1; }));
    expectWins(with([](auto& v) { v.level = 2; }), with([](auto& v) { v.level = 1; }));
    expectWins(with([](auto& v) { v.level = -1; }), with([](auto& v) { v.level = -2; }));
}

TEST_F(VisualRanking, RgbaWins)
{
    expectWins(ordinary(), with([](auto& v) { v.rgba = false; }));
}

TEST_F(VisualRanking, TheApplicationsScreenWins)
{
    X_Screen = 1;
    expectWins(with([](auto& v) { v.screen = 1; }), ordinary());
}

TEST_F(VisualRanking, OnTwoForeignScreensTheFirstArgumentLoses)
{
    const VisualCandidate a = with([](auto& v) { v.screen = 1; });
    const VisualCandidate b = with([](auto& v) { v.screen = 2; });
    EXPECT_EQ(CompareVisual(&a, &b), 0);
    EXPECT_EQ(CompareVisual(&b, &a), 0);
}

TEST_F(VisualRanking, WithStereoModeOneTheNonStereoVisualWinsBeforeDoubleBuffering)
{
    const VisualCandidate plainSingle = with([](auto& v) { v.stereoMode = 1, v.doubleBuffer = false; });
    const VisualCandidate stereoDouble = with([](auto& v) { v.stereoMode = 1, v.stereo = true; });
    expectWins(plainSingle, stereoDouble);
}

TEST_F(VisualRanking, WithAnyOtherStereoModeDoubleBufferingDecidesFirst)
{
    for (const int mode : {0, 2}) {
        const VisualCandidate plainSingle = with([=](auto& v) { v.stereoMode = mode, v.doubleBuffer = false; });
        const VisualCandidate stereoDouble = with([=](auto& v) { v.stereoMode = mode, v.stereo = true; });
        expectWins(stereoDouble, plainSingle);
    }
}

TEST_F(VisualRanking, DoubleBufferModeDecidesWhichBufferingWins)
{
    const auto buffered = [](int mode, bool doubleBuffer) {
        return with([=](auto& v) { v.doubleBufferMode = mode, v.doubleBuffer = doubleBuffer; });
    };
    expectWins(buffered(1, true), buffered(1, false));
    expectWins(buffered(0, false), buffered(0, true));
    expectWins(buffered(2, false), buffered(2, true));
    expectTie(buffered(3, false), buffered(3, true));
}

TEST_F(VisualRanking, ASlowVisualLosesToAnyOtherThatTiesSoFar)
{
    const VisualCandidate slow = with([](auto& v) { v.caveatRank = 2, v.depth = 32; });
    expectWins(ordinary(), slow);
    expectWins(with([](auto& v) { v.caveatRank = 1; }), slow);
}

TEST_F(VisualRanking, ACaveatOtherThanSlowDoesNotDecide)
{
    expectTie(ordinary(), with([](auto& v) { v.caveatRank = 1; }));
}

TEST_F(VisualRanking, TheDeeperVisualWins)
{
    expectWins(with([](auto& v) { v.depth = 32; }), ordinary());
}

TEST_F(VisualRanking, ADepthBufferBeatsNoneBeforeTheColours)
{
    expectWins(with([](auto& v) { v.redSize = 5; }), with([](auto& v) { v.depthSize = 0; }));
}

TEST_F(VisualRanking, ExactlyEightBitsOfEachColourWin)
{
    expectWins(ordinary(), with([](auto& v) { v.redSize = 10; }));
    expectWins(ordinary(), with([](auto& v) { v.redSize = 5; }));
    expectWins(ordinary(), with([](auto& v) { v.greenSize = 10; }));
    expectWins(ordinary(), with([](auto& v) { v.blueSize = 10; }));
}

TEST_F(VisualRanking, WithoutEightBitsTheLargerColourWins)
{
    expectWins(with([](auto& v) { v.redSize = 10; }), with([](auto& v) { v.redSize = 5; }));
    expectWins(with([](auto& v) { v.blueSize = 16; }), with([](auto& v) { v.blueSize = 10; }));
}

TEST_F(VisualRanking, RedDecidesBeforeGreenAndGreenBeforeBlue)
{
    expectWins(with([](auto& v) { v.greenSize = 5; }), with([](auto& v) { v.redSize = 5; }));
    expectWins(with([](auto& v) { v.blueSize = 5; }), with([](auto& v) { v.greenSize = 5; }));
}

TEST_F(VisualRanking, TheSmallerAlphaSizeWins)
{
    expectWins(ordinary(), with([](auto& v) { v.alphaSize = 8; }));
}

TEST_F(VisualRanking, WithTwentyFourDepthBitsAskedTwentyFourBeatThirtyTwoAndSixteen)
{
    const auto sized = [](int size) { return with([=](auto& v) { v.requestedDepthSize = 24, v.depthSize = size; }); };
    expectWins(sized(24), sized(32));
    expectWins(sized(24), sized(16));
    expectWins(sized(32), sized(48));
}

TEST_F(VisualRanking, MoreSamplesWinUpToTheNumberAskedFor)
{
    const auto sampled = [](int requested, int buffers, int samples) {
        return with([=](auto& v) { v.requestedSamples = requested, v.sampleBuffers = buffers, v.samples = samples; });
    };
    expectWins(sampled(4, 1, 4), sampled(4, 0, 0));
    expectWins(sampled(4, 1, 4), sampled(4, 1, 2));
    expectWins(sampled(4, 1, 4), sampled(4, 1, 8));
    expectWins(sampled(0, 0, 0), sampled(0, 1, 4));
}

TEST_F(VisualRanking, WithStereoAskedFewerSamplesWin)
{
    const auto sampled = [](int buffers, int samples) {
        return with([=](auto& v) { v.stereoMode = 2, v.sampleBuffers = buffers, v.samples = samples; });
    };
    expectWins(sampled(0, 0), sampled(1, 4));
    expectWins(sampled(1, 2), sampled(1, 4));
}

TEST_F(VisualRanking, TheNonStereoVisualWinsWhenAllBeforeTies)
{
    expectWins(ordinary(), with([](auto& v) { v.stereo = true; }));
}

TEST_F(VisualRanking, TheSmallerStencilWins)
{
    expectWins(ordinary(), with([](auto& v) { v.stencilSize = 8; }));
}

TEST_F(VisualRanking, AccumulationIsAsNearAsPossibleToWhatIsAskedFor)
{
    const auto accumulated = [](int VisualCandidate::*size, int bits) {
        return with([=](auto& v) { v.requestedAccumSize = 16, v.*size = bits; });
    };
    int VisualCandidate::*const sizes[] = {&VisualCandidate::accumRedSize, &VisualCandidate::accumGreenSize,
                                           &VisualCandidate::accumBlueSize, &VisualCandidate::accumAlphaSize};
    for (int VisualCandidate::*const size : sizes) {
        expectWins(accumulated(size, 16), accumulated(size, 0));
        expectWins(accumulated(size, 16), accumulated(size, 32));
    }
    expectWins(accumulated(sizes[0], 16), accumulated(sizes[1], 16));
}

TEST_F(VisualRanking, FewerAuxiliaryBuffersWin)
{
    expectWins(ordinary(), with([](auto& v) { v.auxBuffers = 4; }));
}

TEST_F(VisualRanking, OfTwoCriteriaThatDisagreeTheEarlierOneDecides)
{
    const Change best = [](auto& v) {
        v.sampleBuffers = 1, v.samples = 4;
        v.accumRedSize = v.accumGreenSize = v.accumBlueSize = v.accumAlphaSize = 16;
    };
    const std::vector<Change> flaws = {
        [](auto& v) { v.level = 1; },         [](auto& v) { v.rgba = false; },
        [](auto& v) { v.screen = 1; },        [](auto& v) { v.doubleBuffer = false; },
        [](auto& v) { v.caveatRank = 2; },    [](auto& v) { v.depth = 16; },
        [](auto& v) { v.depthSize = 0; },     [](auto& v) { v.redSize = 5; },
        [](auto& v) { v.greenSize = 5; },     [](auto& v) { v.blueSize = 5; },
        [](auto& v) { v.alphaSize = 8; },     [](auto& v) { v.depthSize = 16; },
        [](auto& v) { v.sampleBuffers = 0; }, [](auto& v) { v.samples = 2; },
        [](auto& v) { v.stereo = true; },     [](auto& v) { v.stencilSize = 8; },
        [](auto& v) { v.accumRedSize = 0; },  [](auto& v) { v.accumGreenSize = 0; },
        [](auto& v) { v.accumBlueSize = 0; }, [](auto& v) { v.accumAlphaSize = 0; },
        [](auto& v) { v.auxBuffers = 4; },
    };
    for (std::size_t earlier = 0; earlier < flaws.size(); ++earlier)
        for (std::size_t later = earlier + 1; later < flaws.size(); ++later) {
            SCOPED_TRACE(::testing::Message() << earlier << " and " << later);
            expectWins(with([&](auto& v) { best(v), flaws[later](v); }),
                       with([&](auto& v) { best(v), flaws[earlier](v); }));
        }
}

TEST_F(VisualRanking, AllRequestsAreTakenFromTheFirstArgument)
{
    const VisualCandidate many = with([](auto& v) { v.requestedSamples = 8, v.sampleBuffers = 1, v.samples = 8; });
    const VisualCandidate few = with([](auto& v) { v.requestedSamples = 4, v.sampleBuffers = 1, v.samples = 4; });
    EXPECT_EQ(CompareVisual(&many, &few), 1);
    EXPECT_EQ(CompareVisual(&few, &many), 1);
}

TEST_F(VisualRanking, SortingPutsThePreferredVisualLast)
{
    std::vector<VisualCandidate> candidates = {
        with([](auto& v) { v.visualId = 1, v.depthSize = 24; }),
        with([](auto& v) { v.visualId = 2, v.depthSize = 32; }),
        with([](auto& v) { v.visualId = 3, v.depthSize = 16; }),
        with([](auto& v) { v.visualId = 4, v.depthSize = 0; }),
    };
    std::qsort(candidates.data(), candidates.size(), sizeof(VisualCandidate), CompareVisual);
    EXPECT_EQ(candidates.back().visualId, 2);
    EXPECT_EQ(candidates.front().visualId, 4);
}
