#include "engine/page/Paper.h"

#include "engine/style/PaperNames.h"
#include "engine/style/StyleTree.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

namespace velmora::engine {
namespace {

using style::PaperNames;

// What is left of a paper whose margins are wider than itself.
constexpr double SmallestPrintable = 0.01;

struct Margins {
    double left;
    double right;
    double bottom;
    double top;
};

std::string branchOfCurrentPaper()
{
    const long last = static_cast<long>(std::size(PaperNames)) - 1;
    const long index = std::clamp(style::lookupInt("Paper/PaperSize"), 0L, last);
    return std::string("Paper/PaperSizeInfo/") + PaperNames[index] + "/";
}

Margins marginsOf(const std::string& branch)
{
    return {style::lookupDouble(branch + "LeftHardClipOffset"), style::lookupDouble(branch + "RightHardClipOffset"),
            style::lookupDouble(branch + "BottomHardClipOffset"), style::lookupDouble(branch + "TopHardClipOffset")};
}

// The settings are those of the upright sheet; a landscape one is that sheet turned to the left.
Margins turned(const Margins& upright)
{
    return {upright.top, upright.bottom, upright.left, upright.right};
}

} // namespace

Paper currentPaper()
{
    const std::string branch = branchOfCurrentPaper();
    Paper paper;
    paper.width = style::lookupDouble(branch + "Width");
    paper.height = style::lookupDouble(branch + "Height");
    Margins margins = marginsOf(branch);
    if (!style::lookupBool("Paper/OrientPortrait")) {
        std::swap(paper.width, paper.height);
        margins = turned(margins);
    }
    paper.printable = {margins.left, margins.bottom,
                       std::max(paper.width - margins.left - margins.right, SmallestPrintable),
                       std::max(paper.height - margins.bottom - margins.top, SmallestPrintable)};
    return paper;
}

} // namespace velmora::engine
