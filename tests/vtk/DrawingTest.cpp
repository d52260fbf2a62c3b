// How VTK's contents draw into images.

#include "tests/support/Pixels.h"
#include "tests/vtk/ModelFiles.h"
#include "tests/vtk/ModelPicture.h"
#include "tests/vtk/ModelReading.h"
#include "tests/vtk/OpenGLState.h"

#include <GL/gl.h>
#include <algorithm>
#include <gmock/gmock.h>

namespace velmora::test::model {
namespace {

using ::testing::HasSubstr;

constexpr int Width = 240;
constexpr int Height = 160;
constexpr QRgb White = 0xffffffff;
constexpr QRgb Ground = 0xff00ff00;
constexpr double FewPixels = 0.001;

std::shared_ptr<content::Content> wavesWithLegend()
{
    return read(write("waves.vtp", waves(60)));
}

/// More than one piece, more than is drawn at once.
std::shared_ptr<content::Content> manyWaves()
{
    return read(write("many.vtp", waves(200)));
}

TEST(DrawingModels, FillsTheFrameBesideItsLegend)
{
    const auto content = read(write("square.vtp", square()));
    content->lookFrom(content::Side::Above);
    CurrentImage image(ImageKind::Egl, Width, Height);
    const QImage picture = image.draw(*content, image.drawing());
    EXPECT_EQ(picture.pixel(2, 2), White);
    EXPECT_EQ(picture.pixel(96 - 76, 80), White);
    EXPECT_NE(picture.pixel(96 - 72, 80), White) << "the square is as high as the frame";
    EXPECT_NE(picture.pixel(96 + 72, 80), White);
    EXPECT_EQ(picture.pixel(96 + 76, 80), White);
    EXPECT_GT(qRed(picture.pixel(196, 30)), qBlue(picture.pixel(196, 30)) + 100) << "the greatest value is yellow";
    EXPECT_LT(qGreen(picture.pixel(196, 130)), 40) << "the least is dark";
}

TEST(DrawingModels, IsTheSamePictureInTilesAsInOne)
{
    const auto content = wavesWithLegend();
    content->zoom(1.7, 0.3, 0.6);
    CurrentImage large(ImageKind::Egl, Width, Height);
    const QImage whole = large.draw(*content, large.drawing());
    EXPECT_LT(countColor(whole, White), Width * Height * 2 / 3);
    CurrentImage tile(ImageKind::Egl, 100, 60);
    for (const int left : {0, 70, 140, 190})
        for (const int bottom : {0, 50, 110}) {
            content::Drawing drawing = large.drawing();
            drawing.targetWidth = 100;
            drawing.targetHeight = 60;
            drawing.frameX = -left;
            drawing.frameY = -bottom;
            const QImage part = tile.draw(*content, drawing);
            const QRect seen = QRect(left, Height - bottom - 60, 100, 60) & whole.rect();
            const QImage wanted = whole.copy(seen);
            const QImage found = part.copy(0, seen.top() - (Height - bottom - 60), seen.width(), seen.height());
            EXPECT_LE(differingFraction(found, wanted, 2), FewPixels) << left << ' ' << bottom;
        }
}

TEST(DrawingModels, KeepsToItsFrameAndToTheScissorBox)
{
    const auto content = wavesWithLegend();
    content->zoom(4, 0.5, 0.5);
    CurrentImage image(ImageKind::Egl, Width, Height);
    content::Drawing drawing = image.drawing();
    drawing.frameX = 60;
    drawing.frameY = 40;
    drawing.frameWidth = 120;
    drawing.frameHeight = 80;
    const int outside = Width * Height - 120 * 80;
    EXPECT_GE(countColor(image.draw(*content, drawing, Ground), Ground), outside);
    EXPECT_LT(countColor(image.draw(*content, drawing, Ground), Ground), outside + 120 * 80 / 2);

    const QImage whole = image.draw(*content, drawing, Ground);
    const QImage cut = image.draw(*content, drawing, Ground, QRect(90, 60, 40, 30));
    EXPECT_LE(differingFraction(cut.copy(90, 70, 40, 30), whole.copy(90, 70, 40, 30), 2), 0.01);
    EXPECT_GE(countColor(cut, Ground), Width * Height - 40 * 30);
}

TEST(DrawingModels, LeavesOpenGLAsItWas)
{
    for (const auto& content :
         {wavesWithLegend(), read(write("cubes.vtu", twoCubes())), read(write("c.ply", cloud(5)))})
        for (const ImageKind kind : {ImageKind::Egl, ImageKind::EglSoftware}) {
            CurrentImage image(kind, Width, Height);
            image.draw(*content, image.drawing()); // the first drawing sets VTK up
            content->pick(0.3, 0.3, 0.6, 0.6, content::PickFilter());
            glEnable(GL_LIGHTING);
            glMatrixMode(GL_TEXTURE);
            glPixelStorei(GL_UNPACK_ALIGNMENT, 2);
            const auto before = openGLState();
            content::NoCheckpoint checkpoint;
            content->draw(image.drawing(), checkpoint);
            EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
            const auto after = openGLState();
            for (const auto& value : before)
                EXPECT_EQ(after.at(value.first), value.second)
                    << value.first << " after " << content->description() << " in " << nameOf(kind);
        }
}

TEST(DrawingModels, CanBeInterruptedAfterEachPiece)
{
    const auto content = manyWaves();
    CurrentImage image(ImageKind::Egl, Width, Height);
    CountedCheckpoint whole;
    EXPECT_TRUE(content->draw(image.drawing(), whole));
    EXPECT_GT(whole.asked(), 5);
    EXPECT_TRUE(std::is_sorted(whole.fractions.begin(), whole.fractions.end()));
    for (int stopAt = 1; stopAt <= whole.asked(); ++stopAt) {
        CountedCheckpoint checkpoint(stopAt);
        const auto before = openGLState();
        EXPECT_FALSE(content->draw(image.drawing(), checkpoint));
        EXPECT_EQ(checkpoint.asked(), stopAt);
        EXPECT_EQ(openGLState(), before);
    }
}

TEST(DrawingModels, ADrawingWithinADrawingDisturbsNeither)
{
    /// Draws one pixel of the content, at another size, as somebody may who exports it meanwhile.
    class Again final : public content::Checkpoint {
    public:
        Again(content::Content& content, const content::Drawing& drawing) : m_content(content), m_drawing(drawing)
        {
            m_drawing.frameWidth /= 2;
        }
        bool goOn(double) override
        {
            content::NoCheckpoint checkpoint;
            const content::StateGuard guard;
            glScissor(0, 0, 1, 1);
            glEnable(GL_SCISSOR_TEST);
            EXPECT_TRUE(m_content.draw(m_drawing, checkpoint));
            return true;
        }

    private:
        content::Content& m_content;
        content::Drawing m_drawing;
    };
    const auto content = manyWaves();
    CurrentImage image(ImageKind::Egl, Width, Height);
    const QImage alone = image.draw(*content, image.drawing());
    content::Drawing kept = image.drawing();
    kept.context = 1;
    Again checkpoint(*content, kept);
    EXPECT_LE(differingFraction(image.draw(*content, kept, checkpoint), alone, 2), FewPixels);
    EXPECT_EQ(image.draw(*content, kept), alone);
    content->leaveContext(1, true);
    EXPECT_EQ(image.draw(*content, kept), alone) << "which is made anew";
    content->leaveContext(1, true);
}

TEST(DrawingModels, ACoarsePictureHasTheShapeOfTheFullOneInOnePortion)
{
    const auto content = manyWaves();
    EXPECT_TRUE(content->drawsCoarsely());
    CurrentImage image(ImageKind::Egl, Width, Height);
    const QImage full = image.draw(*content, image.drawing());
    content::Drawing drawing = image.drawing();
    drawing.detail = content::Detail::Coarse;
    const QImage coarse = image.draw(*content, drawing);
    EXPECT_NE(coarse, full);
    EXPECT_LT(differingShape(coarse, full), 0.03);
    CountedCheckpoint checkpoint;
    EXPECT_TRUE(content->draw(drawing, checkpoint));
    EXPECT_EQ(checkpoint.asked(), 1);
}

TEST(DrawingModels, ColoursCellsByTheirOwnValues)
{
    const auto content = read(write("cubes.vtu", twoCubes()));
    content->lookFrom(content::Side::Above);
    CurrentImage image(ImageKind::Egl, Width, Height);
    const QImage picture = image.draw(*content, image.drawing());
    const QRgb left = picture.pixel(60, 80);
    const QRgb right = picture.pixel(130, 80);
    EXPECT_GT(qRed(right), qRed(left) + 100);
    EXPECT_GT(qGreen(right), qGreen(left) + 100);
}

TEST(DrawingModels, TheSoftwareLibrarysContextIsRefusedWithTheReason)
{
    const auto content = wavesWithLegend();
    CurrentImage image(ImageKind::Egl, Width, Height);
    content::Drawing drawing = image.drawing();
    drawing.isOfLibGL = false;
    content::NoCheckpoint checkpoint;
    try {
        content->draw(drawing, checkpoint);
        ADD_FAILURE() << "it was drawn";
    } catch (const std::exception& error) {
        EXPECT_THAT(error.what(), HasSubstr("Export the image with hardware rendering."));
    }
}

} // namespace
} // namespace velmora::test::model
