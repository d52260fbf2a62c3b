// What VTK's contents tell of a place, and what is selected in them.

#include "tests/support/Pixels.h"
#include "tests/vtk/ModelFiles.h"
#include "tests/vtk/ModelPicture.h"
#include "tests/vtk/ModelReading.h"

#include <gtest/gtest.h>

namespace velmora::test::model {
namespace {

constexpr double Middle = 0.4; ///< of the model beside its legend

/// From above, in a frame of 4 by 3: as long as no area has shown it.
std::shared_ptr<content::Content> fromAbove(const std::string& name, const std::string& text)
{
    auto content = read(write(name, text));
    content->lookFrom(content::Side::Above);
    return content;
}

std::string valueAt(const content::Content& content, double x, double y)
{
    content::ShownValue found;
    if (!content.valueAt(x, y, found))
        return "";
    EXPECT_NEAR(found.x, x, 1e-6);
    EXPECT_NEAR(found.y, y, 1e-6);
    return found.text;
}

TEST(PickingModels, TellsPlaceValueAndCellUnderThePointer)
{
    const auto content = fromAbove("square.vtp", square());
    EXPECT_EQ(valueAt(*content, Middle, 0.5).substr(0, 18), "x = 0.5, y = 0.5, ");
    // Below the diagonal, where the temperature is x + y.
    const double quarter = 0.92 / 4;
    EXPECT_EQ(valueAt(*content, Middle + quarter * 3 / 4, 0.5), "x = 0.75, y = 0.5, z = 0, temperature = 1.25, cell 0");
    EXPECT_EQ(valueAt(*content, 0.02, 0.5), "");
}

TEST(PickingModels, FindsAPointOfACloudNearThePointer)
{
    const auto content = fromAbove("cloud.ply", cloud(5));
    content::ShownValue found;
    ASSERT_TRUE(content->valueAt(0.5 + 0.003, 0.5, found));
    EXPECT_EQ(found.text.substr(found.text.rfind(',')), ", cell 12");
    EXPECT_FALSE(content->valueAt(0.5 + 0.03, 0.5, found));
}

TEST(PickingModels, NamesTheCellsOfAGridAsTheFileNumbersThem)
{
    const auto content = fromAbove("cubes.vtu", twoCubes());
    EXPECT_EQ(valueAt(*content, Middle + 0.2, 0.5).substr(23), "z = 1, pressure = 7, cell 1");
    EXPECT_EQ(content->pick(Middle - 0.2, 0.5, Middle - 0.2, 0.5, content::PickFilter()), 1);
    EXPECT_EQ(content->selectionDescription(), "cell 0");
}

TEST(PickingModels, TakesWhatIsSeenAtAPointOrHasACornerInARectangle)
{
    const auto content = fromAbove("square.vtp", square());
    EXPECT_EQ(content->selectionDescription(), "");
    EXPECT_EQ(content->pick(Middle + 0.1, 0.4, Middle + 0.1, 0.4, content::PickFilter()), 1);
    EXPECT_EQ(content->selectionDescription(), "cell 0");
    EXPECT_EQ(content->pick(Middle - 0.1, 0.6, Middle - 0.1, 0.6, content::PickFilter()), 1);
    EXPECT_EQ(content->selectionDescription(), "cell 0, cell 1");
    EXPECT_EQ(content->pick(Middle + 0.1, 0.4, Middle + 0.1, 0.4, content::PickFilter()), 0) << "it is already";
    EXPECT_EQ(content->selectedCount(), 2);
    content->deselectAll();
    EXPECT_EQ(content->selectedCount(), 0);
    EXPECT_EQ(content->pick(0.6, 0, 0.8, 0.1, content::PickFilter()), 1) << "by its corner";
    EXPECT_EQ(content->selectionDescription(), "cell 0");
    content::PickFilter texts;
    texts.zones = false;
    EXPECT_EQ(content->pick(0, 0, 1, 1, texts), 0);
}

TEST(PickingModels, OfManySelectedCellsNamesAFew)
{
    const auto content = fromAbove("waves.vtp", waves(60));
    EXPECT_EQ(content->pick(0, 0, 1, 1, content::PickFilter()), 2 * 59 * 59);
    EXPECT_EQ(content->selectionDescription(), "cell 0, cell 1, cell 2 and 6959 more");
}

TEST(PickingModels, ShowsWhatIsSelectedInAColourOfItsOwn)
{
    constexpr QRgb Orange = 0xfff07800;
    const auto content = fromAbove("square.vtp", square());
    CurrentImage image(ImageKind::Egl, 240, 180);
    EXPECT_EQ(countColor(image.draw(*content, image.drawing()), Orange, 40), 0);
    content->pick(Middle + 0.1, 0.4, Middle + 0.1, 0.4, content::PickFilter());
    constexpr double Triangle = 0.5 * 165.6 * 165.6;
    content::Drawing kept = image.drawing();
    kept.context = 1;
    for (const auto detail : {content::Detail::Full, content::Detail::Coarse}) {
        kept.detail = detail;
        EXPECT_NEAR(countColor(image.draw(*content, kept), Orange, 40), Triangle, 500);
    }
    content->pick(Middle - 0.1, 0.6, Middle - 0.1, 0.6, content::PickFilter());
    EXPECT_NEAR(countColor(image.draw(*content, kept), Orange, 40), 2 * Triangle, 500) << "in the same context";
    content->deselectAll();
    EXPECT_EQ(countColor(image.draw(*content, kept), Orange, 40), 0);
    content->leaveContext(1, true);
}

TEST(PickingModels, TurnsMovesZoomsAndFits)
{
    const auto content = fromAbove("square.vtp", square());
    const std::string above = content->viewState();
    content->zoom(2, Middle, 0.5);
    EXPECT_EQ(valueAt(*content, Middle, 0.5).substr(0, 18), "x = 0.5, y = 0.5, ") << "the point keeps its place";
    content->translate(0.1, 0);
    EXPECT_EQ(valueAt(*content, Middle + 0.1, 0.5).substr(0, 18), "x = 0.5, y = 0.5, ");
    content->showAll();
    EXPECT_EQ(content->viewState(), above);
    ASSERT_TRUE(content->canRotate());
    content->rotate(30, -40);
    EXPECT_EQ(content->viewState(), "model 30 50 1 0 0 0") << "with a perspective";
    EXPECT_TRUE(content->setViewState(above));
    EXPECT_EQ(content->viewState(), above);
    for (const char* const wrong : {"", "model", "model 1 2 3", "lines 1 2 3 4 5 6", "model 0 120 1 0 0 0",
                                    "model 0 0 0 0 0 0", "model 0 0 nan 0 0 0", "model 0 0 1 0 0 0 7"})
        EXPECT_FALSE(content->setViewState(wrong)) << wrong;
    EXPECT_EQ(content->viewState(), above);
    content->fit();
    EXPECT_NE(content->viewState(), above);
}

} // namespace
} // namespace velmora::test::model
