#pragma once

#include "engine/core/Checkpoint.h"

#include <chrono>
#include <string>

namespace velmora::engine {

/// Work that is done in slices of at most 5 milliseconds. Between two of them it gives the application its
/// turn, through the callback that the binding registered; without one it just goes on.
///
/// Inside a BusyScope it also reports how far it is, and the application can stop it. Without one, what
/// comes in a turn comes as if the engine had nothing to do.
class SlicedWork : public Checkpoint {
public:
    /// `what` is done, in a few words for a person.
    explicit SlicedWork(std::string what);
    virtual ~SlicedWork() = default;
    SlicedWork(const SlicedWork&) = delete;
    SlicedWork& operator=(const SlicedWork&) = delete;

    bool goOn(double fraction) final;
    /// The application asked to stop.
    bool wasStopped() const { return m_stopped; }

protected:
    /// At the end of a slice: does what has been asked for and not been done yet, so that it counts
    /// as part of this slice.
    virtual void completeSlice() {}
    /// Around the application's turn: keeps what the work needs as it is, and brings it back; false
    /// when that is impossible or the work has lost its purpose.
    virtual void beforeTurn() {}
    virtual bool afterTurn() { return true; }

    /// Gives the application its turn now; whether the work is to go on.
    bool giveTurn();

private:
    using Clock = std::chrono::steady_clock;
    void delay() const;
    void endSlice();

    std::string m_what;
    Clock::time_point m_sliceStart;
    Clock::duration m_budget; ///< after which a slice is ended
    bool m_stopped = false;
    bool m_pointless = false;
};

} // namespace velmora::engine
