#pragma once

#include "engine/VelEng.h"
#include "testing/EngineProbe.h"
#include "tests/printing/KernelPaper.h"
#include "tests/printing/RecordingPrinter.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace velmora::test {

/// A started engine with its default papers, and a printer whose calls can be seen.
class PrintingTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        testing::EngineProbe::reset();
        VelEngStart("", "test_printing");
    }
    void TearDown() override
    {
        testing::EngineProbe::reset();
        VelEngStop();
    }

    /// What the function does, call by call.
    static std::vector<std::string> logOf(void (*function)(QPrinter&), QPrinter& printer)
    {
        testing::EngineProbe::startLog();
        testing::EngineProbe::clearLog();
        function(printer);
        return testing::EngineProbe::log();
    }

    RecordingPrinter m_printer;
};

} // namespace velmora::test
