#pragma once

#include "engine/core/SlicedWork.h"

#include <string>

namespace velmora::engine {

/// Equal steps of an export, done in slices, that bring its progress from where it is to a given
/// fraction of the whole.
class Progress {
public:
    /// `reached` is the progress of the export; it moves with the steps and never back.
    Progress(std::string what, double& reached, double end, int steps);

    /// After each step. Throws ExportInterrupted, or ExportFailure when the engine was stopped.
    void step();
    /// The same in the middle of a step: the progress stays.
    void stepWithin();

private:
    SlicedWork m_work;
    double& m_reached;
    double m_begin;
    double m_end;
    int m_steps;
    int m_stepsDone = 0;
};

} // namespace velmora::engine
