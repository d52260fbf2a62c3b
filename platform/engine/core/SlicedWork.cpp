#include "engine/core/SlicedWork.h"

#include "engine/core/Busy.h"
#include "engine/core/Callbacks.h"
#include "engine/style/StyleTree.h"

#include <algorithm>
#include <utility>

namespace velmora::engine {
namespace {

// A slice must not last longer than 5 milliseconds. A portion of work is well under one, so a
// slice that is ended at 4 has room for the portion that was under way.
constexpr std::chrono::microseconds SliceLength{4000};
constexpr std::chrono::microseconds LeastBudget{250};

} // namespace

SlicedWork::SlicedWork(std::string what) : m_what(std::move(what)), m_sliceStart(Clock::now()), m_budget(SliceLength) {}

bool SlicedWork::goOn(double fraction)
{
    if (m_stopped || m_pointless)
        return false;
    if (isBusy())
        setWorkProgress(fraction);
    delay();
    if (Clock::now() - m_sliceStart < m_budget)
        return true;
    endSlice();
    if (isBusy())
        callbacks().progress(m_what.c_str(), fraction);
    return giveTurn();
}

// Real work, not sleep: the point is to see how the application fares while the processor is taken.
void SlicedWork::delay() const
{
    const long wanted = std::min(style::lookupInt("Interface/DrawingDelay"), long(SliceLength.count()));
    if (wanted <= 0)
        return;
    const Clock::time_point end = std::min(Clock::now() + std::chrono::microseconds(wanted), m_sliceStart + m_budget);
    while (Clock::now() < end) {
    }
}

// OpenGL only collects what it is asked for; how long it really takes shows at the end of a slice,
// and what a slice may ask for follows from that.
void SlicedWork::endSlice()
{
    completeSlice();
    const auto lasted = std::chrono::duration<double>(Clock::now() - m_sliceStart);
    const auto fitting =
        std::chrono::duration<double>(m_budget) * (std::chrono::duration<double>(SliceLength) / lasted);
    m_budget = std::clamp(std::chrono::duration_cast<Clock::duration>(fitting), Clock::duration(LeastBudget),
                          Clock::duration(SliceLength));
}

bool SlicedWork::giveTurn()
{
    const double progress = workProgress();
    beforeTurn();
    try {
        m_stopped = callbacks().processWhileBusy() == 1;
    } catch (...) {
        // The work unwinds now, and finds what it works with only after this.
        m_pointless = !afterTurn();
        throw;
    }
    m_pointless = !afterTurn();
    setWorkProgress(progress);
    m_sliceStart = Clock::now();
    return !m_stopped && !m_pointless;
}

} // namespace velmora::engine
