#include "integration/glarea/VisualRanking.h"

namespace velmora::sdk::integration {

int X_Screen = 0;

namespace {

using Candidate = VisualCandidate;

// What one criterion says: positive, a wins; negative, b wins; 0, it does not decide.
using Criterion = int (*)(const Candidate& a, const Candidate& b);

int larger(int a, int b)
{
    return (a > b) - (a < b);
}

int smaller(int a, int b)
{
    return larger(b, a);
}

int yes(bool a, bool b)
{
    return larger(a, b);
}

int no(bool a, bool b)
{
    return larger(b, a);
}

// As close to what is requested as can be: while that is not exceeded the larger, otherwise the smaller.
int nearest(int requested, int a, int b)
{
    return requested >= a && requested >= b ? larger(a, b) : smaller(a, b);
}

constexpr int PreferredColorSize = 8;

int colorSize(int a, int b)
{
    const int exact = yes(a == PreferredColorSize, b == PreferredColorSize);
    return exact != 0 ? exact : larger(a, b);
}

template <int Candidate::*Size>
int color(const Candidate& a, const Candidate& b)
{
    return colorSize(a.*Size, b.*Size);
}

template <int Candidate::*Size>
int accumulation(const Candidate& a, const Candidate& b)
{
    return nearest(a.requestedAccumSize, a.*Size, b.*Size);
}

int level(const Candidate& a, const Candidate& b)
{
    const int main = yes(a.level == 0, b.level == 0);
    return main != 0 ? main : larger(a.level, b.level);
}

int rgba(const Candidate& a, const Candidate& b)
{
    return yes(a.rgba, b.rgba);
}

int screen(const Candidate& a, const Candidate& b)
{
    if (a.screen == b.screen)
        return 0;
    return a.screen == X_Screen ? 1 : -1;
}

int requestedStereo(const Candidate& a, const Candidate& b)
{
    return a.stereoMode == 1 ? no(a.stereo, b.stereo) : 0;
}

int doubleBuffer(const Candidate& a, const Candidate& b)
{
    switch (a.doubleBufferMode) {
    case 1:
        return yes(a.doubleBuffer, b.doubleBuffer);
    case 0:
    case 2:
        return no(a.doubleBuffer, b.doubleBuffer);
    default:
        return 0;
    }
}

constexpr int SlowCaveat = 2;

int caveat(const Candidate& a, const Candidate& b)
{
    return no(a.caveatRank == SlowCaveat, b.caveatRank == SlowCaveat);
}

int visualDepth(const Candidate& a, const Candidate& b)
{
    return larger(a.depth, b.depth);
}

int hasDepthBuffer(const Candidate& a, const Candidate& b)
{
    return yes(a.depthSize != 0, b.depthSize != 0);
}

// The smaller alpha size wins; deliberate: nothing on the screen uses it.
int alpha(const Candidate& a, const Candidate& b)
{
    return smaller(a.alphaSize, b.alphaSize);
}

int depthBuffer(const Candidate& a, const Candidate& b)
{
    return nearest(a.requestedDepthSize, a.depthSize, b.depthSize);
}

int sampleBuffers(const Candidate& a, const Candidate& b)
{
    const bool wanted = a.stereoMode == 0 && a.requestedSamples != 0;
    return wanted ? larger(a.sampleBuffers, b.sampleBuffers) : smaller(a.sampleBuffers, b.sampleBuffers);
}

int samples(const Candidate& a, const Candidate& b)
{
    return a.stereoMode == 0 ? nearest(a.requestedSamples, a.samples, b.samples) : smaller(a.samples, b.samples);
}

int stereo(const Candidate& a, const Candidate& b)
{
    return no(a.stereo, b.stereo);
}

int stencil(const Candidate& a, const Candidate& b)
{
    return smaller(a.stencilSize, b.stencilSize);
}

int auxiliary(const Candidate& a, const Candidate& b)
{
    return smaller(a.auxBuffers, b.auxBuffers);
}

// The first criterion that decides, decides.
const Criterion Criteria[] = {
    level,
    rgba,
    screen,
    requestedStereo,
    doubleBuffer,
    caveat,
    visualDepth,
    hasDepthBuffer,
    color<&Candidate::redSize>,
    color<&Candidate::greenSize>,
    color<&Candidate::blueSize>,
    alpha,
    depthBuffer,
    sampleBuffers,
    samples,
    stereo,
    stencil,
    accumulation<&Candidate::accumRedSize>,
    accumulation<&Candidate::accumGreenSize>,
    accumulation<&Candidate::accumBlueSize>,
    accumulation<&Candidate::accumAlphaSize>,
    auxiliary,
};

} // namespace

int CompareVisual(const void* a, const void* b)
{
    const Candidate& left = *static_cast<const Candidate*>(a);
    const Candidate& right = *static_cast<const Candidate*>(b);
    for (const Criterion criterion : Criteria) {
        const int preference = criterion(left, right);
        if (preference != 0)
            return preference > 0 ? 1 : 0;
    }
    return 0;
}

} // namespace velmora::sdk::integration
