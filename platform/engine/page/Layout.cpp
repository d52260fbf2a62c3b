#include "engine/page/Layout.h"

#include "engine/core/Callbacks.h"
#include "engine/page/Page.h"
#include "engine/style/StyleTree.h"

#include <algorithm>

namespace velmora::engine {
namespace {

constexpr double PointsPerInch = 72;
constexpr double CentimetresPerInch = 2.54;
constexpr double UsualDotsPerInch = 96;
constexpr double WorkspacePixels = 16; ///< left free around the sheet
// A picture of this width looks like a window of this size on the screen; others are that picture
// enlarged or reduced, text and lines included. In a low strip the height is what text must fit into.
constexpr double UsualWidth = 1000;
constexpr double LeastUsualHeight = 500;

bool showsPaper()
{
    return style::lookupInt("Interface/ShowPaper") != 0;
}

// Maps the rectangle onto the whole target, each direction by itself.
PaperView filling(const InchRect& rect, int width, int height)
{
    PaperView view;
    view.scaleX = width / rect.width;
    view.scaleY = height / rect.height;
    view.originX = -rect.x * view.scaleX;
    view.originY = -rect.y * view.scaleY;
    return view;
}

// The whole paper in the middle, true to scale.
PaperView centred(const Paper& paper, int width, int height, double border)
{
    const double roomX = std::max(width - 2 * border, 1.0);
    const double roomY = std::max(height - 2 * border, 1.0);
    PaperView view;
    view.scaleX = view.scaleY = std::min(roomX / paper.width, roomY / paper.height);
    view.originX = (width - paper.width * view.scaleX) / 2;
    view.originY = (height - paper.height * view.scaleY) / 2;
    return view;
}

void placeAllFrames(const Page& page, const PaperView& view, Picture& picture)
{
    for (const Frame& frame : page.frames())
        picture.frames.push_back({view.toPixels(frame.rect), frame.content});
}

Picture sheetPicture(const Page& page, const PaperView& view, double pixelsPerPoint, double magnification)
{
    const Paper paper = currentPaper();
    Picture picture;
    picture.magnification = magnification;
    picture.showsPaper = true;
    picture.showsMargins = true;
    picture.paper = view.toPixels({0, 0, paper.width, paper.height});
    picture.printable = view.toPixels(paper.printable);
    picture.pixelsPerPoint = pixelsPerPoint > 0 ? pixelsPerPoint : view.scaleX / PointsPerInch;
    placeAllFrames(page, view, picture);
    return picture;
}

} // namespace

PixelRect PaperView::toPixels(const InchRect& rect) const
{
    return {originX + rect.x * scaleX, originY + rect.y * scaleY, rect.width * scaleX, rect.height * scaleY};
}

PaperView workAreaView(const Page& page, int width, int height)
{
    if (showsPaper())
        return centred(currentPaper(), width, height, WorkspacePixels);
    return filling(page.currentFrameRect(), width, height);
}

// On the sheet the text grows and shrinks with the paper; a frame that is shown alone has text of
// the size that the person asked for, however large the window is.
Picture workAreaPicture(const Page& page, int width, int height, double pixelsPerPoint, double magnification)
{
    if (!showsPaper())
        return currentFramePicture(page, width, height, pixelsPerPoint > 0 ? pixelsPerPoint : screenPixelsPerPoint());
    const PaperView view = centred(currentPaper(), width, height, WorkspacePixels * magnification);
    return sheetPicture(page, view, pixelsPerPoint, magnification);
}

Picture currentFramePicture(const Page& page, int width, int height, double pixelsPerPoint)
{
    const InchRect rect = page.currentFrameRect();
    Picture picture;
    picture.leastText = LegibleText;
    picture.pixelsPerPoint = pixelsPerPoint > 0 ? pixelsPerPoint : pixelsPerPointFor(rect, width, height);
    if (page.currentContent())
        picture.frames.push_back({filling(rect, width, height).toPixels(rect), page.currentContent()});
    return picture;
}

Picture paperPicture(const Page& page, int width, int height, double pixelsPerPoint)
{
    const PaperView view = centred(currentPaper(), width, height, 0);
    Picture picture;
    picture.pixelsPerPoint = pixelsPerPoint > 0 ? pixelsPerPoint : view.scaleX / PointsPerInch;
    placeAllFrames(page, view, picture);
    return picture;
}

double screenPixelsPerPoint()
{
    double dotsX = 0;
    double dotsY = 0;
    if (callbacks().misc.getDotPitchPerCm)
        callbacks().misc.getDotPitchPerCm(&dotsX, &dotsY, callbacks().miscClientData);
    return (dotsY > 0 ? dotsY * CentimetresPerInch : UsualDotsPerInch) / PointsPerInch;
}

double usualMagnification(int width, int height)
{
    return std::min(width / UsualWidth, height / LeastUsualHeight);
}

double pixelsPerPointFor(const InchRect& rect, int width, int height)
{
    return std::min(width / rect.width, height / rect.height) / PointsPerInch;
}

} // namespace velmora::engine
