// Reads of the engine's settings that fail and leave something behind, which its maker does not promise
// to avoid.

#include "integration/StyleSettings.h"
#include "integration/printing/PaperStyle.h"

#include "engine/api/VelArgList.h"
#include "engine/api/VelStyle.h"
#include "testing/EngineProbe.h"
#include "toolbox/StyleValue.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

using namespace velmora::sdk::integration;
using velmora::testing::EngineProbe;
using velmora::toolbox::StyleValue;

namespace {

template <typename Function>
Function behind(Function, const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

template <typename T>
int spoilIfFailed(int code, T* value)
{
    if (code != 0)
        *value = T(77);
    return code;
}

} // namespace

#define IN_PLACE_OF_THE_ENGINES extern "C" __attribute__((visibility("default")))

IN_PLACE_OF_THE_ENGINES int VelStyleGetBool(const VelArgList* arguments, bool* value)
{
    return spoilIfFailed(behind(&::VelStyleGetBool, "VelStyleGetBool")(arguments, value), value);
}

IN_PLACE_OF_THE_ENGINES int VelStyleGetDouble(const VelArgList* arguments, double* value)
{
    return spoilIfFailed(behind(&::VelStyleGetDouble, "VelStyleGetDouble")(arguments, value), value);
}

IN_PLACE_OF_THE_ENGINES int VelStyleGetLowLevel(const VelArgList* arguments)
{
    long* value = nullptr;
    const int code = behind(&::VelStyleGetLowLevel, "VelStyleGetLowLevel")(arguments);
    return VelArgListGetArbParamPtr(arguments, "IValue", &value) && value ? spoilIfFailed(code, value) : code;
}

namespace {

class FailedReads : public ::testing::Test {
protected:
    void SetUp() override { EngineProbe::reset(); }
    void TearDown() override { EngineProbe::reset(); }
};

} // namespace

TEST_F(FailedReads, OfAWholeNumberMeanTheDefault)
{
    EngineProbe::failStyleReads("Paper/PaperSize");
    EXPECT_EQ(readStyleInteger(StyleValue("Paper"), "PaperSize", 5), 5);
    EXPECT_EQ(readStyleInteger(StyleValue("Paper"), "PaperSize"), 0);
    EXPECT_FALSE(readKernelPaperIndex().has_value());
}

TEST_F(FailedReads, OfALengthMeanNone)
{
    EngineProbe::failStyleReads("GlobalPaper/PaperSizeInfo/A4/Width");
    EXPECT_EQ(readKernelPaperLength(2, "Width"), 0.0);
    EXPECT_NE(readKernelPaperLength(2, "Height"), 0.0);
}

TEST_F(FailedReads, OfTheOrientationMeanLandscape)
{
    writeKernelOrientPortrait(true);
    ASSERT_TRUE(readKernelOrientPortrait());
    EngineProbe::failStyleReads("Paper/OrientPortrait");
    EXPECT_FALSE(readKernelOrientPortrait());
}
