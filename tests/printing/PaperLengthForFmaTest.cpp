// The lengths of paper where the processor could multiply and add in one step, without rounding between.
#include "integration/printing/PaperLength.h"

#include <cmath>
#include <gtest/gtest.h>

using velmora::sdk::integration::wholeMillimetersFromInches;

namespace {

bool processorCanFuse()
{
#if defined(__x86_64__) || defined(__i386__)
    return __builtin_cpu_supports("fma") != 0;
#else
    return true;
#endif
}

class PaperLengthForFma : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!processorCanFuse())
            GTEST_SKIP() << "This processor has no instruction that multiplies and adds in one step.";
    }
};

// Kept in memory between the steps, so that no compiler joins two of them.
qint64 millimetersStepByStep(double inches)
{
    volatile double centimeters = inches * 2.54;
    volatile double millimeters = centimeters * 10.0;
    volatile double raised = millimeters + 0.499;
    return static_cast<qint64>(raised);
}

qint64 millimetersFused(double inches)
{
    volatile double centimeters = inches * 2.54;
    return static_cast<qint64>(std::fma(centimeters, 10.0, 0.499));
}

} // namespace

TEST_F(PaperLengthForFma, ASizeThatWouldFallToTheOtherSideDoesNot)
{
    const struct {
        double inches;
        qint64 millimeters;
        qint64 fused;
    } sizes[] = {{1.594527559055118, 41, 40}, {8.4449212598425198, 214, 215}, {12.106338582677164, 308, 307}};
    for (const auto& size : sizes) {
        ASSERT_EQ(size.fused, millimetersFused(size.inches)) << "this size notices nothing";
        EXPECT_EQ(size.millimeters, wholeMillimetersFromInches(size.inches));
    }
}

TEST_F(PaperLengthForFma, EverySizeOnABoundaryIsRoundedStepByStep)
{
    int noticing = 0;
    int moved = 0;
    for (int millimeters = 0; millimeters < 200000; ++millimeters) {
        const double inches = (millimeters + 0.501) / 25.4;
        noticing += millimetersFused(inches) != millimetersStepByStep(inches);
        moved += wholeMillimetersFromInches(inches) != millimetersStepByStep(inches);
    }
    EXPECT_GT(noticing, 5000);
    EXPECT_EQ(0, moved);
}
