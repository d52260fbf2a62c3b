// VTK's contents in a drawing area and in what the engine exports.

#include "engine/VelUtil.h"
#include "integration/Manager.h"
#include "integration/glarea/GLDrawArea.h"
#include "integration/offscreen/OffscreenImageChoice.h"
#include "integration/services/OffscreenImageService.h"
#include "interfaces/EngineEnumerations.h"
#include "interfaces/OffscreenImageInterface.h"
#include "tests/offscreen/ImageSetting.h"
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"
#include "tests/viewer/TempFolder.h"
#include "tests/vtk/ModelFiles.h"
#include "tests/vtk/ModelPicture.h"

#include <gmock/gmock.h>
#include <memory>

namespace velmora::test::model {
namespace {

using namespace sdk::integration;
using ::testing::HasSubstr;

constexpr QRgb White = 0xffffffff;

class ModelOnScreen : public ::testing::Test {
protected:
    ModelOnScreen()
    {
        static char program[] = "vtk";
        char* arguments[] = {program, nullptr};
        m_manager.init(1, arguments, std::string(), program);
        m_manager.start();
        static const bool isLoaded = [] {
            content::loadModule(VELMORA_VTK_MODULE);
            return true;
        }();
        EXPECT_TRUE(isLoaded);
        openArea();
    }
    ~ModelOnScreen() override
    {
        m_area.reset();
        m_manager.stop();
    }

    void openArea()
    {
        m_area = std::make_unique<GLDrawArea>();
        m_area->setFixedSize(240, 160);
        m_area->setPageManager(m_manager.getPageManager());
        ASSERT_TRUE(showAndWait(*m_area));
    }

    static void load(const std::string& file)
    {
        ASSERT_TRUE(VelUtilDataLoad(file.c_str())) << VelUtilLastErrorMessage();
    }

    QImage onScreen()
    {
        EXPECT_TRUE(VelUtilWorkFinish()) << VelUtilLastErrorMessage();
        processPending();
        EXPECT_TRUE(VelUtilPageIsComplete()) << VelUtilLastErrorMessage();
        return grabFromScreen(*m_area);
    }

    static QImage inImage(ImageKind kind)
    {
        services::OffscreenImageService service;
        auto image = createImage(kind, 240, 160);
        EXPECT_TRUE(image->render(ExportRegion_WorkArea)) << VelUtilLastErrorMessage();
        const QImage pixels = readRows(service, *image);
        service.imageDestroy(image.release());
        return pixels;
    }

    Manager& m_manager = Manager::getInstance();
    std::unique_ptr<GLDrawArea> m_area;
};

TEST_F(ModelOnScreen, HasTheSamePixelsInEveryKindOfImageButTheSoftwareLibrarys)
{
    load(write("waves.vtp", waves(60)));
    const QImage first = inImage(ImageKind::Egl);
    EXPECT_LT(countColor(first, White), 240 * 160 * 9 / 10);
    for (const ImageKind kind : kindsOfLibGL())
        EXPECT_LE(differingFraction(inImage(kind), first, 2), 0.001) << nameOf(kind);
}

TEST_F(ModelOnScreen, IsTheSamePictureAsInImagesWithTheScreensSamples)
{
    load(write("waves.vtp", waves(60)));
    const QImage screen = onScreen();
    EXPECT_LT(countColor(screen, White), 240 * 160 * 9 / 10);
    const ImageSetting samples("MaxMultiSamples", 4);
    EXPECT_LE(differingFraction(inImage(ImageKind::Egl), screen, 2), 0.001);
    EXPECT_LE(differingFraction(inImage(kindsOfLibGL().front()), screen, 64), 0.004);
}

TEST_F(ModelOnScreen, FollowsTheViewAndAnotherAreaThatShowsThePage)
{
    load(write("waves.vtp", waves(200)));
    const QImage first = onScreen();
    VelUtilViewRotate(40, 10);
    const QImage turned = onScreen();
    EXPECT_GT(differingFraction(turned, first, 16), 0.05);
    m_area.reset();
    openArea();
    EXPECT_LE(differingFraction(onScreen(), turned, 2), 0.001);
    load(write("square.stl", squareInStl()));
    EXPECT_GT(differingFraction(onScreen(), turned, 16), 0.05);
}

TEST_F(ModelOnScreen, IsExportedWithoutItsGround)
{
    load(write("square.ply", squareInPly()));
    VelUtilViewFrom(0);
    const TempFolder folder;
    const QString file = folder.file("square.png");
    VelExportImageOptions options = {240, 160, 1, ExportRegion_CurrentFrame, ImageRenderingStrategy_Hardware, 0};
    options.transparent = 1;
    ASSERT_TRUE(VelUtilExportImage(file.toUtf8().constData(), &options)) << VelUtilLastErrorMessage();
    const QImage picture(file);
    EXPECT_EQ(qAlpha(picture.pixel(3, 3)), 0);
    EXPECT_EQ(qAlpha(picture.pixel(120, 80)), 255);
}

TEST_F(ModelOnScreen, IsNotExportedWithTheSoftwareLibraryWhichTheLastErrorTells)
{
    if (!intern::hasOSMesa())
        GTEST_SKIP() << "There is no software library.";
    load(write("square.ply", squareInPly()));
    const TempFolder folder;
    const VelExportImageOptions options = {240, 160, 1, ExportRegion_CurrentFrame, ImageRenderingStrategy_Software, 0};
    EXPECT_FALSE(VelUtilExportImage(folder.file("square.png").toUtf8().constData(), &options));
    EXPECT_THAT(VelUtilLastErrorMessage(), HasSubstr("VTK draws with the OpenGL of the display or of EGL"));
}

TEST_F(ModelOnScreen, TellsTheValueUnderThePointer)
{
    load(write("square.vtp", square()));
    onScreen();
    ASSERT_TRUE(VelUtilViewFrom(0));
    EXPECT_THAT(VelUtilViewValueAt(96, 80, nullptr, nullptr), HasSubstr("x = 0.5, y = 0.5, z = 0, temperature = "));
}

} // namespace
} // namespace velmora::test::model
