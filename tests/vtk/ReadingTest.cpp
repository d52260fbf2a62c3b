// What VTK's contents read, and what they say of it.

#include "tests/vtk/ModelFiles.h"
#include "tests/vtk/ModelReading.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace velmora::test::model {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(ReadingModels, TakesFourKindsOfFileByTheEndingsOfTheirNames)
{
    EXPECT_EQ(read(write("square.vtp", square()))->description(),
              "poly data, 4 points, 2 cells, coloured by temperature");
    EXPECT_EQ(read(write("cubes.vtu", twoCubes()))->description(),
              "unstructured grid, 12 points, 2 cells, coloured by pressure");
    EXPECT_EQ(read(write("square.STL", squareInStl()))->description(), "STL model, 4 points, 2 cells");
    EXPECT_EQ(read(write("square.ply", squareInPly()))->description(), "PLY model, 4 points, 2 cells");
    EXPECT_TRUE(reader().recognises("/a.b/model.Vtp", ""));
    EXPECT_FALSE(reader().recognises("/a.vtp/model", ""));
    EXPECT_FALSE(reader().recognises("table.csv", "<VTKFile"));
}

TEST(ReadingModels, ShowsEachPointOfACloudWithoutCells)
{
    EXPECT_EQ(read(write("cloud.ply", cloud(5)))->description(), "PLY model, 25 points, 25 cells");
}

TEST(ReadingModels, TellsExtentAndArraysWithTheirRanges)
{
    EXPECT_EQ(read(write("square.vtp", square()))->details(),
              "Points\t4\nCells\t2\nValues of points, temperature\t0 to 3\n"
              "Extent in x\t0 to 1\nExtent in y\t0 to 1\nExtent in z\t0 to 0");
    EXPECT_THAT(read(write("cubes.vtu", twoCubes()))->details(), HasSubstr("Values of cells, pressure\t5 to 7\n"));
}

TEST(ReadingModels, NotesThatOnlyTheOutsideOfAGridIsShown)
{
    EXPECT_EQ(read(write("cubes.vtu", twoCubes()))->notes(), "The grid is shown from outside, by 10 faces.");
    EXPECT_EQ(read(write("square.vtp", square()))->notes(), "");
}

TEST(ReadingModels, RefusesADamagedFileByItsNameWithTheReason)
{
    const std::string damaged = write("damaged.vtp", square().substr(0, 300));
    EXPECT_THAT(refusalOf(damaged),
                AllOf(StartsWith(damaged + " cannot be read: "), HasSubstr("Give a complete VTK poly data file.")));
    EXPECT_THAT(refusalOf(write("other.vtp", "This is no model.")), HasSubstr("other.vtp cannot be read: "));
    EXPECT_THAT(refusalOf(write("other.vtu", square())), HasSubstr("Give a complete VTK unstructured grid file."));
    EXPECT_THAT(refusalOf(write("damaged.ply", "ply\nformat ascii")), HasSubstr("damaged.ply cannot be read: "));
    EXPECT_THAT(refusalOf(write("damaged.stl", "not a solid")), HasSubstr("damaged.stl cannot be read: "));
}

TEST(ReadingModels, RefusesAFileThatIsNotThereOrHasNoPoints)
{
    EXPECT_THAT(refusalOf("/nowhere/model.stl"),
                HasSubstr("/nowhere/model.stl cannot be read: No such file or directory."));
    EXPECT_THAT(refusalOf(write("empty.ply", cloud(0))), HasSubstr("empty.ply cannot be read: it has no points."));
}

TEST(ReadingModels, RefusesPointsThatAreNowhere)
{
    std::string text = squareInStl();
    text.replace(text.find("1 1 0"), 1, "nan");
    EXPECT_THAT(refusalOf(write("nowhere.stl", text)), HasSubstr("nowhere.stl cannot be read: point 2 is nowhere"));
}

TEST(ReadingModels, CanBeInterruptedInEachOfItsSteps)
{
    const std::string file = write("waves.vtp", waves(200));
    CountedCheckpoint whole;
    reader().read(file, whole);
    EXPECT_GT(whole.asked(), 20);
    EXPECT_TRUE(std::is_sorted(whole.fractions.begin(), whole.fractions.end()));
    EXPECT_LE(whole.fractions.back(), 1);
    for (int stopAt = 1; stopAt <= whole.asked(); ++stopAt) {
        CountedCheckpoint checkpoint(stopAt);
        EXPECT_THROW(reader().read(file, checkpoint), content::Interrupted) << stopAt;
        EXPECT_EQ(checkpoint.asked(), stopAt);
    }
}

} // namespace
} // namespace velmora::test::model
