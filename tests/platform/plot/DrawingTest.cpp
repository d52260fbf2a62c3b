// What holds for every kind of plot.

#include "engine/gl/GLFunctions.h"
#include "tests/platform/plot/Picture.h"
#include "tests/platform/plot/SampleData.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>

using namespace velmora::engine;
using namespace velmora::engine::test;

namespace {

DataSet sampleTable()
{
    std::vector<double> wave;
    std::vector<double> steps;
    for (int i = 0; i < 400; ++i) {
        wave.push_back(i % 57 == 3 ? missing : std::sin(i * 0.08) * 40);
        steps.push_back(i / 50 * 9 - 30);
    }
    return std::shared_ptr<const Table>(tableOf({wave, steps}));
}

DataSet sampleGrid()
{
    const auto grid = hill(81);
    return std::shared_ptr<const Grid>(grid);
}

struct Kind {
    const char* name;
    DataSet (*data)();
};

class EveryPlot : public testing::TestWithParam<Kind> {
protected:
    std::unique_ptr<Content> plot() const { return makePlot(GetParam().data(), noCheckpoint()); }
};

constexpr int Width = 400;
constexpr int Height = 300;

/// What a drawing could leave changed.
std::vector<double> glState(const GLFunctions& gl)
{
    std::vector<double> state;
    for (GLenum capability : {GL_BLEND, GL_DEPTH_TEST, GL_LIGHTING, GL_LIGHT0, GL_LIGHT3, GL_TEXTURE_2D,
                              GL_SCISSOR_TEST, GL_CULL_FACE, GL_POLYGON_OFFSET_FILL, GL_VERTEX_ARRAY, GL_COLOR_ARRAY,
                              GL_NORMAL_ARRAY, GL_TEXTURE_COORD_ARRAY, GL_FOG, GL_NORMALIZE})
        state.push_back(gl.IsEnabled(capability));
    for (GLenum what : {GL_MATRIX_MODE, GL_ATTRIB_STACK_DEPTH, GL_CLIENT_ATTRIB_STACK_DEPTH, GL_MODELVIEW_STACK_DEPTH,
                        GL_PROJECTION_STACK_DEPTH, GL_TEXTURE_BINDING_2D, GL_DEPTH_FUNC, GL_DEPTH_WRITEMASK,
                        GL_SHADE_MODEL, GL_BLEND_SRC, GL_BLEND_DST, GL_UNPACK_ALIGNMENT, GL_UNPACK_ROW_LENGTH,
                        GL_UNPACK_SKIP_ROWS, GL_LIGHT_MODEL_TWO_SIDE, GL_ACTIVE_TEXTURE, GL_ARRAY_BUFFER_BINDING,
                        GL_ELEMENT_ARRAY_BUFFER_BINDING, GL_CURRENT_PROGRAM}) {
        GLint value = 0;
        gl.GetIntegerv(what, &value);
        state.push_back(value);
    }
    for (GLenum what : {GL_PROJECTION_MATRIX, GL_MODELVIEW_MATRIX, GL_TEXTURE_MATRIX, GL_VIEWPORT, GL_SCISSOR_BOX,
                        GL_CURRENT_COLOR, GL_LIGHT_MODEL_AMBIENT, GL_COLOR_CLEAR_VALUE, GL_DEPTH_CLEAR_VALUE,
                        GL_POLYGON_OFFSET_FACTOR, GL_LINE_WIDTH}) {
        std::array<GLdouble, 16> values{};
        gl.GetDoublev(what, values.data());
        state.insert(state.end(), values.begin(), values.end());
    }
    return state;
}

/// Sets much of it to unusual values.
void disturb(const GLFunctions& gl)
{
    gl.MatrixMode(GL_PROJECTION);
    gl.LoadIdentity();
    gl.Ortho(-3, 5, -7, 9, -1, 1);
    gl.MatrixMode(GL_MODELVIEW);
    gl.Rotated(30, 0.2, 0.4, 1);
    gl.MatrixMode(GL_TEXTURE);
    gl.Scaled(2, 3, 4);
    for (GLenum capability : {GL_CULL_FACE, GL_FOG, GL_LIGHTING, GL_LIGHT3, GL_ALPHA_TEST, GL_STENCIL_TEST})
        gl.Enable(capability);
    gl.AlphaFunc(GL_NEVER, 0);
    gl.StencilFunc(GL_NEVER, 0, 0);
    gl.CullFace(GL_FRONT_AND_BACK);
    gl.DepthFunc(GL_GREATER);
    gl.DepthMask(GL_FALSE);
    gl.ColorMask(GL_TRUE, GL_FALSE, GL_TRUE, GL_TRUE);
    gl.PolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    gl.PixelStorei(GL_UNPACK_ALIGNMENT, 8);
    gl.PixelStorei(GL_UNPACK_SKIP_ROWS, 3);
    gl.LightModeli(GL_LIGHT_MODEL_TWO_SIDE, GL_TRUE);
    gl.EnableClientState(GL_NORMAL_ARRAY);
    gl.Color4ub(1, 2, 3, 4);
    gl.ClearDepth(0.25);
}

/// Stops at a question and counts those that come after it.
class StoppingCheckpoint : public CountingCheckpoint {
public:
    bool goOn(double fraction) override
    {
        afterStop += isStopped ? 1 : 0;
        isStopped = isStopped || !CountingCheckpoint::goOn(fraction);
        return !isStopped;
    }
    bool isStopped = false;
    int afterStop = 0;
};

int largestDifference(const Picture& a, const Picture& b, int bx, int by)
{
    int largest = 0;
    for (int y = 0; y < b.height(); ++y)
        for (int x = 0; x < b.width(); ++x) {
            const Picture::Pixel p = a.at(bx + x, by + y);
            const Picture::Pixel q = b.at(x, y);
            largest =
                std::max({largest, std::abs(p.red - q.red), std::abs(p.green - q.green), std::abs(p.blue - q.blue)});
        }
    return largest;
}

std::size_t countDifferent(const Picture& a, const Picture& b, int bx, int by, int tolerance)
{
    std::size_t count = 0;
    for (int y = 0; y < b.height(); ++y)
        for (int x = 0; x < b.width(); ++x) {
            const Picture::Pixel p = a.at(bx + x, by + y);
            count += b.at(x, y).isNear(p.red, p.green, p.blue, tolerance) ? 0 : 1;
        }
    return count;
}

} // namespace

