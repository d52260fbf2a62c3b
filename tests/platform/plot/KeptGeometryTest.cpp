#include "engine/gl/KeptGeometry.h"
#include "engine/gl/GLFunctions.h"
#include "tests/platform/plot/Picture.h"
#include "tests/platform/plot/SampleData.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace velmora::engine;
using namespace velmora::engine::test;

namespace {

class KeptGeometryOfAContext : public testing::Test {
protected:
    ~KeptGeometryOfAContext() override { kept.release(gl); }

    /// Keeps a thousand bytes.
    const KeptGeometry::Entry* add(std::uint64_t dataSet, int piece)
    {
        const std::vector<char> vertices(940);
        const std::vector<std::uint16_t> indices(30);
        return kept.add(gl, {dataSet, 0, piece}, {vertices.data(), vertices.size(), indices.data(), indices.size()});
    }
    bool has(std::uint64_t dataSet, int piece) { return kept.find({dataSet, 0, piece}) != nullptr; }

    Picture context{8, 8};
    const GLFunctions& gl = currentGL();
    KeptGeometry kept;
};

std::vector<GLuint> buffersInUse()
{
    constexpr GLuint MoreThanThereAre = 5000;
    std::vector<GLuint> found;
    for (GLuint name = 1; name < MoreThanThereAre; ++name)
        if (currentGL().IsBuffer(name))
            found.push_back(name);
    return found;
}

} // namespace

TEST_F(KeptGeometryOfAContext, FindsAgainWhatWasKept)
{
    kept.beginDrawing(gl, 1, 10000);
    EXPECT_FALSE(has(1, 5));
    const KeptGeometry::Entry* const added = add(1, 5);
    ASSERT_TRUE(added);
    EXPECT_EQ(added->indexCount, 30);
    EXPECT_TRUE(has(1, 5));
    EXPECT_FALSE(has(1, 6));
    EXPECT_EQ(kept.bytes(), 1000u);
    EXPECT_EQ(gl.GetError(), GLenum(GL_NO_ERROR));
}

TEST_F(KeptGeometryOfAContext, WhatWasUsedLongestAgoMakesRoom)
{
    kept.beginDrawing(gl, 1, 3000);
    for (int piece = 0; piece < 3; ++piece)
        ASSERT_TRUE(add(1, piece));
    kept.beginDrawing(gl, 1, 3000);
    EXPECT_TRUE(has(1, 0));
    EXPECT_TRUE(add(1, 3));
    EXPECT_TRUE(has(1, 0));
    EXPECT_FALSE(has(1, 1));
    EXPECT_TRUE(has(1, 2));
    EXPECT_EQ(kept.bytes(), 3000u);
}

TEST_F(KeptGeometryOfAContext, ADrawingThatNeedsMoreThanTheBoundLeavesWhatItHasUsed)
{
    kept.beginDrawing(gl, 1, 2500);
    EXPECT_TRUE(add(1, 0));
    EXPECT_TRUE(add(1, 1));
    EXPECT_FALSE(add(1, 2));
    EXPECT_TRUE(has(1, 0));
    EXPECT_LE(kept.bytes(), 2500u);
}

TEST_F(KeptGeometryOfAContext, AnotherDataSetIsTheEndOfTheOneBefore)
{
    kept.beginDrawing(gl, 1, 10000);
    const GLuint buffer = add(1, 0)->vertices;
    kept.beginDrawing(gl, 2, 10000);
    EXPECT_FALSE(has(1, 0));
    EXPECT_EQ(kept.bytes(), 0u);
    EXPECT_FALSE(gl.IsBuffer(buffer));
}

TEST_F(KeptGeometryOfAContext, ReleasingGivesAllBuffersBack)
{
    kept.beginDrawing(gl, 1, 10000);
    const KeptGeometry::Entry entry = *add(1, 0);
    EXPECT_TRUE(gl.IsBuffer(entry.vertices));
    EXPECT_TRUE(gl.IsBuffer(entry.indices));
    kept.release(gl);
    EXPECT_FALSE(gl.IsBuffer(entry.vertices));
    EXPECT_FALSE(gl.IsBuffer(entry.indices));
    EXPECT_EQ(kept.bytes(), 0u);
}

TEST_F(KeptGeometryOfAContext, WithoutVertexBuffersNothingIsKept)
{
    GLFunctions old = gl;
    old.GenBuffers = nullptr;
    kept.beginDrawing(old, 1, 10000);
    const std::uint16_t index = 0;
    EXPECT_FALSE(kept.add(old, {1, 0, 0}, {"", 1, &index, 1}));
}

TEST_F(KeptGeometryOfAContext, ASurfaceLooksTheSameFromKeptGeometry)
{
    GridPlot plot(gridOf(200, 150, [](int column, int row) { return std::sin(column * 0.1) + std::cos(row * 0.13); }));
    Picture plain(400, 300);
    ASSERT_TRUE(plain.draw(plot));

    Picture picture(400, 300);
    Drawing drawing = picture.drawing();
    drawing.context = 7;
    ASSERT_TRUE(plot.draw(drawing, noCheckpoint()));
    picture.refresh();
    EXPECT_EQ(picture.bytes(), plain.bytes());
    const std::vector<GLuint> buffers = buffersInUse();
    EXPECT_GT(buffers.size(), 2u);

    picture.clear();
    ASSERT_TRUE(plot.draw(drawing, noCheckpoint()));
    picture.refresh();
    EXPECT_EQ(picture.bytes(), plain.bytes()) << "also the second time";
    EXPECT_EQ(buffersInUse(), buffers) << "nothing was made anew";

    plot.leaveContext(8, true);
    EXPECT_EQ(buffersInUse(), buffers) << "another context is no reason";
    plot.leaveContext(7, true);
    EXPECT_TRUE(buffersInUse().empty());
}
