// The printer bridge against engine settings that a test makes up read by read, to show what
// happens when the orientation changes between two reads of it.

#include "integration/printing/PaperStyle.h"
#include "integration/printing/PrintingUtil.h"
#include "tests/printing/RecordingPrinter.h"

#include "testing/EngineProbe.h"

#include <deque>
#include <gtest/gtest.h>
#include <string>

using velmora::test::RecordingPrinter;
using velmora::testing::EngineProbe;

namespace {

std::deque<bool> orientations;

std::string paperAfter(std::deque<bool> portraitReads)
{
    orientations = std::move(portraitReads);
    RecordingPrinter printer;
    EngineProbe::startLog();
    EngineProbe::clearLog();
    velmora::sdk::integration::UpdatePrinterFromKernel(printer);
    const std::string paper = EngineProbe::log().back();
    EngineProbe::reset();
    return paper;
}

} // namespace

namespace velmora::sdk::integration {

const char* kernelPaperName(int)
{
    return "A4";
}

bool readKernelOrientPortrait()
{
    const bool portrait = orientations.front();
    orientations.pop_front();
    return portrait;
}

int writeKernelOrientPortrait(bool)
{
    return 0;
}

std::optional<int> readKernelPaperIndex()
{
    return 0;
}

int writeKernelPaperIndex(int)
{
    return 0;
}

double readKernelPaperLength(int, const char* length)
{
    return std::string(length) == "Width" ? 100 / 25.4 : 150 / 25.4;
}

int writeKernelCustomPaperLength(const char*, double)
{
    return 0;
}

} // namespace velmora::sdk::integration

TEST(ReadSequence, ASteadyOrientationExchangesNothing)
{
    EXPECT_EQ("setCustomPaper 100x150", paperAfter({true, true, true}));
    EXPECT_EQ("setCustomPaper 100x150", paperAfter({false, false, false}));
    EXPECT_TRUE(orientations.empty());
}

TEST(ReadSequence, AnOrientationThatChangesBetweenTheReadsExchangesTheSidesOnce)
{
    EXPECT_EQ("setCustomPaper 150x100", paperAfter({true, true, false}));
    EXPECT_EQ("setCustomPaper 150x100", paperAfter({false, false, true}));
}

TEST(ReadSequence, TheOrientationOfThePrinterIsAReadOfItsOwn)
{
    EXPECT_EQ("setCustomPaper 100x150", paperAfter({false, true, true}));
    EXPECT_EQ("setCustomPaper 100x150", paperAfter({true, false, false}));
}
