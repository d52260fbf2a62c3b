#include "integration/services/OffscreenImageService.h"
#include "exception/ExceptionBase.h"
#include "integration/offscreen/ExportableImageInterface.h"
#include "integration/offscreen/OffscreenImageChoice.h"
#include "integration/offscreen/OffscreenImageEgl.h"
#include "integration/offscreen/OffscreenImageMesa.h"
#include "integration/offscreen/OffscreenImagePBuffer.h"
#include "integration/offscreen/OffscreenImagePixmap.h"
#include "tests/offscreen/AllocationCount.h"
#include "tests/offscreen/ImageSetting.h"
#include "tests/offscreen/TestPicture.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

namespace velmora::test {
namespace {

using namespace sdk::integration;

/// An image whose pixels the test says.
class KnownImage : public virtual OffscreenImageInterface, public virtual intern::ExportableImageInterface {
public:
    explicit KnownImage(const QImage& known, bool* destroyed = nullptr) : pixels(known), m_destroyed(destroyed) {}
    ~KnownImage() override
    {
        if (m_destroyed)
            *m_destroyed = true;
    }

    bool render(ExportRegion_e) override { return true; }
    GLContextInterface& getGLContext() override { throw std::logic_error("nobody asked for"); }
    int width() const override { return pixels.width(); }
    int height() const override { return pixels.height(); }
    QImage toImage() override
    {
        ++readBacks;
        return pixels;
    }

    QImage pixels;
    int readBacks = 0;

private:
    bool* m_destroyed;
};

/// An image that cannot be exported.
class OpaqueImage : public virtual OffscreenImageInterface {
public:
    bool render(ExportRegion_e) override { return true; }
    GLContextInterface& getGLContext() override { throw std::logic_error("nobody asked for"); }
    int width() const override { return 1; }
    int height() const override { return 1; }
};

struct Row {
    explicit Row(int width)
        : red(static_cast<std::size_t>(width)), green(static_cast<std::size_t>(width)),
          blue(static_cast<std::size_t>(width))
    {}
    bool read(services::OffscreenImageService& service, OffscreenImageInterface* image, int row)
    {
        return service.imageGetRGBRow(image, row, red.data(), green.data(), blue.data());
    }
    QRgb at(std::size_t x) const { return qRgb(red[x], green[x], blue[x]); }