TEST_P(EveryPlot, DrawsSomethingAndSaysSo)
{
    Picture picture(Width, Height);
    EXPECT_TRUE(picture.draw(*plot()));
    EXPECT_GT(picture.countInk(), 3000u);
    EXPECT_EQ(currentGL().GetError(), GLenum(GL_NO_ERROR));
}

TEST_P(EveryPlot, TilesJoinToTheWholePicture)
{
    const auto drawn = plot();
    Picture whole(Width, Height);
    ASSERT_TRUE(whole.draw(*drawn));
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 2; ++column) {
            Picture tile(Width / 2, Height / 2);
            Drawing drawing = tile.drawing();
            drawing.frameX = -column * Width / 2;
            drawing.frameY = -row * Height / 2;
            drawing.frameWidth = Width;
            drawing.frameHeight = Height;
            CountingCheckpoint checkpoint;
            ASSERT_TRUE(drawn->draw(drawing, checkpoint));
            tile.refresh();
            const int x = column * Width / 2;
            const int y = row * Height / 2;
            EXPECT_GT(tile.countInk(), 500u);
            EXPECT_LE(countDifferent(whole, tile, x, y, 2), 20u) << column << ' ' << row;
            EXPECT_LE(countDifferent(whole, tile, x, y, 60), 6u) << "largest " << largestDifference(whole, tile, x, y);
        }
}

