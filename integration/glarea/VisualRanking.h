#pragma once

namespace velmora {
namespace sdk {
namespace integration {

/// What the ranking knows of one TrueColor visual. Sizes are in bits.
struct VisualCandidate {
    int visualId = 0;
    int screen = 0;
    int depth = 0; ///< of the X visual

    // What is asked for; the same in every candidate of one choice.
    int doubleBufferMode = 1; ///< 1: prefer double-buffered, 0 or 2: prefer single-buffered
    int stereoMode = 0;       ///< 0: stereo not requested
    int requestedDepthSize = 32;
    int requestedSamples = 4;
    int requestedAccumSize = 16;

    // What the visual offers.
    int level = 0;
    int bufferSize = 0; ///< known, never compared
    bool rgba = false;
    bool doubleBuffer = false;
    bool stereo = false;
    int redSize = 0;
    int greenSize = 0;
    int blueSize = 0;
    int alphaSize = 0;
    int depthSize = 0;
    int stencilSize = 0;
    int accumRedSize = 0;
    int accumGreenSize = 0;
    int accumBlueSize = 0;
    int accumAlphaSize = 0;
    int auxBuffers = 0;
    int sampleBuffers = 0;
    int samples = 0;
    int caveatRank = 0; ///< 0 none, 1 other, 2 slow
};

/// The screen whose visuals are preferred; set before sorting, read by CompareVisual.
extern int X_Screen;

/// A `qsort` comparator over VisualCandidate records: 1 when `a` is preferred to `b`, else 0, so that
/// the preferred visual is sorted to the end. It never returns a negative value; deliberate: the sort
/// only needs to know whether `a` goes after `b`. Everything requested is taken from `a`.
int CompareVisual(const void* a, const void* b);

} // namespace integration
} // namespace sdk
} // namespace velmora
