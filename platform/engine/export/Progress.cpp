#include "engine/export/Progress.h"

#include "engine/core/Engine.h"
#include "engine/export/ExportFailure.h"

#include <algorithm>
#include <utility>

namespace velmora::engine {

Progress::Progress(std::string what, double& reached, double end, int steps)
    : m_work(std::move(what)), m_reached(reached), m_begin(reached), m_end(std::max(reached, end)), m_steps(steps)
{}

void Progress::step()
{
    ++m_stepsDone;
    m_reached = m_begin + (m_end - m_begin) * m_stepsDone / m_steps;
    stepWithin();
}

void Progress::stepWithin()
{
    if (!m_work.goOn(m_reached))
        throw ExportInterrupted();
    if (!isRunning())
        throw ExportFailure("The engine was stopped before the image was complete.");
}

} // namespace velmora::engine