    std::vector<unsigned char> red, green, blue;
};

bool yes()
{
    return true;
}

bool no()
{
    return false;
}

template <typename Image>
bool isA(const std::unique_ptr<OffscreenImageInterface>& image)
{
    return dynamic_cast<Image*>(image.get()) != nullptr;
}

std::unique_ptr<OffscreenImageInterface> hardwareImage(intern::ImageSurroundings surroundings, int width = 16)
{
    return intern::chooseOffscreenImage(width, 16, ImageRenderingStrategy_Hardware, surroundings);
}

TEST(OffscreenImageService, ThePreferredHardwareImageIsAPixelBuffer)
{
    EXPECT_TRUE(isA<intern::OffscreenImagePBuffer>(hardwareImage({yes, yes})));
    EXPECT_TRUE(isA<intern::OffscreenImagePBuffer>(hardwareImage({yes, no})));
}

TEST(OffscreenImageService, WithoutPixelBuffersAGuiClientGetsAHiddenWidget)
{
    EXPECT_TRUE(isA<intern::OffscreenImagePixmap>(hardwareImage({no, yes})));
}

TEST(OffscreenImageService, WithoutAValidPixelBufferAGuiClientGetsAHiddenWidget)
{
    EXPECT_TRUE(isA<intern::OffscreenImagePixmap>(hardwareImage({yes, yes}, 1000000)));
}

TEST(OffscreenImageService, WithNeitherTheHardwarePathTurnsToEglAndNotToSoftware)
{
    EXPECT_TRUE(isA<intern::OffscreenImageEgl>(hardwareImage({no, no})));
    EXPECT_TRUE(isA<intern::OffscreenImageEgl>(hardwareImage({no, no, yes})));
}

void expectFailure(ImageRenderingStrategy_e strategy, intern::ImageSurroundings surroundings, int width)
{
    try {
        intern::chooseOffscreenImage(width, 16, strategy, surroundings);
        FAIL() << "an image was created";
    } catch (const ExceptionBase& exception) {
        EXPECT_STREQ(exception.what(), "Failed to create an offscreen image.");
        EXPECT_FALSE(exception.isLogged());
    }
}

TEST(OffscreenImageService, WithNothingOfItsOwnEachPathFailsAndDoesNotTurnToTheOther)
{
    expectFailure(ImageRenderingStrategy_Hardware, {no, no, yes, no}, 16);
    expectFailure(ImageRenderingStrategy_Hardware, {yes, no, yes, no}, 1000000);
    expectFailure(ImageRenderingStrategy_Hardware, {no, no, yes, yes}, 1000000);
    expectFailure(ImageRenderingStrategy_Software, {yes, yes, no, no}, 16);
}

TEST(OffscreenImageService, WithoutOSMesaTheSoftwarePathTurnsToTheSoftwareOfEgl)
{
    const auto image = intern::chooseOffscreenImage(16, 16, ImageRenderingStrategy_Software, {yes, yes, no});
    EXPECT_TRUE(isA<intern::OffscreenImageEgl>(image));
}

TEST(OffscreenImageService, ASettingPutsEglFirstInEitherPath)
{
    const ImageSetting setting("PreferEGL", 1);
    for (const auto strategy : {ImageRenderingStrategy_Hardware, ImageRenderingStrategy_Software})
        EXPECT_TRUE(isA<intern::OffscreenImageEgl>(intern::chooseOffscreenImage(16, 16, strategy, {yes, yes})));
}

TEST(OffscreenImageService, EveryStrategyBut1MeansSoftware)
{
    for (const int strategy : {0, 2, 3, 17, -1, -2147483647}) {
        const auto image =
            intern::chooseOffscreenImage(4, 4, static_cast<ImageRenderingStrategy_e>(strategy), {yes, yes});
        EXPECT_TRUE(isA<intern::OffscreenImageMesa>(image) || !intern::hasOSMesa()) << strategy;
    }
}

TEST(OffscreenImageService, TheSoftwarePathDoesNotAskAboutTheToolkit)
{
    const auto fail = [] {
        ADD_FAILURE() << "asked";
        return true;
    };
    intern::chooseOffscreenImage(4, 4, ImageRenderingStrategy_Software, {fail, fail});
}

TEST(OffscreenImageService, TheSizeLimitOfTheSoftwarePathPassesThrough)
{
    services::OffscreenImageService service;
    try {
        service.imageCreate(2000000, 7, ImageRenderingStrategy_Software);
        FAIL() << "an image was created";
    } catch (const ExceptionBase& exception) {
        EXPECT_EQ(std::string(exception.what()).find("The off-screen image size 2000000x7 exceeds the maximum"), 0u)
            << exception.what();
    }
}

TEST(OffscreenImageService, TheImageIsReadBackOnceForAllItsRows)
{
    services::OffscreenImageService service;
    KnownImage image(tiles(9, 6));
    Row row(9);
    for (int y = 0; y < 6; ++y)
        ASSERT_TRUE(row.read(service, &image, y));
    EXPECT_EQ(image.readBacks, 1);
}

TEST(OffscreenImageService, AnImageThatCannotBeReadIsTriedAgainForEveryRow)
{
    services::OffscreenImageService service;
    KnownImage image((QImage()));
    Row row(9);
    EXPECT_FALSE(row.read(service, &image, 0));
    EXPECT_FALSE(row.read(service, &image, 0));
    EXPECT_EQ(image.readBacks, 2);
    image.pixels = tiles(9, 6);
    EXPECT_TRUE(row.read(service, &image, 5));
    EXPECT_EQ(row.at(8), tiles(9, 6).pixel(8, 5));
}

TEST(OffscreenImageService, TheCacheEndsWithADestructionEvenOfNothing)
{
    services::OffscreenImageService service;
    KnownImage image(tiles(9, 6, 0));
    Row row(9);
    ASSERT_TRUE(row.read(service, &image, 0));
    image.pixels = tiles(9, 6, 1);
    ASSERT_TRUE(row.read(service, &image, 0));
    EXPECT_EQ(row.at(0), tiles(9, 6, 0).pixel(0, 0));
    service.imageDestroy(nullptr);
    ASSERT_TRUE(row.read(service, &image, 0));
    EXPECT_EQ(row.at(0), tiles(9, 6, 1).pixel(0, 0));
}

TEST(OffscreenImageService, ADestructionGivesTheCachedPictureUp)
{
    services::OffscreenImageService service;
    KnownImage image(tiles(9, 6, 0));
    Row row(9);
    ASSERT_TRUE(row.read(service, &image, 0));
    EXPECT_FALSE(image.pixels.isDetached());
    service.imageDestroy(nullptr);
    EXPECT_TRUE(image.pixels.isDetached());
}

TEST(OffscreenImageService, TheImageIsDestroyedThroughItsInterface)
{
    services::OffscreenImageService service;
    bool destroyed = false;
    service.imageDestroy(new KnownImage(tiles(2, 2), &destroyed));
    EXPECT_TRUE(destroyed);
}

TEST(OffscreenImageService, AnImageOfAnotherMakeOrNoneCannotBeRead)
{
    services::OffscreenImageService service;
    OpaqueImage image;
    Row row(1);
    EXPECT_FALSE(row.read(service, &image, 0));
    EXPECT_FALSE(row.read(service, nullptr, 0));
}

TEST(OffscreenImageService, AlphaIsDroppedAndTheColourBitsAreTakenAsTheyAre)
{
    services::OffscreenImageService service;
    for (const QImage::Format format : {QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied}) {
        QImage pixels(1, 1, format);
        *reinterpret_cast<QRgb*>(pixels.bits()) = 0x40112233u;
        KnownImage image(pixels);
        Row row(1);
        ASSERT_TRUE(row.read(service, &image, 0));
        EXPECT_EQ(row.at(0), qRgb(0x11, 0x22, 0x33));
        service.imageDestroy(nullptr);
    }
}

TEST(OffscreenImageService, PixelsOfFewerBitsAreWidened)
{
    services::OffscreenImageService service;
    for (const QImage::Format format : {QImage::Format_RGB16, QImage::Format_RGB888, QImage::Format_Indexed8}) {
        QImage pixels(3, 2, QImage::Format_RGB32);
        pixels.fill(0xff000000u);
        pixels.setPixel(1, 1, qRgb(255, 0, 255));
        pixels.setPixel(2, 1, qRgb(0, 255, 0));
        KnownImage image(pixels.convertToFormat(format));
        Row row(3);
        ASSERT_TRUE(row.read(service, &image, 1));
        EXPECT_EQ(row.at(0), qRgb(0, 0, 0));
        EXPECT_EQ(row.at(1), qRgb(255, 0, 255));
        EXPECT_EQ(row.at(2), qRgb(0, 255, 0));
        service.imageDestroy(nullptr);
    }
}

TEST(OffscreenImageService, ReadingARowAllocatesNothing)
{
    if (allocationCount() < 0)
        GTEST_SKIP() << "a sanitizer has the memory in hand";
    services::OffscreenImageService service;
    KnownImage image(tiles(1000, 200));
    Row row(1000);
    ASSERT_TRUE(row.read(service, &image, 0));
    const long before = allocationCount();
    for (int y = 0; y < 200; ++y)
        row.read(service, &image, y);
    EXPECT_EQ(allocationCount(), before);
    const std::vector<int> counted(1000);
    EXPECT_GT(allocationCount(), before);
}

} // namespace
} // namespace velmora::test
