#pragma once

namespace velmora::engine {

/// What long work asks between two portions of it, so that it is done in slices.
///
/// Portions are small (well under a millisecond) and asking is cheap; the implementation decides
/// when a slice is over and the application gets its turn. During that turn anything may be called,
/// so the work holds what it works on by shared ownership. Work that draws finds its OpenGL
/// context, framebuffer, viewport, matrices and other state as they were.
class Checkpoint {
public:
    /// `fraction` of the work is done, 0 to 1. False: stop now and leave things as they are.
    virtual bool goOn(double fraction) = 0;

protected:
    ~Checkpoint() = default;
};

/// For work that is short enough to be done, or must be done, in one go.
class NoCheckpoint final : public Checkpoint {
public:
    bool goOn(double) override { return true; }
};

} // namespace velmora::engine
