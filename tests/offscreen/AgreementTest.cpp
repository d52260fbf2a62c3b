// One and the same plot of the engine on the screen and in every kind of image, against each other and against pictures
// that a person has looked at. How to renew those is told in reference/README.md.

#include "engine/VelUtil.h"
#include "integration/Manager.h"
#include "integration/glarea/GLDrawArea.h"
#include "integration/services/OffscreenImageService.h"
#include "interfaces/OffscreenImageInterface.h"
#include "tests/offscreen/ImageKinds.h"
#include "tests/offscreen/ImageSetting.h"
#include "tests/offscreen/ToolkitLimits.h"
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"
#include "tests/viewer/TempFolder.h"

#include <QDir>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <ostream>
#include <string>

namespace velmora::test {
namespace {

using namespace sdk::integration;

constexpr int Width = 220;
constexpr int Height = 160;
constexpr const char* RenewVariable = "VELMORA_RENEW_REFERENCES";

/// How unlike two pictures may be: a pixel differs when any of its channels does so by more than
/// `perChannel` of 255, and at most that share of the pixels may.
struct Likeness {
    int perChannel;
    double share;
};

/// The same driver draws without smoothing, or with the same samples.
constexpr Likeness Alike{2, 0.001};
/// Another version of the driver or of the font may round otherwise.
constexpr Likeness LikeReference{8, 0.005};
/// The screen smooths edges, which an image without samples does not.
constexpr Likeness ButForEdges{64, 0.004};
constexpr Likeness ButForSmoothing{32, 0.015};

struct Plot {
    const char* name;
    const char* data;
};

std::ostream& operator<<(std::ostream& out, const Plot& plot)
{
    return out << plot.name;
}

class Agreement : public ::testing::TestWithParam<Plot> {
protected:
    Agreement()
    {
        static char program[] = "agreement";
        char* arguments[] = {program, nullptr};
        m_manager.init(1, arguments, std::string(), program);
        m_manager.start();
        m_area = std::make_unique<GLDrawArea>();
        m_area->setFixedSize(Width, Height);
        m_area->setPageManager(m_manager.getPageManager());
        EXPECT_TRUE(showAndWait(*m_area));
        EXPECT_TRUE(VelUtilDataLoad((std::string(SAMPLE_DATA "/") + GetParam().data).c_str()));
    }
    ~Agreement() override
    {
        m_area.reset();
        m_manager.stop();
    }

    QImage onScreen()
    {
        const auto complete = [] { return !VelUtilIsBusy() && VelUtilPageIsComplete(); };
        EXPECT_TRUE(waitUntil(complete));
        processPending();
        EXPECT_TRUE(complete());
        return grabFromScreen(*m_area);
    }

    QImage inImage(ImageKind kind)
    {
        auto image = createImage(kind, Width, Height);
        EXPECT_TRUE(image->render(ExportRegion_WorkArea)) << VelUtilLastErrorMessage();
        const QImage pixels = readRows(m_service, *image);
        m_service.imageDestroy(image.release());
        return pixels;
    }

    static QString referenceFile() { return QString(REFERENCE_PICTURES "/%1.png").arg(GetParam().name); }

    static QImage reference()
    {
        const QImage picture(referenceFile());
        EXPECT_FALSE(picture.isNull()) << referenceFile().toStdString() << " cannot be read.";
        return picture.convertToFormat(QImage::Format_RGB32);
    }

    static long pixels(double share) { return std::lround(share * Width * Height); }

    /// What differs is kept, to be looked at.
    static void expectLike(const QImage& picture, const QImage& wanted, const Likeness& likeness, const char* what)
    {
        const double share = differingFraction(picture, wanted, likeness.perChannel);
        if (share <= likeness.share)
            return;
        const QString file = QDir::tempPath() + QString("/agreement-%1-%2.png").arg(GetParam().name, what);
        picture.save(file);
        ADD_FAILURE() << what << ": " << pixels(share) << " pixels differ by more than " << likeness.perChannel
                      << ", allowed are " << pixels(likeness.share) << ". See " << file.toStdString() << ".";
    }

    Manager& m_manager = Manager::getInstance();
    std::unique_ptr<GLDrawArea> m_area;
    services::OffscreenImageService m_service;
};

INSTANTIATE_TEST_SUITE_P(OfA, Agreement,
                         ::testing::Values(Plot{"grid", "volcanic_island.asc"}, Plot{"table", "weather_station.csv"}),
                         [](const auto& plot) { return std::string(plot.param.name); });

TEST_P(Agreement, EveryKindOfImageIsTheReferencePicture)
{
    const QImage software = inImage(kindsWithoutDisplay().back());
    if (std::getenv(RenewVariable)) {
        ASSERT_TRUE(software.save(referenceFile()));
        GTEST_SKIP() << referenceFile().toStdString() << " is renewed. Look at it.";
    }
    const QImage wanted = reference();
    for (const ImageKind kind : drawnKinds())
        expectLike(inImage(kind), wanted, LikeReference, nameOf(kind).c_str());
}

TEST_P(Agreement, AnExportedFileIsTheReferencePicture)
{
    const TempFolder folder;
    for (const auto strategy : {ImageRenderingStrategy_Hardware, ImageRenderingStrategy_Software}) {
        const QString file = folder.file("export.png");
        const VelExportImageOptions options = {Width, Height, 1, ExportRegion_WorkArea, strategy, 0};
        ASSERT_TRUE(VelUtilExportImage(file.toUtf8().constData(), &options)) << VelUtilLastErrorMessage();
        expectLike(QImage(file), reference(), LikeReference, "export");
    }
}

TEST_P(Agreement, TheScreenShowsTheReferencePictureWithSmootherEdges)
{
    const QImage screen = onScreen();
    expectLike(screen, reference(), ButForEdges, "screen");
    expectLike(screen, reference(), ButForSmoothing, "screen");
}

TEST_P(Agreement, EveryKindOfImageHasTheSamePixels)
{
    const QImage first = inImage(drawnKinds().front());
    for (const ImageKind kind : drawnKinds())
        expectLike(inImage(kind), first, Alike, nameOf(kind).c_str());
}

TEST_P(Agreement, AnImageWithTheScreensSamplesHasTheScreensPixels)
{
    const QImage screen = onScreen();
    const ImageSetting samples("MaxMultiSamples", 4);
    for (const ImageKind kind : {ImageKind::PixelBuffer, ImageKind::Egl}) {
        // The window system draws upside down, so that its samples lie mirrored.
        const bool isMirrored = kind == ImageKind::PixelBuffer && pixelBuffersAreOfTheWindowSystem();
        expectLike(inImage(kind), screen, isMirrored ? ButForEdges : Alike, (nameOf(kind) + "-with-samples").c_str());
    }
}

} // namespace
} // namespace velmora::test
