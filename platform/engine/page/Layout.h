#pragma once

#include "engine/page/Picture.h"

namespace velmora::engine {

class Page;

/// How paper inches become pixels of a target: an origin and a scale for each direction, from the
/// lower left corner.
struct PaperView {
    double originX = 0; ///< pixel of the paper's left edge
    double originY = 0; ///< pixel of the paper's lower edge
    double scaleX = 1;  ///< pixels per inch
    double scaleY = 1;

    PixelRect toPixels(const InchRect& rect) const;
    double inchesX(double pixel) const { return (pixel - originX) / scaleX; }
    double inchesY(double pixel) const { return (pixel - originY) / scaleY; }
};

/// The page as its drawing area of that size shows it: the frame alone, or the sheet with all
/// frames when "Interface/ShowPaper" says so.
PaperView workAreaView(const Page& page, int width, int height);
/// The same, `magnification` times larger than on the screen where the sheet's surroundings count in
/// pixels.
Picture workAreaPicture(const Page& page, int width, int height, double pixelsPerPoint, double magnification = 1);

/// The current frame alone, over the whole of a target; its text stays legible, however small that is.
Picture currentFramePicture(const Page& page, int width, int height, double pixelsPerPoint);
/// The whole paper with its frames, in the middle of a target and as large as fits.
Picture paperPicture(const Page& page, int width, int height, double pixelsPerPoint);

constexpr double LegibleText = 9; ///< pixels

/// Pixels of the screen for one point of text or line width.
double screenPixelsPerPoint();
/// How much larger everything is in a picture of that size than in a window, when there is no window
/// to go by.
double usualMagnification(int width, int height);
/// Pixels for one point when a rectangle of the paper fills a target.
double pixelsPerPointFor(const InchRect& rect, int width, int height);

} // namespace velmora::engine
