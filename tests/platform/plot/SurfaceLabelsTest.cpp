// Where the labels of a surface stand, seen from everywhere.

#include "engine/plot/surface/SurfaceLayout.h"
#include "tests/platform/plot/SampleData.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace velmora::engine;
using namespace velmora::engine::test;

namespace {

struct Named {
    std::string what;
    Rect rect;
};

std::vector<Named> textsOf(const SurfaceLayout& layout)
{
    std::vector<Named> all{{"bar", layout.bar}};
    for (const SurfaceAxis& axis : layout.axes)
        for (const TextItem& label : axis.labels)
            all.push_back({"label " + label.text, textRect(label)});
    for (const TextItem& label : layout.barLabels)
        all.push_back({"bar label " + label.text, textRect(label)});
    for (const PlotText& text : layout.texts)
        all.push_back({"text " + text.item.text, textRect(text.item)});
    return all;
}

/// Coordinates with many digits, as maps have them.
std::shared_ptr<Grid> mapGrid(int columns, int rows)
{
    auto grid = gridOf(columns, rows, [](int column, int row) { return 700 + 300 * std::sin(column * 0.1) + row; });
    grid->xCenter = 412000;
    grid->yCenter = 3120000;
    grid->cellSize = 50;
    return grid;
}

class SurfaceLabels : public testing::TestWithParam<FrameSize> {
protected:
    template <class Look>
    static void fromEverywhere(const Look& look)
    {
        for (const auto& grid : {mapGrid(80, 80), mapGrid(120, 30)}) {
            const SurfaceShape shape(*grid);
            for (int about = -180; about < 180; about += 11)
                for (const double tilt : {3.0, 12.0, 33.0, 55.0, 75.0, 90.0}) {
                    SurfaceView view;
                    view.aboutVertical = about;
                    view.tilt = tilt;
                    SCOPED_TRACE(std::to_string(about) + " " + std::to_string(tilt));
                    look(layOut(*grid, shape, view, GetParam()), shape, tilt);
                }
        }
    }
};

} // namespace

TEST_P(SurfaceLabels, OverlapNeitherEachOtherNorTheColourBar)
{
    fromEverywhere([](const SurfaceLayout& layout, const SurfaceShape&, double) {
        const std::vector<Named> texts = textsOf(layout);
        for (std::size_t i = 0; i < texts.size(); ++i)
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(texts[i].rect.meets(texts[j].rect)) << texts[i].what << " and " << texts[j].what;
    });
}

TEST_P(SurfaceLabels, StandInTheFrame)
{
    const Rect frame = GetParam().rect();
    fromEverywhere([&](const SurfaceLayout& layout, const SurfaceShape&, double) {
        for (const Named& text : textsOf(layout)) {
            EXPECT_TRUE(frame.contains({text.rect.x1, text.rect.y1})) << text.what;
            EXPECT_TRUE(frame.contains({text.rect.x2, text.rect.y2})) << text.what;
        }
    });
}

TEST_P(SurfaceLabels, AreAtLeastTwoOnEveryAxisThatIsSeen)
{
    fromEverywhere([](const SurfaceLayout& layout, const SurfaceShape&, double) {
        for (const SurfaceAxis& axis : layout.axes) {
            const double length = std::hypot(axis.line.to.x - axis.line.from.x, axis.line.to.y - axis.line.from.y);
            if (length >= GetParam().points(40)) {
                EXPECT_GE(axis.labels.size(), 2u) << axis.object << " of " << length;
                EXPECT_GE(axis.ticks.size(), 2u) << axis.object;
            }
        }
    });
}

TEST_P(SurfaceLabels, LieOutsideTheTerrainFromAbove)
{
    fromEverywhere([](const SurfaceLayout& layout, const SurfaceShape& shape, double tilt) {
        if (tilt < 90)
            return;
        Point corners[4];
        for (int i = 0; i < 4; ++i) {
            const StrokePoint place = layout.camera.project(
                {(i == 0 || i == 3 ? -1 : 1) * shape.halfX(), (i < 2 ? -1 : 1) * shape.halfY(), shape.halfZ()});
            corners[i] = {place.x, place.y};
        }
        for (const Named& text : textsOf(layout)) {
            EXPECT_FALSE(triangleMeetsRect(text.rect, corners[0], corners[1], corners[2])) << text.what;
            EXPECT_FALSE(triangleMeetsRect(text.rect, corners[0], corners[2], corners[3])) << text.what;
        }
    });
}

// Which from above is short, and whose labels stand above each other.
TEST_P(SurfaceLabels, AreAtLeastTwoOnTheUprightAxisAlsoWhereItIsShort)
{
    int shortOnes = 0;
    fromEverywhere([&](const SurfaceLayout& layout, const SurfaceShape&, double) {
        const SurfaceAxis& upright = layout.axes[surfaceobject::ZAxis];
        const double length =
            std::hypot(upright.line.to.x - upright.line.from.x, upright.line.to.y - upright.line.from.y);
        if (length < GetParam().points(14))
            return;
        shortOnes += length < GetParam().points(40) ? 1 : 0;
        EXPECT_GE(upright.labels.size(), 2u) << "of " << length;
        EXPECT_GE(upright.ticks.size(), 2u) << "of " << length;
    });
    EXPECT_GT(shortOnes, 5);
}

TEST(SmallSurfaces, HaveTwoTicksOnTheUprightAxisAlsoWhereThereIsNoRoomForLabels)
{
    const auto grid = gridOf(24, 24, [](int column, int row) { return 1234567.0 + column + row; });
    const SurfaceShape shape(*grid);
    for (const double tilt : {5.0, 10.0, 20.0, 33.0}) {
        SurfaceView view;
        view.tilt = tilt;
        const SurfaceLayout layout = layOut(*grid, shape, view, FrameSize{160, 120, 1.333, 9});
        EXPECT_GE(layout.axes[surfaceobject::ZAxis].ticks.size(), 2u) << tilt;
    }
}

TEST(SmallSurfaces, HaveTextsThatAreLegibleAndInTheFrame)
{
    const auto grid = mapGrid(80, 80);
    const SurfaceShape shape(*grid);
    const FrameSize frame{320, 240, 0.427, 9};
    const SurfaceLayout layout = layOut(*grid, shape, SurfaceView(), frame);
    for (const SurfaceAxis& axis : layout.axes) {
        EXPECT_GE(axis.labels.size(), 2u) << axis.object;
        for (const TextItem& label : axis.labels)
            EXPECT_GE(label.size, 9) << label.text;
    }
    for (const TextItem& label : layout.barLabels)
        EXPECT_GE(label.size, 9) << label.text;
    for (const PlotText& text : layout.texts)
        EXPECT_GE(text.item.size, 9) << text.item.text;
    const std::vector<Named> texts = textsOf(layout);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_GE(texts[i].rect.x1, 0) << texts[i].what;
        EXPECT_LE(texts[i].rect.x2, frame.width) << texts[i].what;
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(texts[i].rect.meets(texts[j].rect)) << texts[i].what << " and " << texts[j].what;
    }
}

INSTANTIATE_TEST_SUITE_P(Frames, SurfaceLabels,
                         testing::Values(FrameSize{1000, 700, 1.333}, FrameSize{640, 480, 1},
                                         FrameSize{2400, 1700, 4.17}));
