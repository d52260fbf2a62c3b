#include "engine/style/StyleTree.h"

#include "engine/style/StyleCodes.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

using namespace velmora::engine::style;

namespace {

std::vector<std::string> heard;

void hear(std::string_view path)
{
    heard.emplace_back(path);
}

struct ExpectedPaper {
    const char* name;
    double width;
    double height;
};

constexpr ExpectedPaper ExpectedPapers[] = {
    {"Letter", 8.5, 11.0}, {"Double", 11.0, 17.0}, {"A4", 8.27, 11.69},
    {"A3", 11.69, 16.54},  {"Custom1", 8.0, 10.0}, {"Custom2", 10.0, 10.0},
};

constexpr const char* OpenGLSizes[] = {"DepthBufferSize", "MaxMultiSamples", "MaxAccumBufferSize"};

/// A value that differs from the given one and is allowed wherever that is.
struct Another {
    Value operator()(bool value) const { return !value; }
    Value operator()(long value) const { return 1 - value; }
    Value operator()(double value) const { return value + 1; }
    Value operator()(const std::string& value) const { return value + "!"; }
};

} // namespace

TEST(StyleTree, EveryPaperHasItsSizeAndMarginsFromTheStart)
{
    const StyleTree tree;
    for (const ExpectedPaper& paper : ExpectedPapers) {
        const std::string branch = std::string("GlobalPaper/PaperSizeInfo/") + paper.name + "/";
        ASSERT_TRUE(tree.find(branch + "Width")) << branch;
        EXPECT_EQ(Value(paper.width), *tree.find(branch + "Width"));
        EXPECT_EQ(Value(paper.height), *tree.find(branch + "Height"));
        for (const char* side : {"Left", "Right", "Bottom", "Top"}) {
            const Value* offset = tree.find(branch + side + "HardClipOffset");
            ASSERT_TRUE(offset) << branch << side;
            EXPECT_EQ(Value(0.125), *offset);
        }
    }
}

TEST(StyleTree, TheCurrentPaperIsUprightLetterFromTheStart)
{
    const StyleTree tree;
    EXPECT_EQ(Value(0L), *tree.find("Paper/PaperSize"));
    EXPECT_EQ(Value(true), *tree.find("Paper/OrientPortrait"));
}

TEST(StyleTree, TheOpenGLSizesAreNotSetFromTheStart)
{
    const StyleTree tree;
    for (const char* branch : {"ScreenRendering", "ImageRendering"}) {
        for (const char* size : OpenGLSizes) {
            const Value* value = tree.find(std::string("Interface/OpenGLConfig/") + branch + "/" + size);
            ASSERT_TRUE(value) << branch << size;
            EXPECT_EQ(Value(0L), *value);
        }
    }
    EXPECT_EQ(Value(1L), *tree.find("Interface/OpenGLConfig/UseAdvancedVisualChooser"));
    EXPECT_EQ(Value(0L), *tree.find("Interface/OpenGLConfig/VisualID"));
}

TEST(StyleTree, NothingIsPrintedDelayedOrShownFromTheStart)
{
    const StyleTree tree;
    EXPECT_EQ(Value(false), *tree.find("Interface/PrintDebug"));
    EXPECT_EQ(Value(0L), *tree.find("Interface/DrawingDelay"));
    EXPECT_EQ(Value(0L), *tree.find("Interface/ShowPaper"));
}

TEST(StyleTree, AnOpenGLSizeMayBeNegative)
{
    StyleTree tree;
    EXPECT_EQ(StyleCode_Ok, tree.write("Interface/OpenGLConfig/ImageRendering/MaxMultiSamples", -4L));
    EXPECT_EQ(Value(-4L), *tree.find("Interface/OpenGLConfig/ImageRendering/MaxMultiSamples"));
}

TEST(StyleTree, DefinitionsAndTheCurrentPaperNameTheSameStoredPapers)
{
    StyleTree tree;
    EXPECT_EQ(StyleCode_Ok, tree.write("Paper/PaperSizeInfo/Custom2/Width", 7.25));
    EXPECT_EQ(Value(7.25), *tree.find("GlobalPaper/PaperSizeInfo/Custom2/Width"));
    EXPECT_EQ(StyleCode_Ok, tree.write("GlobalPaper/PaperSizeInfo/Custom1/Height", 3.5));
    EXPECT_EQ(Value(3.5), *tree.find("Paper/PaperSizeInfo/Custom1/Height"));
}

TEST(StyleTree, OnlyThePaperDefinitionsHaveAGlobalBranch)
{
    const StyleTree tree;
    EXPECT_FALSE(tree.find("GlobalPaper/PaperSize"));
    EXPECT_FALSE(tree.find("GlobalPaper/OrientPortrait"));
    EXPECT_FALSE(tree.find("GlobalInterface/PrintDebug"));
}

TEST(StyleTree, AnUnknownPathHasNoValueAndTakesNone)
{
    StyleTree tree;
    EXPECT_FALSE(tree.find("Paper/Colour"));
    EXPECT_FALSE(tree.find("Paper"));
    EXPECT_FALSE(tree.find(""));
    EXPECT_EQ(StyleCode_UnknownPath, tree.write("Paper/Colour", 1L));
    EXPECT_EQ(0u, tree.changeCount());
}

