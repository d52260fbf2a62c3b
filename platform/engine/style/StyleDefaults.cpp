#include "engine/style/StyleDefaults.h"

#include "engine/style/PaperNames.h"

#include <iterator>
#include <limits>

namespace velmora::engine::style {
namespace {

constexpr double Any = std::numeric_limits<double>::max();
constexpr double Smallest = std::numeric_limits<double>::min(); ///< the least number above 0
constexpr double LargestPaper = 1000;                           ///< inches
constexpr double HardClipInches = 0.125;

struct PaperSize {
    double width;  ///< inches, portrait
    double height; ///< inches, portrait
};

/// In the order of PaperNames.
constexpr PaperSize PaperSizes[] = {{8.5, 11.0},    {11.0, 17.0}, {8.27, 11.69},
                                    {11.69, 16.54}, {8.0, 10.0},  {10.0, 10.0}};
static_assert(std::size(PaperSizes) == std::size(PaperNames), "each paper has a name and a size");
constexpr double LastPaper = static_cast<double>(std::size(PaperNames)) - 1;

/// What is not a paper's own. Of the OpenGL sizes 0 means "not set": code that needs one then takes
/// a default of its own. They may be negative, which counts as not set too.
std::vector<StyleDefault> plainDefaults()
{
    return {
        // The frame buffer of a drawing area on the screen, and of an off-screen image.
        {"Interface/OpenGLConfig/ScreenRendering/DepthBufferSize", 0L, -Any, Any},
        {"Interface/OpenGLConfig/ScreenRendering/MaxMultiSamples", 0L, -Any, Any},
        {"Interface/OpenGLConfig/ScreenRendering/MaxAccumBufferSize", 0L, -Any, Any},
        {"Interface/OpenGLConfig/ImageRendering/DepthBufferSize", 0L, -Any, Any},
        {"Interface/OpenGLConfig/ImageRendering/MaxMultiSamples", 0L, -Any, Any},
        {"Interface/OpenGLConfig/ImageRendering/MaxAccumBufferSize", 0L, -Any, Any},
        {"Interface/OpenGLConfig/ImageRendering/PreferEGL", 0L, 0, 1},
        // Whether drawing areas choose their X visual by the binding's own ranking (not 0) or
        // leave it to the toolkit (0), and the visual that they shall take (0: choose one).
        {"Interface/OpenGLConfig/UseAdvancedVisualChooser", 1L, -Any, Any},
        {"Interface/OpenGLConfig/VisualID", 0L, 0, Any},
        // Whether the binding prints what it does.
        {"Interface/PrintDebug", false, 0, 1},
        // Microseconds of extra work in each portion of a drawing, to make long drawings of small
        // data.
        {"Interface/DrawingDelay", 0L, 0, Any},
        // Whether pages show the edge and the margins of their paper.
        {"Interface/ShowPaper", 0L, 0, 1},
        // The paper of every page: a position in the list of papers, and whether it stands
        // upright. The sizes of a paper are those of the upright sheet.
        {"Paper/PaperSize", 0L, 0, LastPaper},
        {"Paper/OrientPortrait", true, 0, 1},
    };
}

void appendPaper(const std::string& name, const PaperSize& size, std::vector<StyleDefault>& defaults)
{
    const std::string branch = "Paper/PaperSizeInfo/" + name + "/";
    defaults.push_back({branch + "Description", name, 0, 0});
    defaults.push_back({branch + "Width", size.width, Smallest, LargestPaper});
    defaults.push_back({branch + "Height", size.height, Smallest, LargestPaper});
    for (const char* side : {"Left", "Right", "Bottom", "Top"})
        defaults.push_back({branch + side + "HardClipOffset", HardClipInches, 0, LargestPaper});
}

} // namespace

std::vector<StyleDefault> styleDefaults()
{
    std::vector<StyleDefault> defaults = plainDefaults();
    for (std::size_t i = 0; i < std::size(PaperNames); ++i)
        appendPaper(PaperNames[i], PaperSizes[i], defaults);
    return defaults;
}

} // namespace velmora::engine::style