TEST_P(EveryPlot, StaysInItsFrame)
{
    Picture picture(Width, Height);
    Drawing drawing = picture.drawing();
    drawing.frameX = 50;
    drawing.frameY = 40;
    drawing.frameWidth = 300;
    drawing.frameHeight = 200;
    const auto drawn = plot();
    CountingCheckpoint checkpoint;
    drawn->draw(drawing, checkpoint);
    drawn->zoom(6, 0.5, 0.5);
    ASSERT_TRUE(drawn->draw(drawing, checkpoint));
    picture.refresh();
    std::size_t outside = 0;
    for (int y = 0; y < Height; ++y)
        for (int x = 0; x < Width; ++x)
            if (x < 50 || y < 40 || x >= 350 || y >= 240)
                outside += picture.at(x, y).isWhite() ? 0 : 1;
    EXPECT_EQ(outside, 0u);
    EXPECT_GT(picture.countInk(), 2000u);
}

TEST_P(EveryPlot, StaysInAScissorThatWasThere)
{
    Picture picture(Width, Height);
    const GLFunctions& gl = currentGL();
    gl.Enable(GL_SCISSOR_TEST);
    gl.Scissor(100, 60, 150, 130);
    ASSERT_TRUE(picture.draw(*plot()));
    for (int y = 0; y < Height; ++y)
        for (int x = 0; x < Width; ++x)
            ASSERT_TRUE((x >= 100 && y >= 60 && x < 250 && y < 190) || picture.at(x, y).isWhite()) << x << ' ' << y;
    EXPECT_GT(picture.countInk(), 500u);
}

TEST_P(EveryPlot, LeavesTheStateAsItWas)
{
    Picture picture(Width, Height);
    const GLFunctions& gl = currentGL();
    disturb(gl);
    const std::vector<double> before = glState(gl);
    ASSERT_TRUE(picture.draw(*plot()));
    EXPECT_EQ(glState(gl), before);
    EXPECT_EQ(gl.GetError(), GLenum(GL_NO_ERROR));
}

TEST_P(EveryPlot, LooksTheSameWhateverTheStateWas)
{
    const auto drawn = plot();
    Picture plain(Width, Height);
    ASSERT_TRUE(plain.draw(*drawn));
    Picture disturbed(Width, Height);
    disturb(currentGL());
    ASSERT_TRUE(disturbed.draw(*drawn));
    EXPECT_EQ(countDifferent(plain, disturbed, 0, 0, 0), 0u);
}

TEST_P(EveryPlot, LeavesNoTextureBehind)
{
    Picture picture(Width, Height);
    ASSERT_TRUE(picture.draw(*plot()));
    for (GLuint name = 1; name < 300; ++name)
        EXPECT_FALSE(currentGL().IsTexture(name)) << name;
}

TEST_P(EveryPlot, StopsAtOnceWhereverItIsToldToAndLeavesNothingBehind)
{
    const auto drawn = plot();
    CountingCheckpoint whole;
    Picture first(Width, Height);
    Drawing drawing = first.drawing();
    const DrawingMeansScope means({&currentGL(), true}); // else it would ask as often as the machine is slow
    ASSERT_TRUE(drawn->draw(drawing, whole));
    for (long stopAt = 1; stopAt <= whole.questions; stopAt += 1 + whole.questions / 40) {
        Picture picture(Width, Height);
        const std::vector<double> before = glState(currentGL());
        StoppingCheckpoint checkpoint;
        checkpoint.stopAt = stopAt;
        EXPECT_FALSE(drawn->draw(drawing, checkpoint));
        EXPECT_EQ(checkpoint.questions, stopAt);
        EXPECT_EQ(checkpoint.afterStop, 0);
        EXPECT_EQ(glState(currentGL()), before);
        EXPECT_EQ(currentGL().GetError(), GLenum(GL_NO_ERROR));
    }
}

