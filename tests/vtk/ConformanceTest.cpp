// What the conformance program says of VTK's contents.
#include "tests/vtk/ModelFiles.h"

#include <QProcess>
#include <QStringList>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora::test::model {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

TEST(ConformanceOfVtk, AModelKeepsEveryPromiseWhereItIsDrawnAndSaysWhyNotElsewhere)
{
    constexpr int LongEnough = 300000; // milliseconds, also under the sanitizers
    QProcess process;
    process.start(QString::fromLatin1(VELMORA_CONFORMANCE_PROGRAM),
                  QStringList() << "--content" << VELMORA_VTK_MODULE << write("waves.vtp", waves(90)).c_str());
    ASSERT_TRUE(process.waitForFinished(LongEnough));
    const std::string output = process.readAllStandardOutput().constData();
    EXPECT_EQ(process.exitCode(), 0) << output << process.readAllStandardError().constData();
    EXPECT_THAT(output, Not(HasSubstr("BROKEN")));
    for (const char* const where : {"drawing area", "pixel buffer", "EGL image"})
        EXPECT_THAT(output, HasSubstr(std::string("kept    ") + where)) << where;
    EXPECT_THAT(output, HasSubstr("screen and off"));
}

} // namespace
} // namespace velmora::test::model
