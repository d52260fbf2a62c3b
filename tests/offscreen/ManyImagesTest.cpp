// What a process holds after very many images.

#include "integration/services/OffscreenImageService.h"
#include "interfaces/OffscreenImageInterface.h"
#include "tests/offscreen/EngineStandIn.h"
#include "tests/offscreen/ImageKinds.h"
#include "tests/offscreen/TestPicture.h"
#include "tests/offscreen/ToolkitLimits.h"

#include <QDir>
#include <fstream>
#include <gtest/gtest.h>

#include <malloc.h>
#include <unistd.h>

namespace velmora::test {
namespace {

using namespace sdk::integration;

#ifdef __SANITIZE_ADDRESS__
constexpr bool IsSanitized = true;
#else
constexpr bool IsSanitized = false;
#endif

class ManyImages : public ::testing::TestWithParam<ImageKind> {
protected:
    void SetUp() override
    {
        const char* const reason = GetParam() == ImageKind::Pixmap ? whyNoPixmapsAreDrawn() : nullptr;
        if (reason)
            GTEST_SKIP() << reason;
    }

    void makeDrawAndRead(int count)
    {
        services::OffscreenImageService service;
        for (int i = 0; i < count; ++i) {
            auto image = createImage(GetParam(), 60, 40);
            renderImage(GetParam(), *image, [](const GLTable& gl, int w, int h) { drawTiles(gl, w, h); });
            unsigned char plane[60];
            ASSERT_TRUE(service.imageGetRGBRow(image.get(), 0, plane, plane, plane)) << i;
            service.imageDestroy(image.release());
        }
    }

    static int descriptors() { return QDir("/proc/self/fd").entryList(QDir::NoDotAndDotDot | QDir::AllEntries).size(); }

    static double megabytes()
    {
        malloc_trim(0);
        long size = 0;
        long resident = 0;
        std::ifstream("/proc/self/statm") >> size >> resident;
        return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
    }
};

INSTANTIATE_TEST_SUITE_P(Of, ManyImages, ::testing::ValuesIn(everyKind()),
                         [](const auto& kind) { return nameOf(kind.param); });

TEST_P(ManyImages, LeaveNeitherDescriptorsNorMemoryBehind)
{
    makeDrawAndRead(100);
    const int filesBefore = descriptors();
    const double memoryBefore = megabytes();
    makeDrawAndRead(1000);
    EXPECT_EQ(descriptors(), filesBefore);
    if (IsSanitized)
        return;                         // keeps memory that was freed
    constexpr double MostMegabytes = 4; // a leaked image of any kind is a thousand times its own 10 KB
    EXPECT_LE(megabytes() - memoryBefore, MostMegabytes);
}

} // namespace
} // namespace velmora::test