TEST_P(EveryPlot, ProgressRisesToOne)
{
    CountingCheckpoint checkpoint;
    Picture(Width, Height).draw(*plot(), checkpoint);
    EXPECT_TRUE(checkpoint.isMonotonous);
    EXPECT_GT(checkpoint.questions, 3);
    EXPECT_GT(checkpoint.lastFraction, 0.85);
    EXPECT_LE(checkpoint.lastFraction, 1);
}

TEST_P(EveryPlot, TextKeepsItsSizeOnPaperAtAnyResolution)
{
    const auto drawn = plot();
    const auto ink = [&drawn](int scale) {
        Picture picture(Width * scale, Height * scale);
        Drawing drawing = picture.drawing();
        drawing.pixelsPerPoint = scale;
        CountingCheckpoint checkpoint;
        EXPECT_TRUE(drawn->draw(drawing, checkpoint));
        picture.refresh();
        return picture.meanInk();
    };
    const double coarse = ink(1);
    const double fine = ink(4);
    EXPECT_GT(coarse, 0);
    EXPECT_NEAR(fine, coarse, 0.15 * coarse);
}

TEST_P(EveryPlot, MayGoWhileItIsDrawn)
{
    class DestroyingCheckpoint : public CountingCheckpoint {
    public:
        bool goOn(double fraction) override
        {
            if (questions == 2)
                plot.reset();
            return CountingCheckpoint::goOn(fraction);
        }
        std::unique_ptr<Content> plot;
    };
    Picture picture(Width, Height);
    const auto kept = plot();
    ASSERT_TRUE(picture.draw(*kept));
    const std::vector<unsigned char> expected = picture.bytes();
    picture.clear();
    DestroyingCheckpoint checkpoint;
    checkpoint.plot = plot();
    EXPECT_TRUE(picture.draw(*checkpoint.plot, checkpoint));
    EXPECT_EQ(checkpoint.plot, nullptr);
    EXPECT_EQ(picture.bytes(), expected);
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryPlot, testing::Values(Kind{"Table", sampleTable}, Kind{"Grid", sampleGrid}),
                         [](const testing::TestParamInfo<Kind>& tested) { return tested.param.name; });

TEST(LargeData, ALargeGridIsDrawnInManySmallPortions)
{
    const std::shared_ptr<const Grid> grid =
        gridOf(1200, 1200, [](int column, int row) { return 100 * std::sin(column * 0.01) * std::cos(row * 0.013); });
    const auto drawn = makePlot(grid, noCheckpoint());
    Picture picture(1000, 800);
    CountingCheckpoint checkpoint;
    ASSERT_TRUE(picture.draw(*drawn, checkpoint));
    EXPECT_GT(checkpoint.questions, 50);
}

TEST(LargeData, AFewLargeCellsAreFilledInPortions)
{
    const std::shared_ptr<const Grid> grid = gridOf(3, 3, [](int column, int row) { return column + row * 1.0; });
    const auto drawn = makePlot(grid, noCheckpoint());
    Picture picture(1600, 1200);
    CountingCheckpoint checkpoint;
    ASSERT_TRUE(picture.draw(*drawn, checkpoint));
    EXPECT_GT(checkpoint.questions, 4) << "how many depends on how fast the renderer is";
}

TEST(LargeData, ManyRowsAreDrawnInPortions)
{
    std::vector<double> values;
    for (int i = 0; i < 500000; ++i)
        values.push_back(std::sin(i * 0.001));
    const std::shared_ptr<const Table> table = tableOf({values});
    const auto drawn = makePlot(table, noCheckpoint());
    Picture picture(800, 600);
    CountingCheckpoint checkpoint;
    ASSERT_TRUE(picture.draw(*drawn, checkpoint));
    EXPECT_GT(checkpoint.questions, 4) << "how many depends on how fast the renderer is";
}