TEST(StyleTree, APathTakesNoValueOfAnotherType)
{
    StyleTree tree;
    EXPECT_EQ(StyleCode_WrongType, tree.write("Paper/PaperSize", 2.0));
    EXPECT_EQ(StyleCode_WrongType, tree.write("Paper/PaperSize", true));
    EXPECT_EQ(StyleCode_WrongType, tree.write("Paper/OrientPortrait", 0L));
    EXPECT_EQ(StyleCode_WrongType, tree.write("Paper/PaperSizeInfo/A4/Width", std::string("wide")));
    EXPECT_EQ(Value(0L), *tree.find("Paper/PaperSize"));
}

TEST(StyleTree, ATextPathTakesText)
{
    StyleTree tree;
    EXPECT_EQ(Value(std::string("A4")), *tree.find("Paper/PaperSizeInfo/A4/Description"));
    EXPECT_EQ(StyleCode_Ok, tree.write("Paper/PaperSizeInfo/A4/Description", std::string("Büropapier")));
    EXPECT_EQ(Value(std::string("Büropapier")), *tree.find("Paper/PaperSizeInfo/A4/Description"));
}

TEST(StyleTree, AValueOutsideItsRangeIsRefused)
{
    StyleTree tree;
    EXPECT_EQ(StyleCode_OutOfRange, tree.write("Paper/PaperSize", -1L));
    EXPECT_EQ(StyleCode_OutOfRange, tree.write("Paper/PaperSize", 6L));
    EXPECT_EQ(StyleCode_OutOfRange, tree.write("Paper/PaperSizeInfo/Custom2/Width", 0.0));
    EXPECT_EQ(StyleCode_OutOfRange, tree.write("Paper/PaperSizeInfo/Custom2/Height", -1.0));
    EXPECT_EQ(StyleCode_OutOfRange, tree.write("Paper/PaperSizeInfo/Custom2/Height", 1000.5));
    EXPECT_EQ(StyleCode_OutOfRange, tree.write("Paper/PaperSizeInfo/Custom2/Height", std::nan("")));
    EXPECT_EQ(StyleCode_OutOfRange,
              tree.write("Paper/PaperSizeInfo/Custom2/Height", std::numeric_limits<double>::infinity()));
    EXPECT_EQ(StyleCode_OutOfRange, tree.write("Paper/PaperSizeInfo/A4/TopHardClipOffset", -0.1));
    EXPECT_EQ(StyleCode_OutOfRange, tree.write("Interface/DrawingDelay", -1L));
    EXPECT_EQ(0u, tree.changeCount());
}

TEST(StyleTree, TheEndsOfARangeAreAllowed)
{
    StyleTree tree;
    EXPECT_EQ(StyleCode_Ok, tree.write("Paper/PaperSize", 5L));
    EXPECT_EQ(StyleCode_Ok, tree.write("Paper/PaperSize", 0L));
    EXPECT_EQ(StyleCode_Ok, tree.write("Paper/PaperSizeInfo/A4/TopHardClipOffset", 0.0));
}

TEST(StyleTree, WritingTheValueThatIsThereSaysSoAndChangesNothing)
{
    StyleTree tree;
    EXPECT_EQ(StyleCode_Ok, tree.write("Paper/PaperSize", 2L));
    EXPECT_EQ(StyleCode_AlreadySet, tree.write("Paper/PaperSize", 2L));
    EXPECT_NE(0, StyleCode_AlreadySet);
    EXPECT_EQ(1u, tree.changeCount());
}

TEST(StyleTree, ObserversHearOfChangesAndOfNothingElse)
{
    heard.clear();
    StyleTree tree;
    tree.addObserver(hear);
    tree.addObserver(hear);
    tree.write("GlobalPaper/PaperSizeInfo/A3/Width", 11.0);
    tree.write("Paper/PaperSize", 0L);
    tree.write("Paper/PaperSize", 9L);
    EXPECT_EQ((std::vector<std::string>{"Paper/PaperSizeInfo/A3/Width"}), heard);
    tree.reset();
    EXPECT_EQ((std::vector<std::string>{"Paper/PaperSizeInfo/A3/Width", ""}), heard);
}

TEST(StyleTree, AResetGivesEveryDefaultBack)
{
    StyleTree tree;
    for (const StyleDefault& setting : styleDefaults())
        EXPECT_EQ(StyleCode_Ok, tree.write(setting.path, std::visit(Another(), setting.value))) << setting.path;
    tree.reset();
    for (const StyleDefault& setting : styleDefaults())
        EXPECT_EQ(setting.value, *tree.find(setting.path)) << setting.path;
}

TEST(StyleTree, ALookupOfTheEngineAnswersNothingForAnotherTypeOrPath)
{
    tree().reset();
    EXPECT_EQ(1, lookupInt("Interface/OpenGLConfig/UseAdvancedVisualChooser"));
    EXPECT_TRUE(lookupBool("Paper/OrientPortrait"));
    EXPECT_EQ(11.69, lookupDouble("GlobalPaper/PaperSizeInfo/A4/Height"));
    EXPECT_EQ("Custom1", lookupText("Paper/PaperSizeInfo/Custom1/Description"));
    EXPECT_EQ(0, lookupInt("Paper/OrientPortrait"));
    EXPECT_FALSE(lookupBool("Interface/OpenGLConfig/UseAdvancedVisualChooser"));
    EXPECT_EQ(0.0, lookupDouble("Paper/PaperSize"));
    EXPECT_EQ("", lookupText("No/Such/Path"));
}
